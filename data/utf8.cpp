// SPDX-License-Identifier: MIT
#include "data/utf8.h"

#include <cstdint>

#include "data/eight_bytes.h"

namespace quenlor::data {
namespace {

std::uint8_t Byte(std::string_view bytes, std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); }

// Length of the well-formed sequence that starts at `at`; 0 when none does. Bounds after the Unicode
// standard's table of well-formed byte sequences.
std::size_t SequenceLength(std::string_view bytes, std::size_t at) {
  const std::uint8_t lead = Byte(bytes, at);
  if (lead < 0x80) return 1;
  std::size_t length = 0;
  std::uint8_t low = 0x80;
  std::uint8_t high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (at + length > bytes.size()) return 0;
  if (Byte(bytes, at + 1) < low || Byte(bytes, at + 1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((Byte(bytes, at + i) & 0xC0) != 0x80) return 0;
  }
  return length;
}

// The first position at or after `at` that holds a byte above 127, eight bytes at a time.
std::size_t SkipAscii(std::string_view bytes, std::size_t at) {
  while (at + EightBytes::kSize <= bytes.size() && EightBytes(bytes.data() + at).Above127() == 0) {
    at += EightBytes::kSize;
  }
  while (at < bytes.size() && Byte(bytes, at) < 0x80) ++at;
  return at;
}

// The first position at or after `at` where the bytes stop being well-formed.
std::size_t SkipUtf8(std::string_view bytes, std::size_t at) {
  while ((at = SkipAscii(bytes, at)) < bytes.size()) {
    const std::size_t length = SequenceLength(bytes, at);
    if (length == 0) break;
    at += length;
  }
  return at;
}

}  // namespace

bool IsUtf8(std::string_view bytes) { return SkipUtf8(bytes, 0) == bytes.size(); }

std::string ToUtf8(std::string bytes) {
  std::size_t bad = SkipUtf8(bytes, 0);
  if (bad == bytes.size()) return bytes;

  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  std::size_t good = 0;
  while (bad < bytes.size()) {
    text.append(bytes, good, bad - good);
    const std::uint8_t latin1 = Byte(bytes, bad);
    text.push_back(static_cast<char>(0xC0 | (latin1 >> 6)));
    text.push_back(static_cast<char>(0x80 | (latin1 & 0x3F)));
    good = bad + 1;
    bad = SkipUtf8(bytes, good);
  }
  text.append(bytes, good);
  return text;
}

TextEncoding EncodingOf(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) return TextEncoding::kUtf8WithMark;
  bool damaged = false;
  for (std::size_t at = SkipAscii(bytes, 0); at < bytes.size(); at = SkipAscii(bytes, at)) {
    const std::size_t length = SequenceLength(bytes, at);
    if (length > 1) return TextEncoding::kUtf8;
    damaged = true;
    ++at;
  }
  return damaged ? TextEncoding::kLatin1 : TextEncoding::kUtf8;
}

std::optional<std::string> ToLatin1(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::uint8_t lead = Byte(text, at);
    if (lead < 0x80) {
      bytes.push_back(text[at]);
    } else {
      if ((lead != 0xC2 && lead != 0xC3) || ++at == text.size()) return std::nullopt;
      bytes.push_back(static_cast<char>(((lead & 0x03) << 6) | (Byte(text, at) & 0x3F)));
    }
  }
  return bytes;
}

std::string_view Utf8Prefix(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  while (limit > 0 && (Byte(text, limit) & 0xC0) == 0x80) --limit;
  return text.substr(0, limit);
}

}  // namespace quenlor::data
