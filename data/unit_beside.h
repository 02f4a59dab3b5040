// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "data/document.h"
#include "data/text_lines.h"
#include "data/text_number.h"

namespace quenlor::data {

// The unit of a reading's value, which instruments send as the next field: the text in the column beside it,
// unless that is a number or the other quantity. Empty where there is none.
inline std::string_view UnitBeside(const Document& document, Document::Row row, int col) {
  if (col + 1 == document.ViscoColumn() || col + 1 == document.TempColumn()) return {};
  const std::string_view text = Trimmed(document.Grid1().TextMatrix(row, col + 1));
  return LeadingNumber(text) ? std::string_view() : text;
}

}  // namespace quenlor::data
