// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/document.h"

namespace quenlor::data {

// A text of the document that the operator may edit.
struct EditChoice {
  enum class Mode { kNothing, kData, kSampleName, kTitle, kFileName, kRemarks };
  Mode mode = Mode::kNothing;
  std::string caption;  // "Data", "Sample Name", "Title", "File Name" or "Remarks"
  std::string text;     // what stands there now
  Document::Row row = 0;
  int col = 0;
  int run = 0;  // for a sample name
};

// What a double click on the measurement table lets the operator edit.
//
// From the selection (Row, Col) to (RowSel, ColSel): one cell is edited as "Data", several cells of a row
// mean the run's name, anything else, or a table without readings, the title of column Col. The entry row is
// not edited.
EditChoice ChooseEdit(const Document& document, Document::Row row, Document::Row row_sel, int col,
                      int col_sel);

// What a double click on a caption lets the operator edit. A run without a row in the run table has no name.
EditChoice SampleNameEdit(const Document& document, int run);
EditChoice FileNameEdit(const Document& document);
EditChoice RemarksEdit(const Document& document);

// Puts the edited text in its place, and the text that stands there now.
void ApplyEdit(const EditChoice& choice, const std::string& text, Document& document);
std::string EditedText(const EditChoice& choice, const Document& document);

// Whether the Delete key acts on a selection: whole rows from column 1 to the last, all before the entry row.
bool MayDelete(const MeasurementTable& table, Document::Row row, Document::Row row_sel, int col, int col_sel);

}  // namespace quenlor::data
