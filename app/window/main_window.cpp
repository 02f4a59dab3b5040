// SPDX-License-Identifier: MIT
#include "app/window/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include "app/desk/version.h"
#include "app/window/frame.h"
#include "app/window/window_state.h"
#include "graph/color_window.h"
#include "platform/qt/exact_path.h"
#include "platform/qt/qt_busy_pointer.h"
#include "platform/qt/window_frame.h"

namespace quenlor::app {
namespace {

// Looking for devices takes as long as half of the program's start; the window is shown first.
constexpr int kDevicesMilliseconds = 200;

}  // namespace

MainWindow::MainWindow(const MainWindowPorts& ports)
    : refresh_([this](bool whole) { return ShowNews(whole); }, [this] { Picture1.LayoutLabels(); }, this),
      session_(ports.measurement.files, ports.place, ports.system_writes_comma, &refresh_),
      measurement_(ports.measurement, session_.Document(), session_.List(), ports.place.folder),
      status_(session_, measurement_, ports.measurement.clock, ports.name_of_port),
      documents_(session_, measurement_, ports.dialogs, *this),
      vigil_(measurement_, status_, ports.desktop, [this] { return isActiveWindow(); }),
      status_line_(*new StatusLine(status_, statusBar())),
      progress_(*new ProgressBar(statusBar())),
      menus_(*new Menus(menuBar(), session_, measurement_, {ports.look_for_devices, ports.name_of_port},
                        status_)),
      panel_(*new MeasurePanel(session_, measurement_, ports.dialogs, commands_, status_, progress_, this)),
      choices_(*new GraphChoices(session_, this)),
      value_(*new CurrentValue(session_, this)),
      announcer_(*new Announcer(measurement_, value_, status_line_.Message(), this)),
      tables_(*new TablesPane(session_, panel_.ReceivedData(), this)),
      Picture1(*new graph::GraphPane(session_.Document(), session_.Graph(), session_.List(),
                                     session_.Colors(), this)),
      halves_(*new graph::TableAndGraph(&tables_, &Picture1, this)),
      edits_(
          session_, measurement_, ports.dialogs, commands_, status_, [this] { choices_.ShowChoices(); },
          this),
      pictures_(session_, ports.dialogs, status_),
      reports_(
          session_,
          {ports.printer, ports.clipboard, ports.dialogs, ports.measurement.loop,
           ports.system_writes_comma ? ',' : '.'},
          [this] { return Picture1.Settings(); }, this) {
  BuildWindow();
  ConnectHandlers();
  AddShortcuts();
  session_.Document().AddListener(refresh_);
  measurement_.AddListener(refresh_);
  Form_Load();
}

// The parts are told of changes as long as they live, so they go before what they follow.
MainWindow::~MainWindow() {
  session_.Document().RemoveListener(refresh_);
  measurement_.RemoveListener(refresh_);
  delete &announcer_;
  delete takeCentralWidget();
  delete &menus_;
}

void MainWindow::BuildWindow() {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QString::fromStdString(WindowCaption(ThisVersion())));
  setAcceptDrops(true);
  auto* centre = new QWidget(this);
  auto* controls = new QHBoxLayout;
  controls->setContentsMargins(0, 0, graph::posi::kRightOfGraph / static_cast<int>(platform::kTwipsPerPixel),
                               0);
  controls->setSpacing(kSpacing);
  controls->addWidget(&panel_);
  controls->addWidget(&choices_);
  controls->addWidget(&value_, 1);
  auto* layout = new QVBoxLayout(centre);
  layout->setContentsMargins(kEdge, 2, 0, kSpacing);  // the graph keeps its own distance on the right
  layout->setSpacing(kSpacing);
  layout->addLayout(controls);
  layout->addWidget(&halves_, 1);
  constexpr QSize kLeastHalves(420, 180);  // below that captions and rows would be crushed
  halves_.setMinimumSize(kLeastHalves);
  setCentralWidget(centre);
  statusBar()->addPermanentWidget(&progress_);
  progress_.hide();
  progress_.KeepQuiet(&halves_);
  // With its frame it is to fit the screen, which is small where everything is shown enlarged.
  constexpr QSize kUsual(1200, 760);
  resize(kUsual.boundedTo(platform::qt::RoomFor(*this)));
}

