// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "data/document.h"
#include "graph/color_settings.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {

// A grid of the document. Texts have the colours of their runs; one that could not be read stands on a plate.
//
// Nothing is copied. Rows that arrive are shown at the next Sync, many at once: a view's work after an
// insertion is the same for one row and for a thousand.
class GridModel : public platform::qt::GridTable, protected data::DocumentListener {
  Q_OBJECT

 public:
  GridModel(data::Document& document, const graph::ColorSettings& colors, QObject* parent);
  ~GridModel() override;

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : shown_rows_; }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : shown_cols_;
  }
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  QString CornerTitle() const override { return Text(0, 0); }
  bool Sync() override;

  void ColorsChanged();
  void SetBase(const QColor& base);  // the ground that the view paints, white before it is told

 protected:
  virtual data::Document::Row TableRows() const = 0;
  virtual int TableCols() const = 0;
  virtual std::string_view TableText(data::Document::Row row, int col) const = 0;
  // The run whose colour a row has, if it has one.
  virtual std::optional<long long> RunOfRow(data::Document::Row row) const = 0;
  virtual bool TextsInRunColor() const { return true; }

  QString Text(data::Document::Row row, int col) const {
    return platform::qt::ToShortQString(TableText(row, col));
  }
  void ShowAll();  // in the constructor of the last class, when the table can be asked
  const data::Document& Document() const { return document_; }

  void RowsAboutToBeRemoved(Row first, Row last) override;
  void RowsRemoved(Row first, Row last) override;
  void RowsAboutToBeRestored(Row first, Row last) override;
  void RowsRestored(Row first, Row last) override;
  void CellChanged(Row row, int col) override;
  void ColumnsChanged() override;
  void DocumentReplaced() override;

 private:
  data::Document& document_;
  const graph::ColorSettings& colors_;
  graph::Color base_ = graph::kWhite;
  int shown_rows_ = 0;
  int shown_cols_ = 0;
};

// The measurement table.
class Grid1Model : public GridModel {
 public:
  Grid1Model(data::Document& document, const graph::ColorSettings& colors, QObject* parent = nullptr)
      : GridModel(document, colors, parent) {
    ShowAll();
  }

 protected:
  data::Document::Row TableRows() const override { return Document().Grid1().Rows(); }
  int TableCols() const override { return Document().Grid1().Cols(); }
  std::string_view TableText(data::Document::Row row, int col) const override;
  std::optional<long long> RunOfRow(data::Document::Row row) const override;
};

// The display table: run number, time, and the columns chosen as viscosity and temperature.
class Grid2Model : public Grid1Model {
 public:
  Grid2Model(data::Document& document, const graph::ColorSettings& colors, QObject* parent = nullptr)
      : Grid1Model(document, colors, parent) {
    ShowAll();
  }

 protected:
  int TableCols() const override { return 4; }
  std::string_view TableText(data::Document::Row row, int col) const override;
};

// The run information table.
class Grid4Model : public GridModel {
 public:
  Grid4Model(data::Document& document, const graph::ColorSettings& colors, QObject* parent = nullptr)
      : GridModel(document, colors, parent) {
    ShowAll();
  }

 protected:
  data::Document::Row TableRows() const override { return Document().Grid4().Rows(); }
  int TableCols() const override { return Document().Grid4().Cols(); }
  std::string_view TableText(data::Document::Row row, int col) const override;
  std::optional<long long> RunOfRow(data::Document::Row row) const override { return row; }
  bool TextsInRunColor() const override { return false; }
  void RowsAboutToBeRemoved(Row, Row) override {}
  void RowsRemoved(Row, Row) override {}
  void RowsAboutToBeRestored(Row, Row) override {}
  void RowsRestored(Row, Row) override {}
  void CellChanged(Row, int) override {}
  void RunsChanged() override;
  void ReadingAppended(Row) override { latest_changed_ = true; }

 public:
  // The latest run's times change with every reading; they are shown anew once a tick.
  void ShowLatest();

 private:
  bool latest_changed_ = false;
};

}  // namespace quenlor::app
