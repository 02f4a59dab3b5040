// SPDX-License-Identifier: MIT
#include "reports/page_text.h"

#include <algorithm>

#include "data/utf8.h"
#include "graph/fit_text.h"

namespace quenlor::reports {
namespace {

using graph::kEllipsis;

std::string_view WithoutBlanksBefore(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view WithoutBlanksAfter(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view FirstCharacter(std::string_view text) {
  std::size_t end = 1;
  while (end < text.size() && data::Utf8Prefix(text, end).size() < end) ++end;
  return text.substr(0, end);
}

// What stands in the first line of a text that is too long for one.
std::string_view FirstLine(std::string_view text, double width, const WidthOf& measure) {
  const std::string_view prefix = graph::LongestPrefix(
      text, [&](std::string_view part) { return measure(WithoutBlanksAfter(part)) <= width; });
  if (prefix.size() == text.size()) return text;
  if (prefix.empty()) return FirstCharacter(text);  // or there would be no end
  // Between two words, if there are any; a blank just behind the prefix has room there.
  const std::size_t blank = text.substr(0, prefix.size() + 1).find_last_of(' ');
  const bool only_blanks = WithoutBlanksBefore(text.substr(0, blank)).empty();
  return blank == std::string_view::npos || only_blanks ? prefix : text.substr(0, blank);
}

}  // namespace

std::string PlainLine(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
  return line;
}

Lines Wrapped(std::string_view text, double width, std::size_t most_lines, const WidthOf& measure) {
  Lines result;
  const std::string plain = PlainLine(text);
  std::string_view rest = WithoutBlanksAfter(plain);
  while (!rest.empty() && result.lines.size() < most_lines) {
    const std::string_view line = FirstLine(rest, width, measure);
    result.lines.push_back(graph::FitText(WithoutBlanksAfter(line), width, measure));
    rest = WithoutBlanksBefore(rest.substr(line.size()));
  }
  result.complete = rest.empty();
  if (!result.complete && !result.lines.empty()) {
    // The last line has room for what says that there is more.
    std::string& last = result.lines.back();
    last = graph::FitText(last.append(kEllipsis), width, measure);
  }
  return result;
}

}  // namespace quenlor::reports
