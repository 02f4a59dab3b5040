// SPDX-License-Identifier: MIT
#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

#include "data/change_dialog.h"
#include "data/edit_choice.h"
#include "data/text_number.h"
#include "link/command_list.h"
#include "link/port_settings.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

// The tables are shown anew at most this often, and never so often that showing them takes more than a small part
// of the time: painting after an insertion costs more the more rows there are.
constexpr int kRefreshMilliseconds = 50;
constexpr int kRefreshShare = 8;

QString Text(const std::string& text) { return QString::fromStdString(text); }

// A tool tip takes what looks like markup for markup; received text is shown as it came.
QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

}  // namespace

MainWindow::MainWindow(const MainWindowPorts& ports)
    : ports_(ports),
      settings_(ports.measurement.files, ports.program_folder, ports.system_writes_comma),
      document_(settings_.List()),
      measurement_(ports.measurement, document_, settings_.List(), ports.program_folder, *this),
      commands_(document_, settings_, measurement_, ports.measurement.files, ports.dialogs, *this,
                ports.program_folder),
      grid1_model_(document_),
      grid2_model_(document_),
      grid4_model_(document_),
      menus_(menuBar(), MenuAnswers()) {
  BuildWindow();
  ConnectHandlers();
  document_.AddListener(*this);
  Form_Load();
}

MainWindow::~MainWindow() { document_.RemoveListener(*this); }

void MainWindow::ConnectHandlers() {
  const auto command = [this](QAction* item, void (MainWindow::*handler)()) {
    connect(item, &QAction::triggered, this, handler);
  };
  command(menus_.mNew, &MainWindow::mNew_Click);
  command(menus_.mOpen, &MainWindow::mOpen_Click);
  command(menus_.mSave, &MainWindow::mSave_Click);
  command(menus_.mEnd, &MainWindow::mEnd_Click);
  command(menus_.mNum, &MainWindow::mNum_Click);
  command(menus_.mVisco, &MainWindow::mVisco_Click);
  connect(menus_.mRS, &QMenu::aboutToShow, this, &MainWindow::ShowDevices);
  connect(menus_.VDT.Menu(), &QMenu::aboutToShow, this, [this] { FillColumnMenu(menus_.VDT, document_.ViscoColumn()); });
  connect(menus_.TDT.Menu(), &QMenu::aboutToShow, this, [this] { FillColumnMenu(menus_.TDT, document_.TempColumn()); });
  connect(Command1, &QPushButton::clicked, this, &MainWindow::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &MainWindow::Command2_Click);
  connect(Combo1, &QComboBox::currentTextChanged, this, &MainWindow::Combo1_Change);
  connect(Check1, &QCheckBox::clicked, this, &MainWindow::Check1_Click);
  connect(Check5, &QCheckBox::clicked, this, &MainWindow::Check5_Click);
  connect(Text1, &QLineEdit::textEdited, this, &MainWindow::Text1_Change);
  connect(Text2, &QLineEdit::textEdited, this, &MainWindow::Text2_Change);
  connect(Grid1, &GridView::Grid_KeyDown, this, &MainWindow::Grid1_KeyDown);
  connect(Grid1, &GridView::Grid_DblClick, this, &MainWindow::Grid1_DblClick);
  connect(&refresh_, &QTimer::timeout, this, &MainWindow::Refresh);
  refresh_.setSingleShot(true);
}

