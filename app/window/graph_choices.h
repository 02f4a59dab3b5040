// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <array>

#include "app/desk/session.h"

namespace quenlor::app {

// The frames "Auto-Scaling" and "Selection": which axes follow the data, and which graphs are drawn.
class GraphChoices : public QWidget {
  Q_OBJECT

 public:
  GraphChoices(Session& session, QWidget* parent);

  // The boxes as the graph has them.
  void ShowChoices();

  void ShowWholeRange();  // all three axes follow the data
  void ChooseKind(int Index) { Option1[static_cast<std::size_t>(Index)]->click(); }

 private:
  void Check2_Click();            // "Time"
  void Check3_Click();            // "Viscosity"
  void Check4_Click();            // "Temp"
  void Option1_Click(int Index);  // "Selection"
  void Option2_Click();           // "Standard" / "Fine"
  void ConnectHandlers();

  QGroupBox* BuildAutoScalingFrame();
  QGroupBox* BuildSelectionFrame();

  Session& session_;
  QCheckBox* Check2 = nullptr;
  QCheckBox* Check3 = nullptr;
  QCheckBox* Check4 = nullptr;
  std::array<QRadioButton*, 3> Option1{};  // the kinds of graph
  std::array<QRadioButton*, 2> Option2{};  // "Standard", "Fine"
};

}  // namespace quenlor::app
