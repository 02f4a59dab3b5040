// SPDX-License-Identifier: MIT
#include "app/window/measure_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "app/window/named.h"
#include "data/text_number.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using platform::qt::ToQString;

}  // namespace

MeasurePanel::MeasurePanel(Session& session, link::Measurement& measurement, platform::Dialogs& dialogs,
                           OneAtATime& commands, StatusLine& status, QWidget* parent)
    : QWidget(parent),
      session_(session),
      measurement_(measurement),
      dialogs_(dialogs),
      commands_(commands),
      status_(status) {
  BuildButtons();
  BuildReceivedData();
  ConnectHandlers();
  measurement_.AddListener(*this);
}

MeasurePanel::~MeasurePanel() { measurement_.RemoveListener(*this); }

void MeasurePanel::ConnectHandlers() {
  connect(Command1, &QPushButton::clicked, this, &MeasurePanel::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &MeasurePanel::Command2_Click);
  connect(Combo1, &QComboBox::currentTextChanged, this, &MeasurePanel::Combo1_Change);
  connect(Check1, &QCheckBox::toggled, this, &MeasurePanel::Check1_Click);
  connect(Check5, &QCheckBox::toggled, this, &MeasurePanel::Check5_Click);
  connect(Text1, &QLineEdit::textChanged, this, &MeasurePanel::Text1_Change);
  connect(Text2, &QLineEdit::textChanged, this, &MeasurePanel::Text2_Change);
}

void MeasurePanel::LoadCommandList() {
  command_list_ = link::LoadCommandList(session_.Files(), session_.File("Command_V.txt"));
  for (const std::string& entry : command_list_.Entries()) Combo1->addItem(ToQString(entry));
  Combo1->setCurrentIndex(Combo1->count() - 1);
  Combo1_Change();
}

void MeasurePanel::Command1_Click() {
  commands_.Run([this] {
    if (measurement_.Running()) return measurement_.Stop();
    session_.Settings().SaveSettings();
    const auto failure = measurement_.Start();
    if (!failure) return status_.Say(tr("Measuring on port %1").arg(measurement_.CommPort()).toStdString());
    StateChanged();
    dialogs_.Show({.text = "Can not Open !\rPlease Check Setting of Com Port !",
                   .buttons = platform::Buttons::kOk,
                   .icon = platform::Icon::kCritical});
    status_.Say(failure->Text());
  });
}

void MeasurePanel::Command2_Click() { measurement_.SendCommand(measurement_.CommandData()); }

void MeasurePanel::Combo1_Change() {
  measurement_.SetCommandData(command_list_.BytesOf(Combo1->currentText().toStdString()));
}

void MeasurePanel::Check1_Click() {
  session_.List().Set(setting::kRepeat, Check1->isChecked() ? 1 : 0);
  session_.Settings().SaveSettings();
  measurement_.RepeatChanged();
}

void MeasurePanel::Check5_Click() {
  session_.List().Set(setting::kAutoStop, Check5->isChecked() ? 1 : 0);
  session_.Settings().SaveSettings();
}

void MeasurePanel::Text1_Change() {
  session_.List().Set(setting::kAutoStopMinutes, data::GeneralText(data::C_Val(Text1->text().toStdString())));
}

void MeasurePanel::Text2_Change() {
  session_.List().Set(setting::kRepeatSeconds, data::GeneralText(data::C_Val(Text2->text().toStdString())));
}

void MeasurePanel::ShowChoices() {
  const data::SettingsList& list = session_.List();
  const QSignalBlocker quiet[] = {QSignalBlocker(Check1), QSignalBlocker(Check5), QSignalBlocker(Text1),
                                  QSignalBlocker(Text2)};
  Check1->setChecked(list.Index(setting::kRepeat) == 1);
  Check5->setChecked(list.Index(setting::kAutoStop) == 1);
  Text2->setText(ToQString(list[setting::kRepeatSeconds]));
  Text1->setText(ToQString(list[setting::kAutoStopMinutes]));
}

void MeasurePanel::StateChanged() {
  const bool running = measurement_.Running();
  const bool stopping = measurement_.Stopping();
  Command1->setText(running ? QStringLiteral("Stop") : QStringLiteral("Start"));
  // A button that is disabled loses the focus, and the box beside it would take whatever is typed. Whoever
  // works by keyboard finds it where it was.
  if (stopping && Command1->hasFocus()) {
    had_focus_ = true;
    setFocus();
  }
  Command1->setEnabled(!stopping);
  Command2->setEnabled(running && !stopping);
  if (!stopping && std::exchange(had_focus_, false)) Command1->setFocus();
  if (!running) status_.Say({});
}

void MeasurePanel::LineReceived(const std::string& line) {
  last_line_ = line;
  line_waits_ = true;
}

void MeasurePanel::ErrorLine(const std::string& line) {
  if (!Form5) Form5 = new link::ErrorWindow(window());
  Form5->AppendLine(ToQString(line));
  if (!Form5->isVisible()) Form5->show();
}

void MeasurePanel::Told(const std::string& text) { status_.Say(text); }

void MeasurePanel::ShowLine() {
  if (!std::exchange(line_waits_, false)) return;
  Text3->setText(ToQString(last_line_));
  Text3->setCursorPosition(0);
  Text3->setToolTip(platform::qt::PlainTip(ToQString(last_line_)));
}

void MeasurePanel::ClearReceivedData() {
  last_line_.clear();
  line_waits_ = false;
  Text3->clear();
  Text3->setToolTip({});
}

void MeasurePanel::BuildButtons() {
  Command1 = Named(new QPushButton(QStringLiteral("Start"), this), "Command1", QString(),
                   tr("Opens the port and begins a measurement, or ends it"));
  Command2 = Named(new QPushButton(QStringLiteral("Command"), this), "Command2", QString(),
                   tr("Sends the command to the instrument, while a measurement runs"));
  Combo1 = Named(new QComboBox(this), "Combo1", tr("Command Data"),
                 tr("The command for the button, for Start and for repeat requests; any text may be typed"));
  Combo1->setEditable(true);
  Combo1->setInsertPolicy(QComboBox::NoInsert);
  Combo1->setCompleter(nullptr);  // what is typed is what is sent
  auto* label = new QLabel(QStringLiteral("Command &Data"), this);
  label->setBuddy(Combo1);
  Command2->setEnabled(false);
  Combo1->setAcceptDrops(false);  // files dropped on the window are documents, wherever they fall
  Combo1->lineEdit()->setAcceptDrops(false);
  Command1->setFocus();

  auto* button_row = new QHBoxLayout;
  button_row->addWidget(Command1);
  button_row->addWidget(Command2);
  auto* command_row = new QHBoxLayout;
  command_row->addWidget(label);
  command_row->addWidget(Combo1, 1);
  auto* buttons = new QVBoxLayout;
  buttons->addLayout(button_row);
  buttons->addLayout(command_row);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(buttons);
  layout->addWidget(BuildRepeatFrame());
}

QGroupBox* MeasurePanel::BuildRepeatFrame() {
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

void MeasurePanel::BuildReceivedData() {
  received_ = new QWidget(this);
  Text3 = Named(new QLineEdit(received_), "Text3", tr("Received Data"), QString());
  Text3->setReadOnly(true);
  Text3->setAcceptDrops(false);
  auto* label = new QLabel(tr("Recei&ved Data"), received_);
  label->setBuddy(Text3);
  auto* layout = new QVBoxLayout(received_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(Text3);
}

}  // namespace quenlor::app
