// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "app/desk/edit_history.h"
#include "app/desk/session.h"
#include "app/desk/status.h"
#include "app/window/one_at_a_time.h"
#include "link/measurement.h"
#include "platform/dialogs.h"
#include "platform/qt/grid_view.h"

namespace quenlor::app {

// What the operator changes by hand: cells, titles and names by a double click, range ends, file name and
// remarks, and rows that Del removes; and the way back.
class Edits {
 public:
  // `limit_entered` is told when a limit may have taken its axis from the automatic scaling.
  Edits(Session& session, const link::Measurement& measurement, platform::Dialogs& dialogs,
        OneAtATime& commands, Status& status, std::function<void()> limit_entered, QWidget* window)
      : session_(session),
        measurement_(measurement),
        dialogs_(dialogs),
        commands_(commands),
        status_(status),
        limit_entered_(std::move(limit_entered)),
        window_(window),
        history_(session.Document()) {}

  void Grid1_KeyDown(const platform::qt::GridView& Grid1, int KeyCode);
  void Grid1_DblClick(const platform::qt::GridView& Grid1);
  void Label5_DblClick(int Index);   // range ends
  void Label6_DblClick(int Index);   // file name and remarks
  void Label10_DblClick(int Index);  // sample names
  void Undo();
  void Redo();

  // Copy, Change, Delete and the way back, where the pointer is.
  void ShowTableMenu(platform::qt::GridView& Grid1, const QPoint& at);

 private:
  void Change(const data::EditChoice& choice, const std::string& about);
  // Lets the operator change a text, and takes the new one over; nothing on "Cancel".
  void Ask(const std::string& caption, const std::string& text, const std::string& about,
           const std::function<void(const std::string&)>& take);
  std::string About(const data::EditChoice& choice) const;

  Session& session_;
  const link::Measurement& measurement_;
  platform::Dialogs& dialogs_;
  OneAtATime& commands_;
  Status& status_;
  std::function<void()> limit_entered_;
  QWidget* window_;
  EditHistory history_;
};

}  // namespace quenlor::app
