// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPushButton>
#include <array>
#include <functional>

#include "graph/color_button.h"

namespace quenlor::graph {

// The palette: ten fixed colours of which one is chosen for one entry of the colour table. Its title is the
// caption of the entry's button. It tells its choice, closes and destroys itself; "Cancel", Escape and the
// close box tell nothing.
class PaletteWindow : public QDialog {
  Q_OBJECT

 public:
  using SetColor = std::function<void(int entry, Color color)>;

  PaletteWindow(int entry, const QString& caption, SetColor set_color, QWidget* parent);

 private:
  void BuildWindow();
  void ConnectHandlers();
  void Command1_Click(const ColorButton& button);

  int entry_;
  SetColor set_color_;
  std::array<ColorButton*, 11> Command1{};  // the colours, 1 to 10
  QPushButton* Command2;                    // "Cancel"
};

}  // namespace quenlor::graph
