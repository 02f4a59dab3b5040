// SPDX-License-Identifier: MIT
#include "bench/plain_parser.h"

#include <array>
#include <charconv>
#include <cstring>

namespace quenlor::bench {
namespace {

const char* Find(const char* begin, const char* end, char c) {
  const void* const found = std::memchr(begin, c, static_cast<std::size_t>(end - begin));
  return found == nullptr ? end : static_cast<const char*>(found);
}

double NumberIn(std::string_view field) {
  double number = 0;
  std::from_chars(field.data(), field.data() + field.size(), number);
  return number;
}

double SecondsIn(std::string_view field) {
  const char* const end = field.data() + field.size();
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  const char* at = std::from_chars(field.data(), end, hours).ptr;
  at = std::from_chars(at + 1, end, minutes).ptr;
  std::from_chars(at + 1, end, seconds);
  return hours * 3600.0 + minutes * 60.0 + seconds;
}

}  // namespace

PlainColumns ParsePlainly(std::string_view bytes, std::size_t readings) {
  PlainColumns columns;
  columns.time.reserve(readings);
  columns.visco.reserve(readings);
  columns.temp.reserve(readings);
  const char* const end = bytes.data() + bytes.size();
  const char* line = Find(bytes.data(), end, '\n') + 1;  // after the titles
  while (line < end) {
    const char* const line_end = Find(line, end, '\n');
    std::array<std::string_view, 6> fields;
    const char* at = line;
    for (std::string_view& field : fields) {
      const char* const field_end = Find(at, line_end, ',');
      field = {at, static_cast<std::size_t>(field_end - at)};
      at = field_end + 1;
    }
    columns.time.push_back(SecondsIn(fields[1]));
    columns.visco.push_back(NumberIn(fields[2]));
    columns.temp.push_back(NumberIn(fields[4]));
    line = line_end + 1;
  }
  return columns;
}

}  // namespace quenlor::bench
