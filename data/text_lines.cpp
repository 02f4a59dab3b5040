// SPDX-License-Identifier: MIT
#include "data/text_lines.h"

#include "data/text_number.h"

namespace quenlor::data {

std::vector<std::string> SplitFields(std::string_view line, char separator) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t end = line.find(separator);
    fields.emplace_back(line.substr(0, end));
    if (end == std::string_view::npos) return fields;
    line.remove_prefix(end + 1);
  }
}

char DividerOf(std::string_view line, char separator) {
  const char other = separator == ',' ? ';' : ',';
  std::size_t at = 0;
  while (at < line.size() && IsDigit(line[at])) ++at;
  return at > 0 && at < line.size() && line[at] == other ? other : separator;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace quenlor::data
