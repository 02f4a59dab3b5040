// SPDX-License-Identifier: MIT
#include "app/window/graph_choices.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/window/frame.h"
#include "app/window/named.h"

namespace quenlor::app {

using graph::Axis;

namespace {
constexpr int kWideScreen = 130;  // letters that the frames want side by side
}

GraphChoices::GraphChoices(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(kSpacing);
  layout->addWidget(BuildAutoScalingFrame());
  layout->addWidget(BuildSelectionFrame());
  ConnectHandlers();
}

void GraphChoices::ConnectHandlers() {
  connect(Check2, &QCheckBox::toggled, this, &GraphChoices::Check2_Click);
  connect(Check3, &QCheckBox::toggled, this, &GraphChoices::Check3_Click);
  connect(Check4, &QCheckBox::toggled, this, &GraphChoices::Check4_Click);
  for (int i = 0; i < 3; ++i) {
    connect(Option1[static_cast<std::size_t>(i)], &QRadioButton::toggled, this, [this, i](bool chosen) {
      if (chosen) Option1_Click(i);
    });
  }
  for (QRadioButton* option : Option2) {
    connect(option, &QRadioButton::toggled, this, [this](bool chosen) {
      if (chosen) Option2_Click();
    });
  }
}

void GraphChoices::Check2_Click() {
  session_.Graph().SetAutoScaling(Axis::Time, Check2->isChecked());
  session_.Settings().SaveSettings();
}

void GraphChoices::Check3_Click() {
  session_.Graph().SetAutoScaling(Axis::Visco, Check3->isChecked());
  ShowChoices();
  session_.Settings().SaveSettings();
}

void GraphChoices::Check4_Click() {
  session_.Graph().SetAutoScaling(Axis::Temp, Check4->isChecked());
  session_.Settings().SaveSettings();
}

void GraphChoices::Option1_Click(int Index) {
  session_.Graph().SetKind(static_cast<graph::GraphKind>(Index));
  session_.Settings().SaveSettings();
}

void GraphChoices::Option2_Click() {
  session_.Graph().SetFine(Option2[1]->isChecked());
  session_.Settings().SaveSettings();
}

void GraphChoices::ShowWholeRange() {
  session_.Graph().ShowWhole();
  ShowChoices();
}

// "Standard" and "Fine" count only for a viscosity axis that scales by itself.
void GraphChoices::ShowChoices() {
  const graph::AutoScaling& scaling = session_.Graph().Scaling();
  const QSignalBlocker quiet[] = {QSignalBlocker(Check2), QSignalBlocker(Check3), QSignalBlocker(Check4)};
  Check2->setChecked(scaling.Check2);
  Check3->setChecked(scaling.Check3);
  Check4->setChecked(scaling.Check4);
  for (QRadioButton* option : Option2) option->setEnabled(scaling.Check3);
}

QGroupBox* GraphChoices::BuildAutoScalingFrame() {
  QGroupBox* frame = NewFrame("Frame1", QStringLiteral("Auto-Scaling"), this);
  auto* layout = new QGridLayout;
  const auto box = [&](const char* name, const QString& caption, int row) {
    auto* made =
        Named(new QCheckBox(caption, frame), name, caption, tr("The range of this axis follows the data"));
    layout->addWidget(made, row, 0);
    return made;
  };
  Check2 = box("Check2", QStringLiteral("Time"), 0);
  Check3 = box("Check3", QStringLiteral("Viscosity"), 1);
  Check4 = box("Check4", QStringLiteral("Temp"), 2);
  const std::array fineness = {QStringLiteral("Standard"), QStringLiteral("Fine")};
  auto* group = new QButtonGroup(frame);
  const bool wide = screen()->availableSize().width() > kWideScreen * fontMetrics().averageCharWidth();
  for (std::size_t i = 0; i < Option2.size(); ++i) {
    Option2[i] = new QRadioButton(fineness[i], frame);
    Option2[i]->setObjectName(QStringLiteral("Option2[%1]").arg(i));
    Option2[i]->setToolTip(i == 0 ? tr("The viscosity axis starts at zero where it can")
                                  : tr("The viscosity axis shows what the data span"));
    group->addButton(Option2[i]);
    // One below the other where the screen is narrow for the row of frames.
    if (wide) {
      layout->addWidget(Option2[i], 1, static_cast<int>(i) + 1);
    } else {
      layout->addWidget(Option2[i], static_cast<int>(i), 1);
    }
  }
  Option2[1]->setChecked(true);
  SetFrameLayout(frame, layout);
  return frame;
}

QGroupBox* GraphChoices::BuildSelectionFrame() {
  QGroupBox* frame = NewFrame("Frame2", QStringLiteral("Selection"), this);
  auto* layout = new QVBoxLayout;
  const std::array captions = {QStringLiteral("Visco / Time"), QStringLiteral("Visco / Time , Temp / Time"),
                               QStringLiteral("Visco / Temp")};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    Option1[i] = new QRadioButton(captions[i], frame);
    Option1[i]->setObjectName(QStringLiteral("Option1[%1]").arg(i));
    Option1[i]->setToolTip(tr("Which graphs are drawn (Ctrl+%1)").arg(i + 1));
    Option1[i]->setChecked(i == 0);
    layout->addWidget(Option1[i]);
  }
  SetFrameLayout(frame, layout);
  return frame;
}

}  // namespace quenlor::app
