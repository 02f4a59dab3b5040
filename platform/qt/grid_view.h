// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <cstdint>

namespace quenlor::platform::qt {

// What a grid shows: a table whose row 0 and column 0 are the headers of the view, so that cell (r, c) of the
// model is (r + 1, c + 1) of the table.
class GridTable : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  // The title of column 0, for the corner between the headers.
  virtual QString CornerTitle() const = 0;

  // Shows what has arrived since the last call; true when rows were added.
  virtual bool Sync() { return false; }
};

// What is selected, in rows and columns of the table: from (Row, Col) to (RowSel, ColSel), smaller numbers
// first. Row is 0 when nothing is selected.
struct GridSelection {
  std::int64_t Row = 0;
  std::int64_t RowSel = 0;
  int Col = 0;
  int ColSel = 0;
};

// A grid on the screen, to be looked at and selected in. Its vertical header is column 0 of the table, each
// section in the colours that the model has for it: a click there selects the rest of the row.
//
// Columns are widened to the texts of the titles and of new rows, to a third of the view at most, and never
// narrowed. Ctrl+C copies the selected block, cells divided by tabs.
class GridView : public QTableView {
  Q_OBJECT

 public:
  static constexpr int kWidestColumn = 4000;  // pixels; of one text nobody reads more

  GridView(GridTable* table, const QString& name, const QString& title, QWidget* parent);

  // Shows what has arrived, with the newest row in view; selection and current cell stay. Returns how long
  // the work took, in milliseconds, to keep the next one apart.
  int Sync();

  GridSelection Selection() const;
  void Copy() const;  // the selected block, to the clipboard

  // What stands in the grid, pale, as long as it has no row but the entry row.
  void SetHint(const QString& hint);

 signals:
  void Grid_KeyDown(int key_code);  // 46, the delete key
  void Grid_DblClick();             // or F2 or Enter

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void PaintCorner();
  QString SelectedText() const;
  int WidestFit() const;
  void FitColumnWidth(int column, int width);
  void FitNewRows(int first);
  void FitTitles();

  GridTable* table_;
  QWidget* corner_ = nullptr;
  QString hint_;
  bool fitted_ = false;  // to the width that it is shown with
};

}  // namespace quenlor::platform::qt
