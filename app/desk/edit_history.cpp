// SPDX-License-Identifier: MIT
#include "app/desk/edit_history.h"

#include <utility>

#include "app/desk/status.h"

namespace quenlor::app {
namespace {

using Removed = data::MeasurementTable::RemovedRows;

std::string RowsText(const Removed& rows) { return CountText(rows.Count(), "row is", "rows are"); }

}  // namespace

EditHistory::EditHistory(data::Document& document) : document_(document) { document_.AddListener(*this); }

EditHistory::~EditHistory() { document_.RemoveListener(*this); }

// Another document has no past.
void EditHistory::DocumentReplaced() {
  done_.clear();
  undone_.clear();
}

void EditHistory::Did(Step step) {
  done_.push_back(std::move(step));
  undone_.clear();
}

void EditHistory::Edit(const data::EditChoice& choice, const std::string& text) {
  data::ApplyEdit(choice, text, document_);
  const std::string after = data::EditedText(choice, document_);
  if (after != choice.text) Did(TextEdit{choice, choice.text, after});
}

void EditHistory::RemoveRows(Row row, Row row_sel) {
  Removed removed = document_.RemoveRows(row, row_sel);
  if (removed.Count() > 0) Did(std::move(removed));
}

std::string EditHistory::Put(const TextEdit& edit, const std::string& text) {
  data::EditChoice choice = edit.choice;
  choice.text = data::EditedText(choice, document_);
  data::ApplyEdit(choice, text, document_);
  return choice.caption + " is \"" + text + "\" again";
}

std::string EditHistory::Undo() {
  if (done_.empty()) return {};
  Step step = std::move(done_.back());
  done_.pop_back();
  std::string told;
  if (const auto* edit = std::get_if<TextEdit>(&step)) {
    told = Put(*edit, edit->before);
  } else {
    const auto& rows = std::get<Removed>(step);
    document_.RestoreRows(rows);
    told = RowsText(rows) + " back";
  }
  undone_.push_back(std::move(step));
  return told;
}

std::string EditHistory::Redo() {
  if (undone_.empty()) return {};
  Step step = std::move(undone_.back());
  undone_.pop_back();
  std::string told;
  if (const auto* edit = std::get_if<TextEdit>(&step)) {
    told = Put(*edit, edit->after);
  } else {
    auto& rows = std::get<Removed>(step);
    rows = document_.RemoveRows(rows.first, rows.first + rows.Count() - 1);
    told = RowsText(rows) + " deleted again";
  }
  done_.push_back(std::move(step));
  return told;
}

}  // namespace quenlor::app
