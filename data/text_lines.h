// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/utf8.h"

namespace quenlor::data {

// Walks the lines of a text. CR LF, LF and CR each end a line; a byte-order mark at the start is skipped.
class TextLines {
 public:
  explicit TextLines(std::string_view text) : rest_(text) {
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
  }

  // The next line without its end; nothing after the last one.
  std::optional<std::string_view> Next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = rest_.find_first_of("\r\n");
    const std::string_view line = rest_.substr(0, end);
    if (end == std::string_view::npos) {
      rest_ = {};
    } else {
      rest_.remove_prefix(end + (rest_.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    return line;
  }

 private:
  std::string_view rest_;
};

// The fields of one line of text. `List1` of a document is what this gives.
std::vector<std::string> SplitFields(std::string_view line, char separator);

// What divides a line that begins with a whole number: the other one of "," and ";" where it follows the
// number, else `separator`. So the lines of a file tell on which side of a change of the separator they were
// written.
char DividerOf(std::string_view line, char separator);

// Without the blanks and tabs at both ends.
std::string_view Trimmed(std::string_view text);

}  // namespace quenlor::data
