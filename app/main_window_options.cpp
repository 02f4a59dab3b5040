// SPDX-License-Identifier: MIT
// The main window's choices: menus of one checked item, the frames beside the graph, and the values that are
// edited by hand.

#include <algorithm>

#include "app/main_window.h"
#include "data/header_values.h"
#include "data/text_number.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

QString Text(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

void MainWindow::Label5_DblClick(int Index) {
  const auto at = static_cast<std::size_t>(Index);
  Change(std::string(graph::kLimitNames[at]), graph_.Labels().Label5[at], [&](const std::string& text) {
    graph_.EnterLimit(static_cast<graph::Limit>(Index), text);
    ShowScaling();
  });
}

void MainWindow::Label6_DblClick(int Index) {
  if (Index == 4) {
    Change("File Name", document_.FileName(),
           [this](const std::string& text) { document_.SetFileName(data::FileNameFrom(text)); });
  } else if (Index == 6) {
    Change("Remarks", document_.Remarks(),
           [this](const std::string& text) { document_.SetRemarks(data::RemarksFrom(text)); });
  }
}

void MainWindow::Label10_DblClick(int Index) {
  if (Index < 1 || Index >= document_.Grid4().Rows()) return;
  Change("Sample Name", std::string(document_.Grid4().TextMatrix(Index, 1)),
         [&](const std::string& text) { document_.SetSampleName(Index, text); });
}

void MainWindow::Check2_Click() {
  graph_.SetAutoScaling(graph::Axis::Time, auto_scaling_[0]->isChecked());
  settings_.SaveSettings();
}

void MainWindow::Check3_Click() {
  graph_.SetAutoScaling(graph::Axis::Visco, auto_scaling_[1]->isChecked());
  ShowScaling();
  settings_.SaveSettings();
}

void MainWindow::Check4_Click() {
  graph_.SetAutoScaling(graph::Axis::Temp, auto_scaling_[2]->isChecked());
  settings_.SaveSettings();
}

void MainWindow::Option1_Click(int Index) {
  graph_.SetKind(static_cast<graph::GraphKind>(Index));
  settings_.SaveSettings();
}

void MainWindow::Option2_Click() {
  graph_.SetFine(Option2[1]->isChecked());
  settings_.SaveSettings();
}

// The boxes as the graph has them; "Standard" and "Fine" count only for a viscosity axis that
// scales by itself.
void MainWindow::ShowScaling() {
  const graph::AutoScaling& scaling = graph_.Scaling();
  auto_scaling_[0]->setChecked(scaling.Check2);
  auto_scaling_[1]->setChecked(scaling.Check3);
  auto_scaling_[2]->setChecked(scaling.Check4);
  for (QRadioButton* option : Option2) option->setEnabled(scaling.Check3);
}

void MainWindow::Option_Click(int element, OptionGroup& group, int Index) {
  group.Check(Index);
  settings_.List().Set(element, Index);
  settings_.SaveSettings();
}

void MainWindow::LW_Click(int Index) {
  Option_Click(setting::kLW, menus_.LW, Index);
  SettingsApplied();
  graph_.LookChanged();
}

void MainWindow::SettingsApplied() {
  ShowSettings();
  if (Form6) Form6->SetLineWidth(Picture1->Settings().LineWidth);
}

void MainWindow::MK_Click(int Index) {
  Option_Click(setting::kMK, menus_.MK, Index);
  graph_.LookChanged();
}

void MainWindow::TimeS_Click(int Index) {
  Option_Click(setting::kTimeS, menus_.TimeS, Index);
  graph_.TimeScaleChanged();
}

void MainWindow::mLog_Click(int Index) {
  Option_Click(setting::kLog, menus_.mLog, Index);
  graph_.ViscoAxisChanged();
}

void MainWindow::mColor_Click() {
  const auto take = [this](const graph::ColorSettings& chosen) {
    colors_ = chosen;
    graph::SaveColor(ports_.measurement.files, ColorFile(), colors_);
    ChangeColor();
  };
  if (!Form6) Form6 = new graph::ColorWindow(colors_, Picture1->Settings().LineWidth, take, this);
  Form6->show();
  Form6->raise();
  Form6->activateWindow();
}

void MainWindow::ChangeColor() {
  grid1_model_.ColorsChanged();
  grid2_model_.ColorsChanged();
  grid4_model_.ColorsChanged();
  graph_.LookChanged();
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
  TellOfUnreachableDevice();
}

// A device whose number has no item could never be chosen, and nobody would know why.
void MainWindow::TellOfUnreachableDevice() {
  constexpr int kMostNumbers = 256;
  for (int port = menus_.Port.Last() + 1; port <= kMostNumbers; ++port) {
    const std::string device = ports_.name_of_port(port);
    if (device.empty()) continue;
    return Say(tr("Port %1 (%2) lies beyond the Com Port menu; the first line of quenlor.ini is the number "
                  "of its items")
                   .arg(port)
                   .arg(Text(device))
                   .toStdString());
  }
}

MenuHandlers MainWindow::MenuAnswers() {
  return {.Port_Click = [this](int Index) { Option_Click(setting::kPort, menus_.Port, Index); },
          .BPS_Click = [this](int Index) { Option_Click(setting::kBPS, menus_.BPS, Index); },
          .Parity_Click = [this](int Index) { Option_Click(setting::kParity, menus_.Parity, Index); },
          .Length_Click = [this](int Index) { Option_Click(setting::kLength, menus_.Length, Index); },
          .Bit_Click = [this](int Index) { Option_Click(setting::kBit, menus_.Bit, Index); },
          .Term_Click = [this](int Index) { Option_Click(setting::kTerm, menus_.Term, Index); },
          .LW_Click = [this](int Index) { LW_Click(Index); },
          .MK_Click = [this](int Index) { MK_Click(Index); },
          .TimeS_Click = [this](int Index) { TimeS_Click(Index); },
          .mLog_Click = [this](int Index) { mLog_Click(Index); },
          .DP_Click = [this](int Index) { DP_Click(Index); },
          .VDT_Click = [this](int Index) { VDT_Click(Index); },
          .TDT_Click = [this](int Index) { TDT_Click(Index); },
          .Range_Click = [this](int Index) { Label5_DblClick(Index); }};
}

}  // namespace quenlor::app
