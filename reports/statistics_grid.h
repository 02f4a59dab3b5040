// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>
#include <algorithm>
#include <limits>
#include <memory>

#include "data/utf8.h"
#include "reports/statistics.h"

namespace quenlor::reports {

inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Cell (r, c) of the model is (r + 1, c + 1) of the table, whose first row and column are the headers.
class StatisticsModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetTable(std::shared_ptr<const StatisticsTable> table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    if (parent.isValid() || table_ == nullptr) return 0;
    constexpr StatisticsTable::Row kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(table_->Rows() - 1, kMost));
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || table_ == nullptr ? 0 : table_->Cols() - 1;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    return Text(index.row() + 1, index.column() + 1);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? Text(0, section + 1) : Text(section + 1, 0);
  }
  // A view lays out all of a text to show its first inch.
  QString Text(StatisticsTable::Row row, int col) const {
    constexpr std::size_t kMostBytes = 1000;
    return table_ == nullptr ? QString()
                             : ToQString(data::Utf8Prefix(table_->TextMatrix(row, col), kMostBytes));
  }

 private:
  std::shared_ptr<const StatisticsTable> table_;
};

// A grid whose corner between the headers carries the title of column 0.
class StatisticsGrid : public QTableView {
 public:
  using QTableView::QTableView;

  void ShowInCorner(const QString& title) {
    corner_title_ = title;
    if (corner_ == nullptr) {
      corner_ = findChild<QAbstractButton*>();
      if (corner_ != nullptr) corner_->installEventFilter(this);
    }
    if (corner_ != nullptr) corner_->update();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != corner_ || event->type() != QEvent::Paint) return QTableView::eventFilter(watched, event);
    QPainter painter(corner_);
    QStyleOptionHeader option;
    option.initFrom(corner_);
    option.rect = corner_->rect();
    option.text = corner_title_;
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.orientation = Qt::Horizontal;
    option.section = 0;
    corner_->style()->drawControl(QStyle::CE_Header, &option, &painter, corner_);
    return true;
  }

 private:
  QAbstractButton* corner_ = nullptr;
  QString corner_title_;
};

}  // namespace quenlor::reports