MenuHandlers MainWindow::MenuAnswers() {
  return {.Port_Click = [this](int Index) { Option_Click(setting::kPort, menus_.Port, Index); },
          .BPS_Click = [this](int Index) { Option_Click(setting::kBPS, menus_.BPS, Index); },
          .Parity_Click = [this](int Index) { Option_Click(setting::kParity, menus_.Parity, Index); },
          .Length_Click = [this](int Index) { Option_Click(setting::kLength, menus_.Length, Index); },
          .Bit_Click = [this](int Index) { Option_Click(setting::kBit, menus_.Bit, Index); },
          .Term_Click = [this](int Index) { Option_Click(setting::kTerm, menus_.Term, Index); },
          .LW_Click = [this](int Index) { Option_Click(setting::kLW, menus_.LW, Index); },
          .MK_Click = [this](int Index) { Option_Click(setting::kMK, menus_.MK, Index); },
          .TimeS_Click = [this](int Index) { Option_Click(setting::kTimeS, menus_.TimeS, Index); },
          .mLog_Click = [this](int Index) { Option_Click(setting::kLog, menus_.mLog, Index); },
          .DP_Click = [this](int Index) { DP_Click(Index); },
          .VDT_Click = [this](int Index) { VDT_Click(Index); },
          .TDT_Click = [this](int Index) { TDT_Click(Index); },
          .Range_Click = [](int) {}};
}

void MainWindow::Form_Load() {
  for (const std::string& entry :
       link::LoadCommandList(ports_.measurement.files, ports_.program_folder + "/Command_V.txt")) {
    Combo1->addItem(Text(entry));
  }
  Combo1->setCurrentIndex(Combo1->count() - 1);
  Combo1_Change();
  settings_.LoadSettings();
  for (int port = 1; port <= link::PortCount(settings_.List()); ++port) menus_.Port.Add(QString::number(port));
  ShowSettings();
  ShowDevices();
  commands_.New();
}

void MainWindow::RunAlone(const std::function<void()>& command) {
  if (busy_) return;
  busy_ = true;
  command();
  busy_ = false;
  if (std::exchange(close_wanted_, false)) QMetaObject::invokeMethod(this, &MainWindow::mEnd_Click, Qt::QueuedConnection);
}

void MainWindow::Command1_Click() {
  RunAlone([this] {
    if (measurement_.Running()) return measurement_.Stop();
    settings_.SaveSettings();
    const auto failure = measurement_.Start();
    if (!failure) return Say(tr("Measuring on port %1").arg(ports_.measurement.MSComm1.CommPort()).toStdString());
    StateChanged();
    ports_.dialogs.Show({.text = "Can not Open !\rPlease Check Setting of Com Port !",
                         .buttons = platform::Buttons::kOk,
                         .icon = platform::Icon::kCritical});
    std::string reason = failure->device;
    for (const std::string& part : {failure->reason, failure->advice}) {
      if (!part.empty()) reason += (reason.empty() ? "" : ": ") + part;
    }
    Say(reason);
  });
}

void MainWindow::Command2_Click() { measurement_.SendCommand(Combo1->currentText().toStdString()); }

void MainWindow::Combo1_Change() { measurement_.SetCommandData(Combo1->currentText().toStdString()); }

void MainWindow::Check1_Click() {
  settings_.List().Set(setting::kRepeat, Check1->isChecked() ? 1 : 0);
  settings_.SaveSettings();
  measurement_.RepeatChanged();
}

void MainWindow::Check5_Click() {
  settings_.List().Set(setting::kAutoStop, Check5->isChecked() ? 1 : 0);
  settings_.SaveSettings();
}

void MainWindow::Text1_Change() {
  settings_.List().Set(setting::kAutoStopMinutes, data::GeneralText(data::C_Val(Text1->text().toStdString())));
}

void MainWindow::Text2_Change() {
  settings_.List().Set(setting::kRepeatSeconds, data::GeneralText(data::C_Val(Text2->text().toStdString())));
}

void MainWindow::Grid1_KeyDown(int KeyCode) {
  constexpr int kDeleteKey = 46;
  const GridSelection rows = Grid1->Selection();
  if (KeyCode != kDeleteKey || !data::MayDelete(document_.Grid1(), rows.Row, rows.RowSel, rows.Col, rows.ColSel)) return;
  RunAlone([&] {
    const auto answer = ports_.dialogs.Show({.text = "Delete Data ?",
                                             .buttons = platform::Buttons::kOkCancel,
                                             .icon = platform::Icon::kQuestion,
                                             .default_answer = platform::Answer::kCancel});
    if (answer == platform::Answer::kOk) document_.RemoveRows(rows.Row, rows.RowSel);
  });
}

