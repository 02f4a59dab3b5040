// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include "data/utf8.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"

namespace quenlor::fuzz {
namespace {

std::string Ascii(std::string_view text) {
  std::string ascii;
  std::copy_if(text.begin(), text.end(), std::back_inserter(ascii),
               [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return ascii;
}

// Whether the bytes are characters, by taking them apart and asking of each one whether it
// is written shortest.
bool IsText(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (bytes.size() < length || (lead >= 0x80 && lead < 0xC0) || lead >= 0xF8) return false;
    char32_t character = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
      if ((bytes[k] & 0xC0) != 0x80) return false;
      character = (character << 6) | (bytes[k] & 0x3Fu);
    }
    constexpr char32_t kShortest[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kShortest[length - 1] || character > 0x10FFFF || surrogate) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace

void Utf8(std::string_view input) {
  Check(data::IsUtf8(input) == IsText(input), "UTF-8 is what can be taken apart into characters");
  const std::string text = data::ToUtf8(std::string(input));
  Check(data::IsUtf8(text) && IsText(text), "the result is UTF-8");
  Check(text.find_first_of("\xFE\xFF") == text.npos, "the result never holds FE and FF");
  Check(!data::IsUtf8(input) || text == input, "UTF-8 stands as it is");
  Check(data::ToUtf8(text) == text, "the result stands as it is");
  Check(text.size() <= 2 * input.size() && Ascii(text) == Ascii(input),
        "ASCII stands as it is, a byte becomes two");

  for (std::size_t limit = 0; limit < 12; ++limit) {
    const auto prefix = data::Utf8Prefix(text, limit);
    Check(text.starts_with(prefix) && prefix.size() <= limit, "a prefix is a prefix");
    Check(data::IsUtf8(prefix), "a prefix does not cut a character");
    Check(prefix.size() + 3 >= std::min(limit, text.size()), "a prefix is the longest one");
  }
}

}  // namespace quenlor::fuzz
