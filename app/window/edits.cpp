// SPDX-License-Identifier: MIT
#include "app/window/edits.h"

#include <QMenu>
#include <array>

#include "data/change_dialog.h"
#include "data/unit_beside.h"

namespace quenlor::app {
namespace {

constexpr int kDeleteKey = 46;

std::string InUnit(std::string_view unit) { return unit.empty() ? "" : ", in " + std::string(unit); }

}  // namespace

void Edits::Ask(const std::string& caption, const std::string& text, const std::string& about,
                const std::function<void(const std::string&)>& take) {
  commands_.Run([&] {
    data::ChangeDialog Form2(caption, text, about, window_);
    const auto changed = Form2.Ask();
    if (!changed) return;
    status_.Say({});
    take(*changed);
  });
}

void Edits::Change(const data::EditChoice& choice, const std::string& about) {
  if (choice.mode == data::EditChoice::Mode::kNothing) return;
  Ask(choice.caption, choice.text, about, [&](const std::string& text) { history_.Edit(choice, text); });
}

// Which text that is, for whoever has lost the place.
std::string Edits::About(const data::EditChoice& choice) const {
  using Mode = data::EditChoice::Mode;
  const data::MeasurementTable& table = session_.Document().Grid1();
  if (choice.mode == Mode::kTitle) return "Title of column " + std::to_string(choice.col + 1);
  if (choice.mode == Mode::kSampleName) return "Name of run " + std::to_string(choice.run);
  std::string about = "Run " + std::string(table.TextMatrix(choice.row, 0));
  if (choice.col > 1) about.append(", ").append(table.TextMatrix(choice.row, 1));
  about.append(", ").append(table.TextMatrix(0, choice.col));
  return about + InUnit(choice.col > 1 ? UnitBeside(session_.Document(), choice.row, choice.col) : "");
}

void Edits::Grid1_KeyDown(const platform::qt::GridView& Grid1, int KeyCode) {
  const platform::qt::GridSelection rows = Grid1.Selection();
  if (KeyCode != kDeleteKey ||
      !data::MayDelete(session_.Document().Grid1(), rows.Row, rows.RowSel, rows.Col, rows.ColSel))
    return;
  commands_.Run([&] {
    const std::string which = rows.Row == rows.RowSel ? "Row " + std::to_string(rows.Row) + " is"
                                                      : "Rows " + std::to_string(rows.Row) + " to " +
                                                            std::to_string(rows.RowSel) + " are";
    const std::string before = status_.Said();
    status_.Say(which + " to be deleted");
    const auto answer = dialogs_.Show({.text = "Delete Data ?",
                                       .buttons = platform::Buttons::kOkCancel,
                                       .icon = platform::Icon::kQuestion,
                                       .default_answer = platform::Answer::kCancel});
    if (answer != platform::Answer::kOk) return status_.Say(before);
    history_.RemoveRows(rows.Row, rows.RowSel);
    status_.Say(which + " deleted; Ctrl+Z brings back what was deleted");
  });
}

void Edits::Grid1_DblClick(const platform::qt::GridView& Grid1) {
  if (measurement_.Running()) return;
  const platform::qt::GridSelection cells = Grid1.Selection();
  const data::EditChoice choice =
      data::ChooseEdit(session_.Document(), cells.Row, cells.RowSel, cells.Col, cells.ColSel);
  Change(choice, About(choice));
}

void Edits::Label5_DblClick(int Index) {
  const auto at = static_cast<std::size_t>(Index);
  const auto unit_of = [this](int col) {
    const data::Document& document = session_.Document();
    return InUnit(UnitBeside(document, document.Grid1().EntryRow() - 1, col));
  };
  constexpr std::array kTimeUnits = {"seconds", "minutes", "hours"};
  const std::array units = {InUnit(kTimeUnits[static_cast<std::size_t>(session_.Graph().View().time_unit)]),
                            unit_of(session_.Document().ViscoColumn()),
                            unit_of(session_.Document().TempColumn())};
  constexpr std::array kAxes = {"time", "viscosity", "temperature"};
  const std::string about =
      std::string(at % 2 == 0 ? "Lower" : "Upper") + " end of the " + kAxes[at / 2] + " axis" + units[at / 2];
  const std::string name(graph::kLimitNames[at]);
  const std::string shown = session_.Graph().Labels().Label5[at];
  Ask(name, shown, about, [&](const std::string& text) {
    if (!session_.Graph().EnterLimit(static_cast<graph::Limit>(Index), text)) {
      const std::size_t opposite = at ^ 1;
      status_.Say(name + " stays " + shown + ": \"" + text + "\" is not " +
                  (at % 2 == 0 ? "below " : "above ") + std::string(graph::kLimitNames[opposite]) + ", " +
                  session_.Graph().Labels().Label5[opposite]);
    }
    limit_entered_();
  });
}

void Edits::Label6_DblClick(int Index) {
  if (Index == 4) Change(data::FileNameEdit(session_.Document()), "The name that Save proposes");
  if (Index == 6)
    Change(data::RemarksEdit(session_.Document()), "Stands below the graph, on paper and in the file");
}

void Edits::Label10_DblClick(int Index) {
  const data::EditChoice choice = data::SampleNameEdit(session_.Document(), Index);
  Change(choice, About(choice));
}

void Edits::Undo() {
  commands_.Run([this] {
    const std::string told = history_.Undo();
    status_.Say(told.empty() ? "Nothing is left to undo" : told);
  });
}

void Edits::Redo() {
  commands_.Run([this] {
    const std::string told = history_.Redo();
    status_.Say(told.empty() ? "Nothing is left to redo" : told);
  });
}

void Edits::ShowTableMenu(platform::qt::GridView& Grid1, const QPoint& at) {
  const platform::qt::GridSelection cells = Grid1.Selection();
  const bool selected = cells.Row > 0;
  QMenu menu(window_);
  menu.setObjectName(QStringLiteral("TableMenu"));
  const auto add = [&](const QString& caption, const QKeySequence& keys, bool enabled, const auto& what) {
    QAction* item = menu.addAction(caption, &Grid1, what);
    item->setShortcut(keys);
    item->setEnabled(enabled);
  };
  add(QObject::tr("&Copy"), QKeySequence::Copy, selected, [&Grid1] { Grid1.Copy(); });
  add(QObject::tr("C&hange..."), Qt::Key_F2, selected && !measurement_.Running(),
      [this, &Grid1] { Grid1_DblClick(Grid1); });
  add(QObject::tr("&Delete"), Qt::Key_Delete,
      data::MayDelete(session_.Document().Grid1(), cells.Row, cells.RowSel, cells.Col, cells.ColSel),
      [this, &Grid1] { Grid1_KeyDown(Grid1, kDeleteKey); });
  menu.addSeparator();
  add(QObject::tr("&Undo"), QKeySequence::Undo, history_.CanUndo(), [this] { Undo(); });
  add(QObject::tr("&Redo"), QKeySequence::Redo, history_.CanRedo(), [this] { Redo(); });
  menu.exec(at);
}

}  // namespace quenlor::app