void MainWindow::Grid1_DblClick() {
  if (measurement_.Running()) return;
  const GridSelection cells = Grid1->Selection();
  const data::EditChoice choice =
      data::ChooseEdit(document_, cells.Row, cells.RowSel, cells.Col, cells.ColSel);
  if (choice.mode == data::EditChoice::Mode::kNothing) return;
  RunAlone([&] {
    data::ChangeDialog Form2(choice.caption, choice.text, this);
    if (const auto text = Form2.Ask()) data::ApplyEdit(choice, *text, document_);
  });
}

void MainWindow::mNew_Click() {
  RunAlone([this] { commands_.New(); });
}

void MainWindow::mOpen_Click() {
  RunAlone([this] { commands_.Open(); });
}

void MainWindow::mSave_Click() {
  RunAlone([this] { commands_.Save(); });
}

void MainWindow::mEnd_Click() { close(); }

// The close box, "End" and the desktop's own ways of closing all end the program by the same road.
void MainWindow::closeEvent(QCloseEvent* event) {
  bool ended = false;
  close_wanted_ = busy_;
  RunAlone([&] { ended = commands_.ExitProgram(); });
  event->setAccepted(ended);
  if (ended && Form5) Form5->close();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && !busy_) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.first().isLocalFile()) return;
  event->acceptProposedAction();
  const std::string path = urls.first().toLocalFile().toStdString();
  // The program that the file comes from waits for the drop to end; questions are asked after it.
  QMetaObject::invokeMethod(
      this, [this, path] { RunAlone([&] { commands_.Drop(path); }); }, Qt::QueuedConnection);
}

void MainWindow::Option_Click(int element, OptionGroup& group, int Index) {
  group.Check(Index);
  settings_.List().Set(element, Index);
  settings_.SaveSettings();
}

void MainWindow::DP_Click(int Index) {
  Option_Click(setting::kDP, menus_.DP, Index);
  document_.SetFieldSeparator(settings_.List().FieldSeparator());
}

void MainWindow::VDT_Click(int Index) {
  menus_.VDT.Check(Index);
  document_.SetViscoColumn(Index + 1);
  settings_.SaveSettings();
}

void MainWindow::TDT_Click(int Index) {
  menus_.TDT.Check(Index);
  document_.SetTempColumn(Index + 1);
  settings_.SaveSettings();
}

void MainWindow::mNum_Click() {
  settings_.List().Set(setting::kNum, menus_.mNum->isChecked() ? "True" : "False");
  settings_.SaveSettings();
}

void MainWindow::mVisco_Click() {
  settings_.List().Set(setting::kVisco, menus_.mVisco->isChecked() ? "True" : "False");
  settings_.SaveSettings();
}

// Every check mark and box as the settings list has it; elements stay as they are, whatever they say.
void MainWindow::ShowSettings() {
  const data::SettingsList& list = settings_.List();
  menus_.Port.Check(list.Index(setting::kPort));
  menus_.BPS.Check(list.Index(setting::kBPS));
  menus_.Parity.Check(list.Index(setting::kParity));
  menus_.Length.Check(list.Index(setting::kLength));
  menus_.Bit.Check(list.Index(setting::kBit));
  menus_.Term.Check(list.Index(setting::kTerm));
  menus_.LW.Check(list.Index(setting::kLW));
  menus_.MK.Check(list.Index(setting::kMK));
  menus_.TimeS.Check(list.Index(setting::kTimeS));
  menus_.mLog.Check(list.Index(setting::kLog));
  menus_.DP.Check(list.Index(setting::kDP));
  menus_.mNum->setChecked(list.IsOn(setting::kNum));
  menus_.mVisco->setChecked(list.IsOn(setting::kVisco));
  Check1->setChecked(list.Index(setting::kRepeat) == 1);
  Check5->setChecked(list.Index(setting::kAutoStop) == 1);
  Text2->setText(Text(list[setting::kRepeatSeconds]));
  Text1->setText(Text(list[setting::kAutoStopMinutes]));
}

