// SPDX-License-Identifier: MIT
#include "app/window/measure_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/window/frame.h"
#include "app/window/named.h"
#include "data/text_number.h"
#include "graph/readable_color.h"
#include "graph/screen_color.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using platform::qt::ToQString;

constexpr double kButtonContrast = 9;  // of a word to its button

}  // namespace

MeasurePanel::MeasurePanel(Session& session, link::Measurement& measurement, platform::Dialogs& dialogs,
                           OneAtATime& commands, Status& status, ProgressBar& progress, QWidget* parent)
    : QWidget(parent),
      session_(session),
      measurement_(measurement),
      dialogs_(dialogs),
      commands_(commands),
      status_(status),
      progress_(progress) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(kSpacing);
  layout->addWidget(BuildMeasureFrame());
  layout->addWidget(BuildRepeatFrame());
  BuildReceivedData();
  ShowSign();
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
  command_list_ = link::LoadCommandList({session_.Files(), session_.File("Command_V.txt"),
                                         [this](const std::string& trouble) { session_.Tell(trouble); }});
  for (const std::string& entry : command_list_.Entries()) Combo1->addItem(ToQString(entry));
  Combo1->setCurrentIndex(Combo1->count() - 1);
  Combo1_Change();
}

void MeasurePanel::Command1_Click() {
  commands_.Run([this] {
    if (measurement_.Running()) return measurement_.Stop();
    const auto not_kept = session_.Settings().SaveSettings();
    const auto failure = measurement_.Start([this](double part) {
      progress_.TellAndAnswer("Writing the raw log", part);
      return true;
    });
    progress_.Done();
    if (!failure) {
      if (not_kept) status_.Say(not_kept->text);
      return;
    }
    StateChanged();
    status_.StartRefused(*failure);
    dialogs_.Show({.text = "Can not Open !\rPlease Check Setting of Com Port !",
                   .buttons = platform::Buttons::kOk,
                   .icon = platform::Icon::kCritical});
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
  ShowSign();
  // A button that is disabled loses the focus, and the box beside it would take whatever is typed. Whoever
  // works by keyboard finds it where it was.
  if (stopping && Command1->hasFocus()) {
    had_focus_ = true;
    setFocus();
  }
  Command1->setEnabled(!stopping);
  Command2->setEnabled(running && !stopping);
  if (!stopping && std::exchange(had_focus_, false)) Command1->setFocus();
}

void MeasurePanel::LineReceived(const std::string& line) {
  last_line_ = line;
  line_waits_ = true;
}

void MeasurePanel::ErrorLine(const std::string& line) {
  if (!Form5) Form5 = new link::ErrorWindow(window());
  Form5->AppendLine(ToQString(line));
  Form5->ComeUp();
}

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

QGroupBox* MeasurePanel::BuildMeasureFrame() {
  QGroupBox* frame = NewFrame("Measure", QString(), this);
  Command1 = Named(new QPushButton(QStringLiteral("Start"), frame), "Command1", QString(),
                   tr("Opens the port and begins a measurement, or ends it (F5)"));
  Command2 = Named(new QPushButton(QStringLiteral("Command"), frame), "Command2", QString(),
                   tr("Sends the command to the instrument, while a measurement runs (F6)"));
  Combo1 = Named(new QComboBox(frame), "Combo1", tr("Command Data"),
                 tr("The command for the button, for Start and for repeat requests; any text may be typed"));
  Combo1->setEditable(true);
  Combo1->setInsertPolicy(QComboBox::NoInsert);
  Combo1->setCompleter(nullptr);  // what is typed is what is sent
  auto* label = new QLabel(QStringLiteral("Command &Data"), frame);
  label->setBuddy(Combo1);
  Command2->setEnabled(false);
  Combo1->setAcceptDrops(false);  // files dropped on the window are documents, wherever they fall
  Combo1->lineEdit()->setAcceptDrops(false);
  Combo1->lineEdit()->setAccessibleName(Combo1->accessibleName());  // whoever types is told where
  Combo1->setMinimumWidth(fontMetrics().averageCharWidth() * 13);

  // What the eye finds first. The buttons of Windows' own theme take no colours.
  if (style()->name().startsWith(QStringLiteral("windows"))) {
    QStyle* own = QStyleFactory::create(QStringLiteral("fusion"));
    own->setParent(Command1);
    Command1->setStyle(own);
  }
  Command1->setDefault(true);
  Command1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Command1->setMinimumWidth(fontMetrics().averageCharWidth() * 13);
  Command1->setFocus();

  auto* layout = new QGridLayout;
  layout->addWidget(Command1, 0, 0, 3, 1);
  layout->addWidget(label, 0, 1);
  layout->addWidget(Combo1, 1, 1);
  layout->addWidget(Command2, 2, 1);
  SetFrameLayout(frame, layout);
  return frame;
}

// A sign besides the word, in the button's own colours.
void MeasurePanel::ShowSign() {
  QFont bold = font();
  bold.setBold(true);
  Command1->setFont(bold);
  QPalette colors = palette();
  const QColor word = Qt::white;
  QColor ground = palette().color(QPalette::Active, QPalette::Highlight);
  // Styles lighten a button's upper half.
  while (graph::Contrast(graph::ToColor(ground), graph::ToColor(word)) < kButtonContrast)
    ground = ground.darker(110);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    colors.setColor(group, QPalette::Button, ground);
    colors.setColor(group, QPalette::ButtonText, word);
  }
  Command1->setPalette(colors);
  const int size = fontMetrics().height() * 3 / 4;
  Command1->setIconSize({size, size});
  QIcon sign;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
    const auto group = mode == QIcon::Normal ? QPalette::Active : QPalette::Disabled;
    for (const int scale : {1, 2, 3}) {
      QPixmap picture(QSize(size, size) * scale);
      picture.fill(Qt::transparent);
      QPainter painter(&picture);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(Qt::NoPen);
      painter.setBrush(colors.color(group, QPalette::ButtonText));
      painter.scale(size * scale / 12.0, size * scale / 12.0);
      if (measurement_.Running()) {
        painter.drawRect(2, 2, 8, 8);
      } else {
        painter.drawPolygon(QPolygonF({{2, 1}, {11, 6}, {2, 11}}));
      }
      painter.end();
      picture.setDevicePixelRatio(scale);
      sign.addPixmap(picture, mode);
    }
  }
  Command1->setIcon(sign);
  // Also where letters are narrow and bold ones are not; never less, so that nothing moves at Start.
  Command1->setMinimumWidth(std::max(Command1->minimumWidth(), Command1->sizeHint().width()));
}

void MeasurePanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool look = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
  if (look && Command1 != nullptr) ShowSign();
}

QGroupBox* MeasurePanel::BuildRepeatFrame() {
  QGroupBox* frame = NewFrame("Frame3", QStringLiteral("Repeat/Auto Stop"), this);
  Check1 = Named(new QCheckBox(QStringLiteral("Re&peat"), frame), "Check1", QStringLiteral("Repeat"),
                 tr("Sends the command again and again while a measurement runs"));
  Text2 = Named(new QLineEdit(frame), "Text2", tr("Repeat interval in seconds"),
                tr("Seconds between two requests"));
  Check5 = Named(new QCheckBox(QStringLiteral("&Auto Stop"), frame), "Check5", QStringLiteral("Auto Stop"),
                 tr("Ends the measurement after the set time; works together with Repeat"));
  Text1 = Named(new QLineEdit(frame), "Text1", tr("Auto stop after minutes"),
                tr("Minutes from the first reading of a run to its end"));
  auto* layout = new QGridLayout;
  const auto row = [&](int at, QCheckBox* box, QLineEdit* text, const QString& unit) {
    text->setAcceptDrops(false);
    text->setFixedWidth(fontMetrics().averageCharWidth() * 8);
    layout->addWidget(box, at, 0);
    layout->addWidget(text, at, 1);
    layout->addWidget(new QLabel(unit, frame), at, 2);
  };
  row(0, Check1, Text2, tr("sec"));
  row(1, Check5, Text1, tr("min"));
  SetFrameLayout(frame, layout);
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