void MainWindow::ConnectHandlers() {
  connect(&menus_, &Menus::FileMenuOpens, this, [this] { menus_.ShowRecent(documents_.Recent()); });
  connect(&menus_, &Menus::Recent_Click, this,
          [this](const std::string& path) { commands_.Run([&] { documents_.OpenRecent(path); }); });
  connect(menus_.mHelp, &QAction::triggered, this, &MainWindow::ShowGuide);
  connect(menus_.mAbout, &QAction::triggered, this,
          [this] { QMessageBox::about(this, tr("About Quenlor"), AboutText()); });
  connect(menus_.mNew, &QAction::triggered, this, &MainWindow::mNew_Click);
  connect(menus_.mOpen, &QAction::triggered, this, &MainWindow::mOpen_Click);
  connect(menus_.mAppend, &QAction::triggered, this, &MainWindow::mAppend_Click);
  connect(menus_.mSave, &QAction::triggered, this, &MainWindow::mSave_Click);
  connect(menus_.mPrint, &QAction::triggered, this, &MainWindow::mPrint_Click);
  connect(menus_.mStatistics, &QAction::triggered, this, &MainWindow::mStatistics_Click);
  connect(menus_.mEnd, &QAction::triggered, this, &MainWindow::mEnd_Click);
  connect(menus_.mColor, &QAction::triggered, this, &MainWindow::mColor_Click);
  connect(&menus_, &Menus::LineChosen, this, &MainWindow::ShowLineWidth);
  connect(&menus_, &Menus::Range_Click, this, [this](int Index) { edits_.Label5_DblClick(Index); });
  const platform::qt::GridView* Grid1 = tables_.Measurement();
  connect(Grid1, &platform::qt::GridView::Grid_KeyDown, this,
          [this, Grid1](int KeyCode) { edits_.Grid1_KeyDown(*Grid1, KeyCode); });
  connect(Grid1, &platform::qt::GridView::Grid_DblClick, this,
          [this, Grid1] { edits_.Grid1_DblClick(*Grid1); });
  connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    platform::qt::GridView& grid = *tables_.Measurement();
    edits_.ShowTableMenu(grid, grid.viewport()->mapToGlobal(at));
  });
  connect(&Picture1, &graph::GraphPane::ReadingChosen, &tables_, &TablesPane::ShowRow);
  connect(&tables_, &TablesPane::RowsSelected, &Picture1, &graph::GraphPane::MarkRows);
  connect(&Picture1, &graph::GraphPane::ViewMoved, &choices_, &GraphChoices::ShowChoices);
  connect(&Picture1, &graph::GraphPane::MenuWanted, this, &MainWindow::ShowGraphMenu);
  connect(&Picture1, &graph::GraphPane::Label5_DblClick, this,
          [this](int Index) { edits_.Label5_DblClick(Index); });
  connect(&Picture1, &graph::GraphPane::Label6_DblClick, this,
          [this](int Index) { edits_.Label6_DblClick(Index); });
  connect(&Picture1, &graph::GraphPane::Label10_DblClick, this,
          [this](int Index) { edits_.Label10_DblClick(Index); });
}

// Keys beside those of the menus; each does what a click would.
void MainWindow::AddShortcuts() {
  const auto on = [this](const QKeySequence& keys, const auto& what) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, what);
  };
  on(Qt::Key_F5, [this] { panel_.PressStart(); });
  on(Qt::Key_F6, [this] { panel_.PressCommand(); });
  for (int kind = 0; kind < 3; ++kind)
    on(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + kind)),
       [this, kind] { choices_.ChooseKind(kind); });
  on(Qt::CTRL | Qt::Key_L, [this] { menus_.ToggleLog(); });
  on(QKeySequence::Undo, [this] { edits_.Undo(); });
  on(QKeySequence::Redo, [this] { edits_.Redo(); });
}

void MainWindow::Form_Load() {
  panel_.LoadCommandList();
  RestoreWindow(session_.Files(), session_.File(kWindowFile), *this, halves_);
  menus_.AddPorts();
  ShowChoices();
  QTimer::singleShot(kDevicesMilliseconds, this, [this] {
    const std::string told = status_.Said();  // of a file that cannot be read, or of a start
    menus_.ShowDevices();
    if (!told.empty()) {
      if (told != status_.Said()) Say(told + "; " + status_.Said());
    } else if (status_.Said().empty()) {
      OfferReadingsLeft();
    }
  });
  documents_.New();
  session_.OnTrouble([this](const std::string& trouble) { Say(trouble); });
}

void MainWindow::OpenFile(const std::string& path) {
  const std::string told = status_.Said();  // of files that could not be read at the start
  commands_.Run([&] { documents_.ReadDataFile(path); });
  if (!told.empty()) Say(status_.Said() + "; " + told);
}

void MainWindow::ShowGuide() {
  if (!guide_) guide_ = new GuideWindow(this);
  guide_->show();
  guide_->raise();
  guide_->activateWindow();
}

