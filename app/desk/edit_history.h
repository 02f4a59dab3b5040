// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "data/document.h"
#include "data/edit_choice.h"

namespace quenlor::app {

// What the operator changes by hand, and the way back: every edited text and every deletion since the
// document was opened. Readings that come meanwhile stay.
class EditHistory : private data::DocumentListener {
 public:
  explicit EditHistory(data::Document& document);
  ~EditHistory() override;
  EditHistory(const EditHistory&) = delete;
  EditHistory& operator=(const EditHistory&) = delete;

  void Edit(const data::EditChoice& choice, const std::string& text);
  void RemoveRows(Row row, Row row_sel);

  bool CanUndo() const { return !done_.empty(); }
  bool CanRedo() const { return !undone_.empty(); }
  // What has been done, for the status line; empty when there was nothing to do.
  std::string Undo();
  std::string Redo();

 private:
  struct TextEdit {
    data::EditChoice choice;
    std::string before;
    std::string after;
  };
  using Step = std::variant<TextEdit, data::MeasurementTable::RemovedRows>;

  void DocumentReplaced() override;
  void Did(Step step);
  std::string Put(const TextEdit& edit, const std::string& text);

  data::Document& document_;
  std::vector<Step> done_;
  std::vector<Step> undone_;
};

}  // namespace quenlor::app
