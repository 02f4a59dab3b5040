// SPDX-License-Identifier: MIT
// Where the main window's controls stand, and what they tell about themselves.

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStatusBar>
#include <QVBoxLayout>

#include "app/main_window.h"
#include "app/version.h"

namespace quenlor::app {
namespace {

template <class Widget>
Widget* Named(Widget* widget, const char* name, const QString& accessible, const QString& tip) {
  widget->setObjectName(QString::fromLatin1(name));
  widget->setAccessibleName(accessible);
  widget->setToolTip(tip);
  return widget;
}

}  // namespace

void MainWindow::BuildWindow() {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QString::fromStdString(WindowCaption(ThisVersion())));
  setAcceptDrops(true);

  auto* centre = new QWidget(this);
  auto* layout = new QVBoxLayout(centre);
  layout->addWidget(BuildControls());
  Picture1 = new GraphPane(document_, graph_, settings_.List(), colors_, centre);
  halves_ = new TableAndGraph(BuildTables(), Picture1, centre);
  layout->addWidget(halves_, 1);
  setCentralWidget(centre);
  status_ = new QLabel(this);
  status_->setObjectName(QStringLiteral("Status"));
  status_->setTextFormat(Qt::PlainText);
  status_->setTextInteractionFlags(Qt::TextSelectableByMouse);  // a command in it is there to be copied
  status_->setFocusPolicy(Qt::NoFocus);
  status_->setMinimumWidth(1);
  statusBar()->addWidget(status_, 1);
  resize(1200, 760);
}

QWidget* MainWindow::BuildControls() {
  auto* controls = new QWidget(this);
  Command1 =
      Named(new QPushButton(QStringLiteral("Start"), controls), "Command1",
            tr("Start or stop the measurement"), tr("Opens the port and begins a measurement, or ends it"));
  Command2 = Named(new QPushButton(QStringLiteral("Command"), controls), "Command2", tr("Send the command"),
                   tr("Sends the command to the instrument, while a measurement runs"));
  Combo1 = Named(new QComboBox(controls), "Combo1", tr("Command Data"),
                 tr("The command for the button, for Start and for repeat requests; any text may be typed"));
  Combo1->setEditable(true);
  Combo1->setInsertPolicy(QComboBox::NoInsert);
  Combo1->setCompleter(nullptr);  // what is typed is what is sent
  auto* label = new QLabel(QStringLiteral("Command &Data"), controls);
  label->setBuddy(Combo1);
  Command2->setEnabled(false);
  Combo1->setAcceptDrops(false);  // files dropped on the window are documents, wherever they fall
  Combo1->lineEdit()->setAcceptDrops(false);
  Command1->setFocus();

  auto* command_row = new QHBoxLayout;
  command_row->addWidget(label);
  command_row->addWidget(Combo1, 1);
  auto* buttons = new QVBoxLayout;
  auto* button_row = new QHBoxLayout;
  button_row->addWidget(Command1);
  button_row->addWidget(Command2);
  buttons->addLayout(button_row);
  buttons->addLayout(command_row);

  auto* layout = new QHBoxLayout(controls);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(buttons);
  layout->addWidget(BuildRepeatFrame());
  layout->addWidget(BuildAutoScalingFrame());
  layout->addWidget(BuildSelectionFrame());
  layout->addStretch(1);
  return controls;
}

QGroupBox* MainWindow::BuildRepeatFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Repeat/Auto Stop"), this);
  frame->setObjectName(QStringLiteral("Frame3"));
  Check1 = Named(new QCheckBox(QStringLiteral("Re&peat"), frame), "Check1", QStringLiteral("Repeat"),
                 tr("Sends the command again and again while a measurement runs"));
  Text2 = Named(new QLineEdit(frame), "Text2", tr("Repeat interval in seconds"),
                tr("Seconds between two requests"));
  Check5 = Named(new QCheckBox(QStringLiteral("&Auto Stop"), frame), "Check5", QStringLiteral("Auto Stop"),
                 tr("Ends the measurement after the set time; works together with Repeat"));
  Text1 = Named(new QLineEdit(frame), "Text1", tr("Auto stop after minutes"),
                tr("Minutes from the first reading of a run to its end"));
  auto* layout = new QGridLayout(frame);
  const auto row = [&](int at, QCheckBox* box, QLineEdit* text, const QString& unit) {
    text->setAcceptDrops(false);
    text->setMaximumWidth(fontMetrics().averageCharWidth() * 9);
    layout->addWidget(box, at, 0);
    layout->addWidget(text, at, 1);
    layout->addWidget(new QLabel(unit, frame), at, 2);
  };
  row(0, Check1, Text2, tr("sec"));
  row(1, Check5, Text1, tr("min"));
  return frame;
}

