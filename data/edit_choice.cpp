// SPDX-License-Identifier: MIT
#include "data/edit_choice.h"

#include <algorithm>

namespace quenlor::data {

EditChoice ChooseEdit(const Document& document, Document::Row row, Document::Row row_sel, int col,
                      int col_sel) {
  using Mode = EditChoice::Mode;
  const MeasurementTable& table = document.Grid1();
  if (row < 1 || col < 0) return {};
  if (row != row_sel || !table.HasReadings()) {
    return {Mode::kTitle, "Title", std::string(table.TextMatrix(0, col)), 0, col, 0};
  }
  if (row >= table.EntryRow()) return {};
  if (col == col_sel) return {Mode::kData, "Data", std::string(table.TextMatrix(row, col)), row, col, 0};
  const int run = RunNumber(table.TextMatrix(row, 0));
  if (run == 0 || run >= document.Grid4().Rows()) return {};
  return {Mode::kSampleName, "Sample Name", std::string(document.Grid4().TextMatrix(run, 1)), row, 0, run};
}

void ApplyEdit(const EditChoice& choice, const std::string& text, Document& document) {
  using Mode = EditChoice::Mode;
  if (choice.mode == Mode::kData && text != choice.text) document.SetCell(choice.row, choice.col, text);
  if (choice.mode == Mode::kTitle) document.SetTitle(choice.col, text);
  if (choice.mode == Mode::kSampleName) document.SetSampleName(choice.run, text);
}

bool MayDelete(const MeasurementTable& table, Document::Row row, Document::Row row_sel, int col,
               int col_sel) {
  return row >= 1 && row_sel >= 1 && std::max(row, row_sel) < table.EntryRow() && col == 1 &&
         col_sel == table.Cols() - 1;
}

}  // namespace quenlor::data
