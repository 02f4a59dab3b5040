// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

#include "graph/color_table.h"
#include "graph/label_layout.h"

namespace quenlor::graph {

// A caption of the graph: its text is whole; what is shown of it is what it has room for.
//
// One that can be changed is so by a double click, by Enter, F2 or Space while it has the focus, and by
// assistive technology, which hears what it stands for.
class Caption : public QLabel {
  Q_OBJECT

 public:
  explicit Caption(QWidget* parent);

  void Place(const PlacedLabel& placed, Color ground);

  // Makes it one that can be changed.
  void MayBeChanged(const QString& what);
  const QString& What() const { return what_; }

 signals:
  void DblClick();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  PlacedLabel placed_;
  Color ground_;
  QString what_;
};

}  // namespace quenlor::graph