void MainWindow::FillColumnMenu(OptionGroup& group, int chosen_column) {
  constexpr int kMostItems = 500;  // a menu of thousands cannot be used, and takes seconds to open
  group.Clear();
  const int last = std::min(document_.Grid1().Cols(), kMostItems + 2);
  for (int col = 2; col < last; ++col) {
    QString title = QString::fromStdString(std::string(document_.Grid1().TextMatrix(0, col)));
    group.Add(title.replace(QLatin1Char('&'), QStringLiteral("&&")));
  }
  group.Check(chosen_column - 1);
}

void MainWindow::ShowDevices() {
  ports_.look_for_devices();
  for (int port = menus_.Port.First(); port <= menus_.Port.Last(); ++port) {
    const std::string device = ports_.name_of_port(port);
    const QString tip = device.empty() ? tr("Port %1: there is no device").arg(port)
                                       : tr("Port %1: %2").arg(port).arg(Text(device));
    menus_.Port.Item(port)->setToolTip(tip);
    menus_.Port.Item(port)->setStatusTip(tip);
  }
}

void MainWindow::ShowHeader() {
  const auto show = [this](std::size_t index, const std::string& text) {
    Label6[index]->setText(Text(text));
    Label6[index]->setToolTip(PlainTip(Label6[index]->accessibleName() + QStringLiteral(": ") + Text(text)));
  };
  show(3, document_.Date());
  show(4, document_.FileName());
  show(6, document_.Remarks());
}

void MainWindow::DocumentReplaced() {
  ShowHeader();
  for (GridView* grid : {Grid1, Grid2, Grid4}) grid->scrollToTop();
}

void MainWindow::AskForRefresh() {
  if (!refresh_.isActive()) refresh_.start(kRefreshMilliseconds);
}

void MainWindow::Refresh() {
  const int cost = Grid1->Sync() + Grid2->Sync() + Grid4->Sync();
  grid4_model_.ShowLatest();
  ShowHeader();
  if (std::exchange(line_waits_, false)) {
    Text3->setText(Text(last_line_));
    Text3->setCursorPosition(0);
    Text3->setToolTip(PlainTip(Text(last_line_)));
  }
  // The next refresh is kept away by a share of this one's cost, even if readings wait already.
  if (cost * kRefreshShare > kRefreshMilliseconds) refresh_.start(cost * kRefreshShare);
}

void MainWindow::StateChanged() {
  const bool running = measurement_.Running();
  const bool stopping = measurement_.Stopping();
  Command1->setText(running ? QStringLiteral("Stop") : QStringLiteral("Start"));
  Command1->setEnabled(!stopping);
  Command2->setEnabled(running);
  menus_.mRS->setEnabled(!running);
  menuBar()->setEnabled(!stopping);
  if (running) return;
  Say({});
  Refresh();
}

void MainWindow::LineReceived(const std::string& line) {
  last_line_ = line;
  line_waits_ = true;
  AskForRefresh();
}

void MainWindow::ErrorLine(const std::string& line) {
  if (!Form5) Form5 = new link::ErrorWindow(this);
  Form5->AppendLine(Text(line));
  if (!Form5->isVisible()) Form5->show();
}

void MainWindow::Say(const std::string& text) {
  status_->setText(Text(text));
  status_->setToolTip(PlainTip(Text(text)));
}

void MainWindow::Busy(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void MainWindow::AutoScalingOn() {
  for (QCheckBox* box : auto_scaling_) box->setChecked(true);
}

void MainWindow::ClearReceivedData() {
  last_line_.clear();
  line_waits_ = false;
  Text3->clear();
  Text3->setToolTip({});
}

}  // namespace quenlor::app
