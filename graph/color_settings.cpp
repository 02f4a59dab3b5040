// SPDX-License-Identifier: MIT
#include "graph/color_settings.h"

#include <charconv>
#include <cstdint>

#include "data/text_lines.h"

namespace quenlor::graph {
namespace {

constexpr std::string_view kWhiteWord = "White";
constexpr std::string_view kBlackWord = "Black";
constexpr std::uint32_t kColorBits = 0xFFFFFF;

// The place in the table of the value on that line; lines count from 1.
constexpr std::size_t EntryOfLine(std::size_t line) { return line % std::tuple_size_v<ColorTable>; }

std::string ColorText(Color color) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "&h";
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[(color.value >> shift) & 0xF];
  return text;
}

std::optional<Color> ReadColor(std::string_view line) {
  std::string_view digits = data::Trimmed(line);
  int base = 10;
  if (digits.starts_with("&h") || digits.starts_with("&H")) {
    digits.remove_prefix(2);
    if (digits.ends_with('&')) digits.remove_suffix(1);  // marks a number of 32 bits
    base = 16;
  }
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, value, base);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return Color{value & kColorBits};
}

}  // namespace

std::string ColorSettings::Text() const {
  std::string text;
  for (std::size_t line = 1; line <= colors_.size(); ++line)
    text.append(ColorText(colors_[EntryOfLine(line)])).append("\r\n");
  return text.append(scheme_ == Scheme::White ? kWhiteWord : kBlackWord).append("\r\n");
}

std::optional<ColorSettings> ColorSettings::FromText(std::string_view text) {
  ColorSettings settings;
  data::TextLines lines(text);
  for (std::size_t line = 1; line <= settings.colors_.size(); ++line) {
    const auto value = lines.Next();
    const auto color = value ? ReadColor(*value) : std::nullopt;
    if (!color) return std::nullopt;
    settings.colors_[EntryOfLine(line)] = *color;
  }
  const auto scheme = lines.Next();
  if (!scheme) return std::nullopt;
  settings.scheme_ = *scheme == kWhiteWord ? Scheme::White : Scheme::Black;
  return settings;
}

ColorSettings LoadColor(platform::KeptFile& file) {
  const auto text = file.Read(platform::KeptFile::Unread::kIsSetAside);
  if (text.ok()) {
    if (const auto settings = ColorSettings::FromText(text.value())) return *settings;
  }
  const ColorSettings defaults;
  SaveColor(file, defaults);  // where it cannot be written, they hold until the program ends
  return defaults;
}

platform::Done SaveColor(platform::KeptFile& file, const ColorSettings& settings) {
  return file.Replace(settings.Text());
}

}  // namespace quenlor::graph
