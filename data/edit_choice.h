// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/document.h"

namespace quenlor::data {

// What a double click on the measurement table lets the operator edit.
struct EditChoice {
  enum class Mode { kNothing, kData, kSampleName, kTitle };
  Mode mode = Mode::kNothing;
  std::string caption;  // "Data", "Sample Name" or "Title"
  std::string text;     // what stands there now
  Document::Row row = 0;
  int col = 0;
  int run = 0;  // for a sample name
};

// From the selection (Row, Col) to (RowSel, ColSel): one cell is edited as "Data", several cells of a row
// mean the run's name, anything else, or a table without readings, the title of column Col. The entry row is
// not edited.
EditChoice ChooseEdit(const Document& document, Document::Row row, Document::Row row_sel, int col,
                      int col_sel);

// Puts the edited text in its place.
void ApplyEdit(const EditChoice& choice, const std::string& text, Document& document);

// Whether the Delete key acts on a selection: whole rows from column 1 to the last, all before the entry row.
bool MayDelete(const MeasurementTable& table, Document::Row row, Document::Row row_sel, int col, int col_sel);

}  // namespace quenlor::data
