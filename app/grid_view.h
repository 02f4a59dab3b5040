// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTableView>

#include "app/window/grid_models.h"

namespace quenlor::app {

// What is selected, in rows and columns of the table: from (Row, Col) to (RowSel, ColSel), smaller numbers
// first. Row is 0 when nothing is selected.
struct GridSelection {
  data::Document::Row Row = 0;
  data::Document::Row RowSel = 0;
  int Col = 0;
  int ColSel = 0;
};

// A grid on the screen. Its vertical header is column 0 of the table: a click there selects the rest
// of the row.
class GridView : public QTableView {
  Q_OBJECT

 public:
  GridView(GridModel* model, const QString& name, const QString& title, QWidget* parent);

  // Shows what has arrived, with the newest row in view; selection and current cell stay. Columns are
  // widened to new texts and never narrowed. Returns how long the work took, in milliseconds, to keep the
  // next one apart.
  int Sync();

  GridSelection Selection() const;

 signals:
  void Grid_KeyDown(int key_code);
  void Grid_DblClick();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FitColumnWidth(int column, int width);
  void FitNewRows(int first);
  void FitTitles();

  GridModel* model_;
  QWidget* corner_ = nullptr;
};

}  // namespace quenlor::app
