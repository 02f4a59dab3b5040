// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

#include "graph/color_table.h"

namespace quenlor::graph {

// A push button that is a patch of one colour, with its caption readable on it.
//
// It paints itself, since most styles draw a button in the desktop's colours whatever its palette says.
// Focus, pointer and press show in every style, in light and dark themes, and on every colour.
class ColorButton : public QPushButton {
  Q_OBJECT

 public:
  // `name` and the colour's levels are what a screen reader says: "No.3, colour 0, 153, 255".
  ColorButton(const QString& caption, const QString& name, QWidget* parent);

  Color BackColor() const { return back_; }
  void SetBackColor(Color color);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  Color back_;
};

}  // namespace quenlor::graph
