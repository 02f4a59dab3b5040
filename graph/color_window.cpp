// SPDX-License-Identifier: MIT
#include "graph/color_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace quenlor::graph {
namespace {

// Where a small window stands beside another without covering it; on top of it where the screen has no room.
QPoint Beside(const QWidget& window, const QSize& small) {
  const QRect frame = window.frameGeometry();
  const QRect screen = window.screen()->availableGeometry();
  constexpr int kGap = 8;
  const int right = frame.right() + kGap;
  if (right + small.width() <= screen.right()) return {right, frame.top()};
  return {std::max(frame.left() - kGap - small.width(), screen.left()), frame.top()};
}

}  // namespace

ColorWindow::ColorWindow(const ColorSettings& current, int line_width, Take take, QWidget* parent)
    : QDialog(parent),
      take_(std::move(take)),
      Command1(new QPushButton(tr("&Reset"), this)),
      Command2(new QPushButton(tr("&OK"), this)),
      Command3(new QPushButton(tr("&Cancel"), this)) {
  setObjectName(QStringLiteral("Form6"));
  setWindowTitle(tr("Color"));
  setAttribute(Qt::WA_DeleteOnClose);
  BuildWindow();
  SetLineWidth(line_width);
  for (int i = 0; i < 10; ++i) SetColor(i, RunColor(current.Colors(), i));
  SelectScheme(current.BackScheme());
  ConnectHandlers();
}

void ColorWindow::BuildWindow() {
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setToolTip(tr("Shows the ten colours and the background that the program came with"));
  Command2->setObjectName(QStringLiteral("Command2"));
  Command2->setToolTip(tr("Takes the colours over and keeps them"));
  Command2->setDefault(true);
  Command3->setObjectName(QStringLiteral("Command3"));
  Command3->setToolTip(tr("Leaves everything as it is"));

  auto* layout = new QHBoxLayout(this);
  layout->addWidget(BuildEntries());
  auto* right = new QVBoxLayout;
  layout->addLayout(right);
  right->addWidget(BuildBackFrame());
  right->addStretch(1);
  for (QPushButton* button : {Command1, Command2, Command3}) right->addWidget(button);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  QWidget* last = Option1[1];
  for (QPushButton* button : {Command1, Command2, Command3}) {
    setTabOrder(last, button);
    last = button;
  }
  Command4[1]->setFocus();
}

QWidget* ColorWindow::BuildEntries() {
  auto* entries = new QWidget(this);
  auto* layout = new QGridLayout(entries);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(tr("Line"), entries), 0, 1, Qt::AlignHCenter);
  for (int number = 1; number <= 10; ++number) {
    const int index = number % 10;
    const QString name = QStringLiteral("No.%1").arg(number);
    // Alt and the last digit: "No.&1" ... "No.1&0".
    const QString caption = QString(name).insert(name.size() - 1, u'&');
    auto*& button = Command4[static_cast<std::size_t>(index)];
    button = new ColorButton(caption, name, entries);
    button->setObjectName(QStringLiteral("Command4[%1]").arg(index));
    button->setToolTip(
        tr("Chooses the colour of the runs %1, %2, %3 …").arg(number).arg(number + 10).arg(number + 20));
    auto*& line = Line1[static_cast<std::size_t>(index)];
    line = new SampleLine(entries);
    line->setObjectName(QStringLiteral("Line1[%1]").arg(index));
    line->setAccessibleName(tr("Line of %1").arg(name));
    line->setToolTip(tr("What the line will look like in the graph"));
    layout->addWidget(button, number, 0);
    layout->addWidget(line, number, 1);
  }
  return entries;
}

QWidget* ColorWindow::BuildBackFrame() {
  auto* frame = new QGroupBox(tr("Back Color"), this);
  frame->setObjectName(QStringLiteral("Frame1"));
  const std::array captions = {tr(" &White"), tr(" &Black")};
  const std::array tips = {tr("A white graph with black grid and labels"),
                           tr("A black graph with white grid and labels")};
  auto* layout = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < Option1.size(); ++i) {
    Option1[i] = new QRadioButton(captions[i], frame);
    Option1[i]->setObjectName(QStringLiteral("Option1[%1]").arg(i));
    Option1[i]->setToolTip(tips[i]);
    layout->addWidget(Option1[i]);
  }
  return frame;
}

void ColorWindow::ConnectHandlers() {
  connect(Command1, &QPushButton::clicked, this, &ColorWindow::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &ColorWindow::Command2_Click);
  connect(Command3, &QPushButton::clicked, this, &QDialog::reject);
  for (int i = 0; i < 10; ++i) {
    connect(Command4[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
            [this, i] { Command4_Click(i); });
  }
  connect(Option1[0], &QRadioButton::toggled, this, &ColorWindow::Option1_Click);
}

void ColorWindow::SetColor(int index, Color color) {
  const auto place = static_cast<std::size_t>(index);
  Command4[place]->SetBackColor(color);
  Line1[place]->SetLineColor(color);
}

void ColorWindow::SetLineWidth(int line_width) {
  for (SampleLine* line : Line1) line->SetLineWidth(line_width);
}

void ColorWindow::SelectScheme(Scheme scheme) {
  Option1[scheme == Scheme::White ? 0 : 1]->setChecked(true);
  Option1_Click();
}

void ColorWindow::done(int result) {
  if (Form7) Form7->close();
  QDialog::done(result);
}

void ColorWindow::Command1_Click() {
  for (int i = 0; i < 10; ++i) SetColor(i, RunColor(kDefaultColors, i));
  SelectScheme(Scheme::White);
}

void ColorWindow::Command2_Click() {
  ColorTable colors;
  for (std::size_t i = 0; i < colors.size(); ++i) colors[i] = Line1[i]->LineColor();
  take_(ColorSettings(colors, SelectedScheme()));
  accept();
}

void ColorWindow::Command4_Click(int index) {
  if (Form7) Form7->close();
  const QString caption = Command4[static_cast<std::size_t>(index)]->text().remove(u'&');
  Form7 = new PaletteWindow(
      index, caption, [this](int entry, Color color) { SetColor(entry, color); }, this);
  Form7->move(Beside(*this, Form7->sizeHint()));
  Form7->show();
}

void ColorWindow::Option1_Click() {
  const Color back = ColorSettings({}, SelectedScheme()).BackColor();
  for (SampleLine* line : Line1) line->SetBackColor(back);
}

}  // namespace quenlor::graph
