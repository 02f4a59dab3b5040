// SPDX-License-Identifier: MIT
#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>

#include "app/plain_tip.h"
#include "app/window_state.h"
#include "data/change_dialog.h"
#include "data/edit_choice.h"
#include "data/text_number.h"
#include "link/command_list.h"
#include "link/port_settings.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

// The tables are shown anew at most this often, and never so often that showing them takes more than a small
// part of the time: painting after an insertion costs more the more rows there are.
constexpr int kRefreshMilliseconds = 50;
constexpr int kRefreshShare = 8;

// Looking for devices takes as long as half of the program's start; the window is shown first.
constexpr int kDevicesMilliseconds = 200;

QString Text(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

MainWindow::MainWindow(const MainWindowPorts& ports)
    : ports_(ports),
      settings_(ports.measurement.files, ports.program_folder, ports.system_writes_comma),
      document_(settings_.List()),
      measurement_(ports.measurement, document_, settings_.List(), ports.program_folder, *this),
      commands_(document_, settings_, measurement_, ports.measurement.files, ports.dialogs, *this,
                ports.program_folder),
      graph_(document_, settings_.List(), *this),
      grid1_model_(document_, colors_),
      grid2_model_(document_, colors_),
      grid4_model_(document_, colors_),
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
  command(menus_.mPrint, &MainWindow::mPrint_Click);
  command(menus_.mStatistics, &MainWindow::mStatistics_Click);
  command(menus_.mEnd, &MainWindow::mEnd_Click);
  command(menus_.mColor, &MainWindow::mColor_Click);
  command(menus_.mNum, &MainWindow::mNum_Click);
  command(menus_.mVisco, &MainWindow::mVisco_Click);
  command(menus_.mDefault, &MainWindow::mDefault_Click);
  connect(menus_.mRS, &QMenu::aboutToShow, this, &MainWindow::ShowDevices);
  connect(menus_.VDT.Menu(), &QMenu::aboutToShow, this,
          [this] { FillColumnMenu(menus_.VDT, document_.ViscoColumn()); });
  connect(menus_.TDT.Menu(), &QMenu::aboutToShow, this,
          [this] { FillColumnMenu(menus_.TDT, document_.TempColumn()); });
  connect(Command1, &QPushButton::clicked, this, &MainWindow::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &MainWindow::Command2_Click);
  connect(Combo1, &QComboBox::currentTextChanged, this, &MainWindow::Combo1_Change);
  connect(Check1, &QCheckBox::clicked, this, &MainWindow::Check1_Click);
  connect(Check5, &QCheckBox::clicked, this, &MainWindow::Check5_Click);
  connect(Text1, &QLineEdit::textEdited, this, &MainWindow::Text1_Change);
  connect(Text2, &QLineEdit::textEdited, this, &MainWindow::Text2_Change);
  connect(Grid1, &GridView::Grid_KeyDown, this, &MainWindow::Grid1_KeyDown);
  connect(Grid1, &GridView::Grid_DblClick, this, &MainWindow::Grid1_DblClick);
  connect(Picture1, &GraphPane::Label5_DblClick, this, &MainWindow::Label5_DblClick);
  connect(Picture1, &GraphPane::Label6_DblClick, this, &MainWindow::Label6_DblClick);
  connect(Picture1, &GraphPane::Label10_DblClick, this, &MainWindow::Label10_DblClick);
  connect(auto_scaling_[0], &QCheckBox::clicked, this, &MainWindow::Check2_Click);
  connect(auto_scaling_[1], &QCheckBox::clicked, this, &MainWindow::Check3_Click);
  connect(auto_scaling_[2], &QCheckBox::clicked, this, &MainWindow::Check4_Click);
  for (int i = 0; i < 3; ++i)
    connect(Option1[static_cast<std::size_t>(i)], &QRadioButton::clicked, this,
            [this, i] { Option1_Click(i); });
  for (QRadioButton* option : Option2)
    connect(option, &QRadioButton::clicked, this, &MainWindow::Option2_Click);
  connect(&refresh_, &QTimer::timeout, this, &MainWindow::Refresh);
  refresh_.setSingleShot(true);
}

void MainWindow::Form_Load() {
  for (const std::string& entry :
       link::LoadCommandList(ports_.measurement.files, ports_.program_folder + "/Command_V.txt")) {
    Combo1->addItem(Text(entry));
  }
  Combo1->setCurrentIndex(Combo1->count() - 1);
  Combo1_Change();
  settings_.LoadSettings();
  colors_ = graph::LoadColor(ports_.measurement.files, ColorFile());
  RestoreWindowState();
  for (int port = 1; port <= link::PortCount(settings_.List()); ++port)
    menus_.Port.Add(QString::number(port));
  ShowSettings();
  QTimer::singleShot(kDevicesMilliseconds, this, [this] {
    const std::string told = status_->text().toStdString();  // of a file that cannot be read, or of a start
    ShowDevices();
    if (!told.empty()) Say(told);
  });
  commands_.New();
}

