// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "graph/color_table.h"
#include "platform/kept_file.h"

namespace quenlor::graph {

// The background of the graph; grid and labels have the other colour.
enum class Scheme { White, Black };

// The colours of runs, background and grid, and the text that keeps them: the colours of entries 1 to 9 and
// 0, each as "&h" and six hexadecimal digits, then "White" or "Black", one a line.
class ColorSettings {
 public:
  ColorSettings() = default;
  ColorSettings(const ColorTable& colors, Scheme scheme) : colors_(colors), scheme_(scheme) {}

  const ColorTable& Colors() const { return colors_; }
  Scheme BackScheme() const { return scheme_; }
  Color BackColor() const { return scheme_ == Scheme::White ? kWhite : kBlack; }
  Color GridColor() const { return scheme_ == Scheme::White ? kBlack : kWhite; }

  std::string Text() const;

  // Nothing unless the text has eleven lines and the first ten are numbers of at most 32 bits: "&h0000ff",
  // "&hFF",
  // "&hFF&", or plain decimal. The upper eight bits say nothing about a colour and are dropped. Whatever is
  // not exactly "White" is black; lines beyond the eleventh are not looked at.
  static std::optional<ColorSettings> FromText(std::string_view text);

  friend bool operator==(const ColorSettings&, const ColorSettings&) = default;

 private:
  ColorTable colors_ = kDefaultColors;
  Scheme scheme_ = Scheme::White;
};

// What the file says. One that is missing, unreadable or damaged in any line is made anew with the defaults,
// which then serve; they also do where it cannot be made. One that cannot be read is set aside first.
ColorSettings LoadColor(platform::KeptFile& file);

// On failure the file is as it was.
platform::Done SaveColor(platform::KeptFile& file, const ColorSettings& settings);

}  // namespace quenlor::graph