QGroupBox* MainWindow::BuildAutoScalingFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Auto-Scaling"), this);
  frame->setObjectName(QStringLiteral("Frame1"));
  auto* layout = new QGridLayout(frame);
  static constexpr std::array kNames = {"Check2", "Check3", "Check4"};
  const std::array captions = {QStringLiteral("Time"), QStringLiteral("Viscosity"), QStringLiteral("Temp")};
  for (std::size_t i = 0; i < auto_scaling_.size(); ++i) {
    auto_scaling_[i] = Named(new QCheckBox(captions[i], frame), kNames[i], captions[i],
                             tr("The range of this axis follows the data"));
    layout->addWidget(auto_scaling_[i], static_cast<int>(i % 2), static_cast<int>(i / 2));
  }
  const std::array fineness = {QStringLiteral("Standard"), QStringLiteral("Fine")};
  auto* group = new QButtonGroup(frame);
  for (std::size_t i = 0; i < Option2.size(); ++i) {
    Option2[i] = new QRadioButton(fineness[i], frame);
    Option2[i]->setObjectName(QStringLiteral("Option2[%1]").arg(i));
    Option2[i]->setToolTip(i == 0 ? tr("The viscosity axis starts at zero where it can")
                                  : tr("The viscosity axis shows what the data span"));
    group->addButton(Option2[i]);
    layout->addWidget(Option2[i], static_cast<int>(i), 2);
  }
  Option2[1]->setChecked(true);
  return frame;
}

QGroupBox* MainWindow::BuildSelectionFrame() {
  auto* frame = new QGroupBox(QStringLiteral("Selection"), this);
  frame->setObjectName(QStringLiteral("Frame2"));
  auto* layout = new QVBoxLayout(frame);
  const std::array captions = {QStringLiteral("Visco / Time"), QStringLiteral("Visco / Time , Temp / Time"),
                               QStringLiteral("Visco / Temp")};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    Option1[i] = new QRadioButton(captions[i], frame);
    Option1[i]->setObjectName(QStringLiteral("Option1[%1]").arg(i));
    Option1[i]->setToolTip(tr("Which graphs are drawn"));
    Option1[i]->setChecked(i == 0);
    layout->addWidget(Option1[i]);
  }
  return frame;
}

QWidget* MainWindow::BuildTables() {
  auto* pane = new QWidget(this);
  Text3 = Named(new QLineEdit(pane), "Text3", tr("Received Data"), QString());
  Text3->setReadOnly(true);
  Text3->setAcceptDrops(false);
  auto* received = new QLabel(tr("Recei&ved Data"), pane);
  received->setBuddy(Text3);
  tabs_ = new QTabWidget(pane);
  tabs_->setObjectName(QStringLiteral("Tables"));
  Grid1 = new GridView(&grid1_model_, QStringLiteral("Grid1"), tr("Measurement table"), tabs_);
  Grid2 = new GridView(&grid2_model_, QStringLiteral("Grid2"), tr("Display table"), tabs_);
  Grid4 = new GridView(&grid4_model_, QStringLiteral("Grid4"), tr("Run information table"), tabs_);
  Grid1->setToolTip(
      tr("Every reading. Del deletes whole rows; a double click edits while no measurement runs"));
  tabs_->addTab(Grid1, tr("&Measurement"));
  tabs_->addTab(Grid2, tr("Displa&y"));
  tabs_->addTab(Grid4, tr("R&uns"));

  auto* layout = new QVBoxLayout(pane);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(received);
  layout->addWidget(Text3);
  layout->addWidget(tabs_, 1);
  return pane;
}

}  // namespace quenlor::app
