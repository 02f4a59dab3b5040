// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quenlor::reports {

// Texts made to fit. Widths are what `measure` says of a piece of text; a text is only ever cut
// between two characters.
using WidthOf = std::function<double(std::string_view text)>;

// The text as one line without control characters, which printers set as boxes.
std::string PlainLine(std::string_view text);

// The text in lines that are no wider, at most `most_lines` of them. It is divided at blanks, a longer word
// wherever the line is full.
struct Lines {
  std::vector<std::string> lines;
  bool complete = true;  // else the last line ends with "…"
};
Lines Wrapped(std::string_view text, double width, std::size_t most_lines, const WidthOf& measure);

}  // namespace quenlor::reports
