// SPDX-License-Identifier: MIT
#include <algorithm>

#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/line_splitter.h"

namespace quenlor::fuzz {
namespace {

using Fields = std::vector<std::string>;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string Joined(const Fields& fields) {
  std::string text;
  for (const std::string& field : fields) text += field;
  return text;
}

std::string Without(std::string text, std::string_view characters) {
  std::erase_if(text, [&](char c) { return characters.find(c) != characters.npos; });
  return text;
}

void CheckNumericForm(std::string_view line, bool decimal_comma, const Fields& fields) {
  const char point = decimal_comma ? ',' : '.';
  const std::string number_characters = std::string("0123456789+-/:") + point;
  for (std::size_t k = 0; k < fields.size(); ++k) {
    Check(fields[k].find_first_not_of(number_characters) == std::string::npos,
          "a field is made of what numbers, dates and times are made of");
    Check(!fields[k].empty() || k + 1 == fields.size(), "only a field that has begun can end");
  }

  // What is left when everything that is no part of a number is struck out.
  std::string numbers;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool in_number = i > 0 && i + 1 < line.size() && IsDigit(line[i - 1]) && IsDigit(line[i + 1]);
    if (IsDigit(line[i]) || std::string_view("+-/:").find(line[i]) != std::string_view::npos)
      numbers += line[i];
    if (line[i] == '.' || (line[i] == ',' && decimal_comma && in_number)) numbers += point;
  }
  Check(Joined(fields) == numbers, "no character of a number is lost");
  Check(fields.empty() == numbers.empty(), "a line without numbers has no fields");
}

void CheckSeparatorForm(std::string_view line, const Fields& fields) {
  const char separator = line.find(';') != line.npos ? ';' : ',';
  const std::string lost{' ', separator};
  Check(fields.empty() == line.empty(), "a line without any field is an empty one");
  for (const std::string& field : fields)
    Check(field.find(separator) == field.npos, "a separator divides fields");
  Check(Without(Joined(fields), lost) == Without(std::string(line), lost),
        "only separators and blanks are lost");

  const auto separators = static_cast<std::size_t>(std::count(line.begin(), line.end(), separator));
  const auto blanks = static_cast<std::size_t>(std::count(line.begin(), line.end(), ' '));
  Check(line.empty() || fields.size() >= separators + 1, "every separator ends a field");
  Check(fields.size() <= separators + blanks + 1, "nothing else than separators and blanks ends a field");
}

}  // namespace

void LineSplitter(std::string_view input) {
  Fields used = {"left over", "from the", "line before"};
  Fields separator_form[2];
  for (const bool decimal_comma : {false, true}) {
    for (const bool numeric : {false, true}) {
      Fields fields;
      link::SplitLine(input, {numeric, decimal_comma}, fields);
      link::SplitLine(input, {numeric, decimal_comma}, used);
      Check(used == fields, "nothing is left of the line before");
      if (numeric) {
        CheckNumericForm(input, decimal_comma, fields);
      } else {
        CheckSeparatorForm(input, fields);
        separator_form[decimal_comma ? 1 : 0] = fields;
      }
    }
  }
  Check(separator_form[0] == separator_form[1], "the decimal comma is for numbers alone");
}

}  // namespace quenlor::fuzz
