// SPDX-License-Identifier: MIT
#include "data/edit_choice.h"

#include <algorithm>

#include "data/header_values.h"

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
  return SampleNameEdit(document, RunNumber(table.TextMatrix(row, 0)));
}

EditChoice SampleNameEdit(const Document& document, int run) {
  if (run < 1 || run >= document.Grid4().Rows()) return {};
  return {EditChoice::Mode::kSampleName,
          "Sample Name",
          std::string(document.Grid4().TextMatrix(run, 1)),
          0,
          0,
          run};
}

EditChoice FileNameEdit(const Document& document) {
  return {EditChoice::Mode::kFileName, "File Name", document.FileName(), 0, 0, 0};
}

EditChoice RemarksEdit(const Document& document) {
  return {EditChoice::Mode::kRemarks, "Remarks", document.Remarks(), 0, 0, 0};
}

void ApplyEdit(const EditChoice& choice, const std::string& text, Document& document) {
  using Mode = EditChoice::Mode;
  if (choice.mode == Mode::kData && text != choice.text) document.SetCell(choice.row, choice.col, text);
  if (choice.mode == Mode::kTitle) document.SetTitle(choice.col, text);
  if (choice.mode == Mode::kSampleName) document.SetSampleName(choice.run, text);
  if (choice.mode == Mode::kFileName) document.SetFileName(FileNameFrom(text));
  if (choice.mode == Mode::kRemarks) document.SetRemarks(RemarksFrom(text));
}

std::string EditedText(const EditChoice& choice, const Document& document) {
  switch (choice.mode) {
    case EditChoice::Mode::kNothing:
      break;
    case EditChoice::Mode::kData:
    case EditChoice::Mode::kTitle:
      return std::string(document.Grid1().TextMatrix(choice.row, choice.col));
    case EditChoice::Mode::kSampleName:
      return std::string(document.Grid4().TextMatrix(choice.run, 1));
    case EditChoice::Mode::kFileName:
      return document.FileName();
    case EditChoice::Mode::kRemarks:
      return document.Remarks();
  }
  return {};
}

bool MayDelete(const MeasurementTable& table, Document::Row row, Document::Row row_sel, int col,
               int col_sel) {
  return row >= 1 && row_sel >= 1 && std::max(row, row_sel) < table.EntryRow() && col == 1 &&
         col_sel == table.Cols() - 1;
}

}  // namespace quenlor::data
