// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <string>

#include "app/desk/document_commands.h"
#include "app/desk/vigil.h"
#include "app/window/announcer.h"
#include "app/window/current_value.h"
#include "app/window/edits.h"
#include "app/window/graph_choices.h"
#include "app/window/guide_window.h"
#include "app/window/measure_panel.h"
#include "app/window/menus.h"
#include "app/window/picture_commands.h"
#include "app/window/refresh_tick.h"
#include "app/window/report_windows.h"
#include "app/window/status_line.h"
#include "app/window/tables_pane.h"
#include "graph/posi.h"

namespace quenlor::graph {
class ColorWindow;
}

namespace quenlor::app {

// What the main window stands on.
struct MainWindowPorts {
  link::MeasurementPorts measurement;
  platform::Dialogs& dialogs;
  platform::Printer& printer;
  platform::Clipboard& clipboard;
  platform::Desktop& desktop;
  Session::Place place;
  bool system_writes_comma = false;                   // one and a half is "1,5" to this system
  std::function<platform::Done()> look_for_devices;   // before the Com Port menu tells them
  std::function<std::string(int port)> name_of_port;  // the device behind a number; empty when there is none
};

// The program's window. It lists its parts, and answers what concerns several of them: the commands on
// documents, the window's beginning and its end.
class MainWindow : public QMainWindow, private DocumentCommandsView {
  Q_OBJECT

 public:
  explicit MainWindow(const MainWindowPorts& ports);
  ~MainWindow() override;

  // Opens a data file in place of the new document with which the program starts.
  void OpenFile(const std::string& path);

  // Does what the close box does, without a question: nobody is there to answer one. What was not saved stays
  // in the raw logs.
  void EndNow();

  const data::Document& Document() const { return session_.Document(); }
  const graph::LiveGraph& Graph() const { return session_.Graph(); }

  // The window that a box belongs to: this one, or the preview that stands in its place.
  QWidget* FrontWindow() const { return reports_.FrontWindow(); }
  const std::string& DocumentFolder() const { return documents_.Folder(); }

 protected:
  void closeEvent(QCloseEvent* event) override;  // Form_QueryUnload
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Form_Load();
  void BuildWindow();
  void ConnectHandlers();
  void AddShortcuts();
  void mNew_Click();
  void mOpen_Click();
  void mAppend_Click();
  void mSave_Click();
  void mPrint_Click();
  void mStatistics_Click();
  void mEnd_Click() { close(); }
  void mColor_Click();
  void ShowLineWidth();
  void OfferReadingsLeft();
  void ShowGuide();
  void ShowGraphMenu(const QPoint& at, int run);

  int ShowNews(bool whole);

  // DocumentCommandsView
  void Say(const std::string& text) override { status_.Say(text); }
  void Busy(bool busy) override;
  bool Progress(const std::string& what, double part, bool may_leave) override {
    return progress_.Tell(what, part, may_leave);
  }
  void ShowChoices() override;
  void ClearReceivedData() override;

  RefreshTick refresh_;
  Session session_;
  link::Measurement measurement_;
  Status status_;
  DocumentCommands documents_;
  OneAtATime commands_;
  Vigil vigil_;
  StatusLine& status_line_;
  ProgressBar& progress_;
  Menus& menus_;
  MeasurePanel& panel_;
  GraphChoices& choices_;
  CurrentValue& value_;
  Announcer& announcer_;
  TablesPane& tables_;
  graph::GraphPane& Picture1;
  graph::TableAndGraph& halves_;
  Edits edits_;
  PictureCommands pictures_;
  ReportWindows reports_;
  QPointer<graph::ColorWindow> Form6;
  QPointer<GuideWindow> guide_;
};

}  // namespace quenlor::app