void MainWindow::ShowGraphMenu(const QPoint& at, int run) {
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("GraphMenu"));
  if (run > 0) {
    menu.addAction(tr("Sample &Name..."), this, [this, run] { edits_.Label10_DblClick(run); });
    QAction* hide = menu.addAction(tr("&Hide Others"), this,
                                   [this, run](bool hidden) { Picture1.ShowAlone(hidden ? run : 0); });
    hide->setCheckable(true);
    hide->setChecked(Picture1.Alone() == run);
    menu.addSeparator();
  }
  menu.addAction(tr("&Copy Picture"), this, [this] { pictures_.CopyPicture(Picture1); });
  menu.addAction(tr("&Save Picture..."), this,
                 [this] { commands_.Run([this] { pictures_.SavePicture(Picture1); }); });
  menu.addSeparator();
  menu.addAction(tr("&Whole Range"), this, [this] { choices_.ShowWholeRange(); });
  menu.exec(at);
}

// Of a crash, or of somebody who did not save.
void MainWindow::OfferReadingsLeft() {
  const auto left = documents_.ReadingsLeft();
  if (!left) return;
  const std::string path = left->path;
  status_line_.Offer(
      left->text, tr("Open"), [this, path] { commands_.Run([&] { documents_.OpenRecent(path); }); },
      [this, path] { documents_.Dismiss(path); });
}

void MainWindow::mNew_Click() {
  commands_.Run([this] { documents_.New(); });
}

void MainWindow::mOpen_Click() {
  commands_.Run([this] { documents_.Open(); });
}

void MainWindow::mAppend_Click() {
  commands_.Run([this] { documents_.Append(); });
}

void MainWindow::mSave_Click() {
  commands_.Run([this] { documents_.Save(); });
}

void MainWindow::mPrint_Click() {
  commands_.Run([this] { reports_.mPrint_Click(); });
}

void MainWindow::mStatistics_Click() { reports_.mStatistics_Click(); }

void MainWindow::mColor_Click() {
  const auto take = [this](const graph::ColorSettings& chosen) {
    session_.SetColors(chosen);
    tables_.ChangeColor();
  };
  if (!Form6) Form6 = new graph::ColorWindow(session_.Colors(), Picture1.Settings().LineWidth, take, this);
  Form6->show();
  Form6->raise();
  Form6->activateWindow();
}

void MainWindow::ShowLineWidth() {
  if (Form6) Form6->SetLineWidth(Picture1.Settings().LineWidth);
}

// The close box, "End" and the desktop's own ways of closing all end the program by the same road.
void MainWindow::closeEvent(QCloseEvent* event) {
  if (commands_.Busy()) {
    commands_.Afterwards(
        [this] { QMetaObject::invokeMethod(this, &MainWindow::mEnd_Click, Qt::QueuedConnection); });
    return event->ignore();
  }
  bool ended = false;
  commands_.Run([&] { ended = documents_.ExitProgram(); });
  event->setAccepted(ended);
  if (!ended) return;
  if (const auto failed = KeepWindow(session_.Files(), session_.File(kWindowFile), *this, halves_))
    Say(failed->text);
  for (QWidget* small : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (small->isWindow()) small->close();
  }
}

void MainWindow::EndNow() {
  measurement_.StopWithoutWait();
  KeepWindow(session_.Files(), session_.File(kWindowFile), *this, halves_);
}

// Picture1_OLEDragDrop and Picture2_OLEDragDrop: a file may fall on the graph or anywhere else in the window.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const bool copies = event->possibleActions().testFlag(Qt::CopyAction);
  if (!event->mimeData()->hasUrls() || !copies || commands_.Busy()) return;
  event->setDropAction(Qt::CopyAction);  // never a move: that would let the file's owner delete it
  event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.first().isLocalFile()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const std::string path = platform::qt::PathOf(urls.first());
  // The program that the file comes from waits for the drop to end; questions are asked after it.
  QMetaObject::invokeMethod(
      this, [this, path] { commands_.Run([&] { documents_.Drop(path); }); }, Qt::QueuedConnection);
}

int MainWindow::ShowNews(bool whole) {
  tables_.ShowHint(!measurement_.Running());
  const int milliseconds = tables_.Sync();
  if (whole) {
    Picture1.Fig();
  } else {
    Picture1.ShowReadings();
  }
  panel_.ShowLine();
  value_.ShowNewest();
  announcer_.TellReading(value_.Spoken());
  return milliseconds;
}

void MainWindow::Busy(bool busy) {
  platform::qt::ShowBusyPointer(busy);
  if (!busy) progress_.Done();
}

void MainWindow::ShowChoices() {
  menus_.ShowChoices();
  panel_.ShowChoices();
  choices_.ShowChoices();
  ShowLineWidth();
}

void MainWindow::ClearReceivedData() {
  reports_.HideForm3();
  panel_.ClearReceivedData();
}

}  // namespace quenlor::app
