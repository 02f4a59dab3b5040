// SPDX-License-Identifier: MIT
#include "graph/palette_window.h"

#include <QGridLayout>

namespace quenlor::graph {
namespace {

constexpr int kColumns = 5;

}  // namespace

PaletteWindow::PaletteWindow(int entry, const QString& caption, SetColor set_color, QWidget* parent)
    : QDialog(parent),
      entry_(entry),
      set_color_(std::move(set_color)),
      Command2(new QPushButton(tr("&Cancel"), this)) {
  setObjectName(QStringLiteral("Form7"));
  setWindowTitle(caption);
  setAttribute(Qt::WA_DeleteOnClose);
  BuildWindow();
  ConnectHandlers();
}

void PaletteWindow::BuildWindow() {
  // Said beside the levels of the colour, for those who do not see it.
  const std::array names = {tr("Red"),      tr("Green"), tr("Blue"), tr("Violet"), tr("Orange"),
                            tr("Dark red"), tr("Cyan"),  tr("Lime"), tr("Yellow"), tr("Pink")};
  auto* layout = new QGridLayout(this);
  for (int k = 1; k <= 10; ++k) {
    const QString& name = names[static_cast<std::size_t>(k - 1)];
    auto*& button = Command1[static_cast<std::size_t>(k)];
    button = new ColorButton(QString(), name, this);
    button->setObjectName(QStringLiteral("Command1[%1]").arg(k));
    button->setToolTip(name);
    button->SetBackColor(RunColor(kDefaultColors, k));
    button->setMinimumHeight(fontMetrics().height() * 5 / 2);
    layout->addWidget(button, (k - 1) / kColumns, (k - 1) % kColumns);
    if (k > 1) setTabOrder(Command1[static_cast<std::size_t>(k - 1)], button);
  }
  Command2->setObjectName(QStringLiteral("Command2"));
  Command2->setToolTip(tr("Leaves the colour as it is"));
  layout->addWidget(Command2, 10 / kColumns, 0, 1, kColumns, Qt::AlignHCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  setTabOrder(Command1.back(), Command2);
  Command1[1]->setFocus();
}

void PaletteWindow::ConnectHandlers() {
  for (ColorButton* button : Command1) {
    if (button) connect(button, &QPushButton::clicked, this, [this, button] { Command1_Click(*button); });
  }
  connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
}

void PaletteWindow::Command1_Click(const ColorButton& button) {
  set_color_(entry_, button.BackColor());
  accept();
}

}  // namespace quenlor::graph
