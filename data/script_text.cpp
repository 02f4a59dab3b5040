// SPDX-License-Identifier: MIT
#include "data/script_text.h"

#include <charconv>
#include <cstdio>

namespace quenlor::data {

void AppendCsvField(std::string_view text, std::string& line) {
  if (text.find_first_of("\",\r\n") == std::string_view::npos) {
    line.append(text);
    return;
  }
  line.push_back('"');
  for (const char c : text) {
    if (c == '"') line.push_back('"');
    line.push_back(c);
  }
  line.push_back('"');
}

void AppendJsonString(std::string_view text, std::string& json) {
  json.push_back('"');
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json.push_back('\\');
      json.push_back(c);
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      json.append(escape);
    } else {
      json.push_back(c);
    }
  }
  json.push_back('"');
}

void AppendJsonNumber(std::optional<double> number, std::string& json) {
  if (!number) {
    json.append("null");
    return;
  }
  char buffer[40];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, *number);
  json.append(buffer, end);
}

}  // namespace quenlor::data
