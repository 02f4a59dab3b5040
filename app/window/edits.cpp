// SPDX-License-Identifier: MIT
#include "app/window/edits.h"

#include "data/change_dialog.h"
#include "data/edit_choice.h"
#include "data/header_values.h"

namespace quenlor::app {

void Edits::Change(const std::string& caption, const std::string& text,
                   const std::function<void(const std::string&)>& take) {
  commands_.Run([&] {
    data::ChangeDialog Form2(caption, text, window_);
    if (const auto changed = Form2.Ask()) take(*changed);
  });
}

void Edits::Grid1_KeyDown(const platform::qt::GridView& Grid1, int KeyCode) {
  constexpr int kDeleteKey = 46;
  const platform::qt::GridSelection rows = Grid1.Selection();
  data::Document& document = session_.Document();
  if (KeyCode != kDeleteKey ||
      !data::MayDelete(document.Grid1(), rows.Row, rows.RowSel, rows.Col, rows.ColSel))
    return;
  commands_.Run([&] {
    const std::string before = status_.Told();
    status_.Say(rows.Row == rows.RowSel ? "Row " + std::to_string(rows.Row) + " is to be deleted"
                                        : "Rows " + std::to_string(rows.Row) + " to " +
                                              std::to_string(rows.RowSel) + " are to be deleted");
    const auto answer = dialogs_.Show({.text = "Delete Data ?",
                                       .buttons = platform::Buttons::kOkCancel,
                                       .icon = platform::Icon::kQuestion,
                                       .default_answer = platform::Answer::kCancel});
    status_.Say(before);
    if (answer == platform::Answer::kOk) document.RemoveRows(rows.Row, rows.RowSel);
  });
}

void Edits::Grid1_DblClick(const platform::qt::GridView& Grid1) {
  if (measurement_.Running()) return;
  const platform::qt::GridSelection cells = Grid1.Selection();
  const data::EditChoice choice =
      data::ChooseEdit(session_.Document(), cells.Row, cells.RowSel, cells.Col, cells.ColSel);
  if (choice.mode == data::EditChoice::Mode::kNothing) return;
  Change(choice.caption, choice.text,
         [&](const std::string& text) { data::ApplyEdit(choice, text, session_.Document()); });
}

void Edits::Label5_DblClick(int Index) {
  const auto at = static_cast<std::size_t>(Index);
  Change(std::string(graph::kLimitNames[at]), session_.Graph().Labels().Label5[at],
         [&](const std::string& text) {
           session_.Graph().EnterLimit(static_cast<graph::Limit>(Index), text);
           limit_entered_();
         });
}

void Edits::Label6_DblClick(int Index) {
  data::Document& document = session_.Document();
  if (Index == 4) {
    Change("File Name", document.FileName(),
           [&](const std::string& text) { document.SetFileName(data::FileNameFrom(text)); });
  } else if (Index == 6) {
    Change("Remarks", document.Remarks(),
           [&](const std::string& text) { document.SetRemarks(data::RemarksFrom(text)); });
  }
}

void Edits::Label10_DblClick(int Index) {
  data::Document& document = session_.Document();
  if (Index < 1 || Index >= document.Grid4().Rows()) return;
  Change("Sample Name", std::string(document.Grid4().TextMatrix(Index, 1)),
         [&](const std::string& text) { document.SetSampleName(Index, text); });
}

}  // namespace quenlor::app
