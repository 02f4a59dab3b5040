// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "app/document_commands.h"
#include "app/graph_pane.h"
#include "app/grid_view.h"
#include "app/main_menus.h"
#include "app/posi.h"
#include "app/settings_file.h"
#include "data/document.h"
#include "graph/color_window.h"
#include "link/error_window.h"
#include "link/measurement.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "reports/print_form.h"
#include "reports/print_report.h"
#include "reports/statistics_window.h"

namespace quenlor::app {

// What the main window stands on.
struct MainWindowPorts {
  link::MeasurementPorts measurement;
  platform::Dialogs& dialogs;
  platform::Printer& printer;
  platform::Clipboard& clipboard;
  std::string program_folder;
  bool system_writes_comma = false;                   // one and a half is "1,5" to this system
  std::function<void()> look_for_devices;             // before the Com Port menu tells them
  std::function<std::string(int port)> name_of_port;  // the device behind a number; empty when there is none
};

// The program's window: menus, the tables, the buttons and boxes of a measurement. It owns the document, the
// settings and the measurement, and wires each control to the verb that answers it.
class MainWindow : public QMainWindow,
                   private link::MeasurementListener,
                   private graph::GraphView,
                   private DocumentCommandsView,
                   private reports::PrintWindows,
                   private data::DocumentListener {
  Q_OBJECT

 public:
  explicit MainWindow(const MainWindowPorts& ports);
  ~MainWindow() override;

  // Opens a data file in place of the new document with which the program starts.
  void OpenFile(const std::string& path) { commands_.ReadDataFile(path); }

  const data::Document& Document() const { return document_; }

  // The window that a box belongs to: this one, or the preview that stands in its place.
  QWidget* FrontWindow();

 protected:
  void closeEvent(QCloseEvent* event) override;  // Form_QueryUnload
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Handlers, named after control and event.
  void Form_Load();
  void Command1_Click();  // "Start" / "Stop"
  void Command2_Click();  // "Command"
  void Check1_Click();    // "Repeat"
  void Check5_Click();    // "Auto Stop"
  void Text1_Change();    // auto stop, minutes
  void Text2_Change();    // repeat interval, seconds
  void Combo1_Change();   // "Command Data"
  void Grid1_KeyDown(int KeyCode);
  void Grid1_DblClick();
  void mNew_Click();
  void mOpen_Click();
  void mSave_Click();
  void mPrint_Click();
  void mStatistics_Click();
  void mEnd_Click();
  void Label5_DblClick(int Index);                                // range ends
  void Label6_DblClick(int Index);                                // file name and remarks
  void Label10_DblClick(int Index);                               // sample names
  void Check2_Click();                                            // "Time"
  void Check3_Click();                                            // "Viscosity"
  void Check4_Click();                                            // "Temp"
  void Option1_Click(int Index);                                  // "Selection"
  void Option2_Click();                                           // "Standard" / "Fine"
  void Option_Click(int element, OptionGroup& group, int Index);  // every menu of one checked item
  void LW_Click(int Index);
  void MK_Click(int Index);
  void TimeS_Click(int Index);
  void mLog_Click(int Index);
  void DP_Click(int Index);
  void VDT_Click(int Index);
  void TDT_Click(int Index);
  void mColor_Click();
  void mNum_Click();
  void mVisco_Click();
  void mDefault_Click() {}  // "Initialize" has nothing to do

  // Lets the operator change a text, and takes the new one over; nothing on "Cancel".
  void Change(const std::string& caption, const std::string& text,
              const std::function<void(const std::string&)>& take);

  // One command at a time: while one waits, for the instrument or for an answer, others are refused.
  void RunAlone(const std::function<void()>& command);

  MenuHandlers MenuAnswers();
  std::string WindowFile() const { return ports_.program_folder + "/Window.txt"; }
  std::string ColorFile() const { return ports_.program_folder + "/Color.txt"; }
  void RestoreWindowState();
  void KeepWindowState();
  void BuildWindow();
  QWidget* BuildControls();
  QWidget* BuildTables();
  QGroupBox* BuildRepeatFrame();
  QGroupBox* BuildAutoScalingFrame();
  QGroupBox* BuildSelectionFrame();
  void ConnectHandlers();
  void ShowSettings();
  void FillColumnMenu(OptionGroup& group, int chosen_column);
  void ShowDevices();
  void TellOfUnreachableDevice();
  void ShowScaling();
  void ChangeColor();
  void AskForRefresh();
  void Refresh();

  // graph::GraphView
  void Fig() override;
  void PlotRow(Row) override { AskForRefresh(); }
  void CaptionsChanged() override;
  // link::MeasurementListener
  void StateChanged() override;
  void LineReceived(const std::string& line) override;
  void ErrorLine(const std::string& line) override;
  // DocumentCommandsView
  void Say(const std::string& text) override;
  void Busy(bool busy) override;  // and reports::PrintWindows
  void SettingsApplied() override;
  void AutoScalingOn() override;
  void ClearReceivedData() override;
  // reports::PrintWindows
  void HideMainWindow() override;
  void ShowMainWindow() override;
  void ShowForm3(const platform::PageSize& page) override;
  void HideForm3() override;
  const reports::PageRecord& Draw() override;
  // data::DocumentListener
  void ReadingAppended(Row) override { AskForRefresh(); }
  void DocumentReplaced() override;

  MainWindowPorts ports_;
  SettingsFile settings_;
  data::Document document_;
  link::Measurement measurement_;
  DocumentCommands commands_;
  graph::ColorSettings colors_;
  graph::LiveGraph graph_;
  Grid1Model grid1_model_;
  Grid2Model grid2_model_;
  Grid4Model grid4_model_;
  MainMenus menus_;
  QTimer refresh_;
  std::string last_line_;
  bool line_waits_ = false;    // last_line_ is not shown yet
  bool fig_waits_ = false;     // the graph is to be drawn anew
  bool busy_ = false;          // a command runs
  bool had_focus_ = false;     // the button, before Stop's wait took it away
  QPoint place_;               // before the preview took this window's place
  bool close_wanted_ = false;  // the window was closed meanwhile; it closes when the command is over

  QPushButton* Command1 = nullptr;
  QPushButton* Command2 = nullptr;
  QComboBox* Combo1 = nullptr;
  QCheckBox* Check1 = nullptr;
  QCheckBox* Check5 = nullptr;
  QLineEdit* Text1 = nullptr;
  QLineEdit* Text2 = nullptr;
  QLineEdit* Text3 = nullptr;
  std::array<QCheckBox*, 3> auto_scaling_{};  // Check2 "Time", Check3 "Viscosity", Check4 "Temp"
  std::array<QRadioButton*, 3> Option1{};     // the kinds of graph
  std::array<QRadioButton*, 2> Option2{};     // "Standard", "Fine"
  QLabel* status_ = nullptr;                  // stays while menus tell about their items beside it
  QTabWidget* tabs_ = nullptr;
  GridView* Grid1 = nullptr;
  GridView* Grid2 = nullptr;
  GridView* Grid4 = nullptr;
  GraphPane* Picture1 = nullptr;
  TableAndGraph* halves_ = nullptr;
  std::unique_ptr<reports::PrintForm> Form3;  // hidden between prints
  QPointer<reports::StatisticsWindow> Form4;
  QPointer<link::ErrorWindow> Form5;
  QPointer<graph::ColorWindow> Form6;
};

}  // namespace quenlor::app