void MainWindow::RestoreWindowState() {
  const auto text = ports_.measurement.files.Read(WindowFile());
  const auto state = text.ok() ? WindowState::Parse(text.value()) : std::nullopt;
  if (!state) return;
  restoreGeometry(state->geometry);
  halves_->RestorePosiLeft(state->posi_left);
}

void MainWindow::KeepWindowState() {
  ports_.measurement.files.Replace(WindowFile(), WindowState{saveGeometry(), halves_->PosiLeft()}.Text());
}

void MainWindow::RunAlone(const std::function<void()>& command) {
  if (busy_) return;
  busy_ = true;
  command();
  busy_ = false;
  if (std::exchange(close_wanted_, false))
    QMetaObject::invokeMethod(this, &MainWindow::mEnd_Click, Qt::QueuedConnection);
}

void MainWindow::Command1_Click() {
  RunAlone([this] {
    if (measurement_.Running()) return measurement_.Stop();
    settings_.SaveSettings();
    const auto failure = measurement_.Start();
    if (!failure)
      return Say(tr("Measuring on port %1").arg(ports_.measurement.MSComm1.CommPort()).toStdString());
    StateChanged();
    ports_.dialogs.Show({.text = "Can not Open !\rPlease Check Setting of Com Port !",
                         .buttons = platform::Buttons::kOk,
                         .icon = platform::Icon::kCritical});
    Say(failure->Text());
  });
}

void MainWindow::Command2_Click() { measurement_.SendCommand(measurement_.CommandData()); }

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
  settings_.List().Set(setting::kAutoStopMinutes,
                       data::GeneralText(data::C_Val(Text1->text().toStdString())));
}

void MainWindow::Text2_Change() {
  settings_.List().Set(setting::kRepeatSeconds, data::GeneralText(data::C_Val(Text2->text().toStdString())));
}

void MainWindow::Grid1_KeyDown(int KeyCode) {
  constexpr int kDeleteKey = 46;
  const GridSelection rows = Grid1->Selection();
  if (KeyCode != kDeleteKey ||
      !data::MayDelete(document_.Grid1(), rows.Row, rows.RowSel, rows.Col, rows.ColSel))
    return;
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
  Change(choice.caption, choice.text,
         [&](const std::string& text) { data::ApplyEdit(choice, text, document_); });
}

void MainWindow::Change(const std::string& caption, const std::string& text,
                        const std::function<void(const std::string&)>& take) {
  RunAlone([&] {
    data::ChangeDialog Form2(caption, text, this);
    if (const auto changed = Form2.Ask()) take(*changed);
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
  if (!ended) return;
  KeepWindowState();
  if (Form4) Form4->close();
  if (Form5) Form5->close();
  if (Form6) Form6->close();
}

// Picture1_OLEDragDrop and Picture2_OLEDragDrop: a file may fall on the graph or anywhere else in the window.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!event->mimeData()->hasUrls() || !event->possibleActions().testFlag(Qt::CopyAction) || busy_) return;
  event->setDropAction(Qt::CopyAction);  // never a move: that would let the file's owner delete it
  event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.first().isLocalFile()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const std::string path = urls.first().toLocalFile().toStdString();
  // The program that the file comes from waits for the drop to end; questions are asked after it.
  QMetaObject::invokeMethod(
      this, [this, path] { RunAlone([&] { commands_.Drop(path); }); }, Qt::QueuedConnection);
}

void MainWindow::Fig() {
  fig_waits_ = true;
  AskForRefresh();
}

void MainWindow::CaptionsChanged() { Picture1->LayoutLabels(); }

void MainWindow::DocumentReplaced() {
  Refresh();
  for (GridView* grid : {Grid1, Grid2, Grid4}) grid->scrollToTop();
}

void MainWindow::AskForRefresh() {
  if (!refresh_.isActive()) refresh_.start(kRefreshMilliseconds);
}

void MainWindow::Refresh() {
  const int cost = Grid1->Sync() + Grid2->Sync() + Grid4->Sync();
  grid4_model_.ShowLatest();
  if (std::exchange(fig_waits_, false)) {
    Picture1->Fig();
  } else {
    Picture1->ShowReadings();
  }
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
  // A button that is disabled loses the focus; whoever works by keyboard finds it where it was.
  had_focus_ = had_focus_ || (stopping && Command1->hasFocus());
  Command1->setEnabled(!stopping);
  Command2->setEnabled(running && !stopping);
  if (!stopping && std::exchange(had_focus_, false)) Command1->setFocus();
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
  for (const auto axis : {graph::Axis::Time, graph::Axis::Visco, graph::Axis::Temp})
    graph_.SetAutoScaling(axis, true);
  ShowScaling();
}

void MainWindow::ClearReceivedData() {
  HideForm3();
  last_line_.clear();
  line_waits_ = false;
  Text3->clear();
  Text3->setToolTip({});
}

}  // namespace quenlor::app
