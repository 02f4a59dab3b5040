// SPDX-License-Identifier: MIT
#include "app/window/grid_models.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "data/text_number.h"
#include "graph/readable_color.h"
#include "graph/screen_color.h"

namespace quenlor::app {

using graph::ToQColor;

namespace {

int ToCount(data::Document::Row rows) {
  return static_cast<int>(std::min<data::Document::Row>(rows, std::numeric_limits<int>::max()));
}

// Figures and times stand on the right, so that their places stand below each other.
Qt::Alignment SideOf(std::string_view text) {
  const bool figure = !text.empty() && text.find_first_not_of("0123456789+-.,:eE ") == std::string_view::npos;
  return (figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

GridModel::GridModel(data::Document& document, const graph::ColorSettings& colors, QObject* parent)
    : GridTable(parent), document_(document), colors_(colors) {
  document_.AddListener(*this);
}

GridModel::~GridModel() { document_.RemoveListener(*this); }

void GridModel::ShowAll() {
  shown_rows_ = ToCount(TableRows() - 1);
  shown_cols_ = std::max(TableCols() - 1, 0);
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const data::Document::Row row = index.row() + 1;
  if (role == Qt::DisplayRole) return Text(row, index.column() + 1);
  if (role == Qt::TextAlignmentRole) return QVariant(SideOf(TableText(row, index.column() + 1)));
  if ((role != Qt::ForegroundRole && role != Qt::BackgroundRole) || !TextsInRunColor()) return {};
  const auto run = RunOfRow(row);
  if (!run) return {};
  const graph::Color color = graph::RunColor(colors_.Colors(), *run);
  if (role == Qt::ForegroundRole) return ToQColor(color);
  return graph::CanBeRead(color, base_) ? QVariant() : ToQColor(graph::PlateBehind(color));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (section < 0 || section >= (orientation == Qt::Horizontal ? shown_cols_ : shown_rows_)) return {};
  if (orientation == Qt::Horizontal) {
    if (role == Qt::TextAlignmentRole) return QVariant(SideOf(TableText(1, section + 1)));
    return role == Qt::DisplayRole ? QVariant(Text(0, section + 1)) : QVariant();
  }

  const data::Document::Row row = section + 1;
  if (role == Qt::DisplayRole) return Text(row, 0);
  if (role != Qt::BackgroundRole && role != Qt::ForegroundRole) return {};
  const auto run = RunOfRow(row);
  if (!run) return {};
  const graph::Color color = graph::RunColor(colors_.Colors(), *run);
  return ToQColor(role == Qt::BackgroundRole ? color : graph::ReadableOn(color));
}

bool GridModel::Sync() {
  const int rows = ToCount(TableRows() - 1);
  if (rows <= shown_rows_) return false;
  // What was the entry row is a reading now.
  const int was_entry = shown_rows_ - 1;
  beginInsertRows({}, shown_rows_, rows - 1);
  shown_rows_ = rows;
  endInsertRows();
  if (was_entry >= 0) {
    emit dataChanged(index(was_entry, 0), index(was_entry, shown_cols_ - 1));
    emit headerDataChanged(Qt::Vertical, was_entry, was_entry);
    if (was_entry == 0)
      emit headerDataChanged(Qt::Horizontal, 0, shown_cols_ - 1);  // titles stand as texts do
  }
  return true;
}

// Rows that are still to be shown are shown first, so that what the view drops is what the table drops.
void GridModel::RowsAboutToBeRemoved(Row first, Row last) {
  Sync();
  beginRemoveRows({}, static_cast<int>(first) - 1, static_cast<int>(last) - 1);
}

void GridModel::RowsRemoved(Row first, Row last) {
  shown_rows_ -= static_cast<int>(last - first) + 1;
  endRemoveRows();
}

void GridModel::RowsAboutToBeRestored(Row first, Row last) {
  Sync();
  beginInsertRows({}, static_cast<int>(first) - 1, static_cast<int>(last) - 1);
}

void GridModel::RowsRestored(Row first, Row last) {
  shown_rows_ += static_cast<int>(last - first) + 1;
  endInsertRows();
  if (first == 1) emit headerDataChanged(Qt::Horizontal, 0, shown_cols_ - 1);  // titles stand as texts do
}

void GridModel::CellChanged(Row row, int /*col*/) {
  const int changed = static_cast<int>(row) - 1;
  if (changed < 0 || changed >= shown_rows_ || shown_cols_ == 0) return;
  emit dataChanged(index(changed, 0), index(changed, shown_cols_ - 1));
  emit headerDataChanged(Qt::Vertical, changed, changed);
}

void GridModel::ColumnsChanged() {
  const int cols = std::max(TableCols() - 1, 0);
  if (cols > shown_cols_) {
    beginInsertColumns({}, shown_cols_, cols - 1);
    shown_cols_ = cols;
    endInsertColumns();
  }
  if (shown_cols_ == 0) return;
  emit headerDataChanged(Qt::Horizontal, 0, shown_cols_ - 1);
  if (shown_rows_ > 0) emit dataChanged(index(0, 0), index(shown_rows_ - 1, shown_cols_ - 1));
}

void GridModel::ColorsChanged() {
  if (shown_rows_ == 0 || shown_cols_ == 0) return;
  emit dataChanged(index(0, 0), index(shown_rows_ - 1, shown_cols_ - 1),
                   {Qt::ForegroundRole, Qt::BackgroundRole});
  emit headerDataChanged(Qt::Vertical, 0, shown_rows_ - 1);
}

void GridModel::SetBase(const QColor& base) {
  if (std::exchange(base_, graph::ToColor(base)) != base_) ColorsChanged();
}

void GridModel::DocumentReplaced() {
  beginResetModel();
  ShowAll();
  endResetModel();
}

std::string_view Grid1Model::TableText(data::Document::Row row, int col) const {
  return Document().Grid1().TextMatrix(row, col);
}

// Every row whose number is numeric has a colour, and the one that its curve has.
std::optional<long long> Grid1Model::RunOfRow(data::Document::Row row) const {
  const std::string_view number = Document().Grid1().TextMatrix(row, 0);
  if (!data::LeadingNumber(number)) return std::nullopt;
  return data::RunNumber(number);
}

std::string_view Grid2Model::TableText(data::Document::Row row, int col) const {
  static constexpr std::string_view kTitles[] = {"No.", "Time", "Visco", "Temp"};
  if (row == 0) return kTitles[col];
  const int columns[] = {0, 1, Document().ViscoColumn(), Document().TempColumn()};
  return Document().Grid1().TextMatrix(row, columns[col]);
}

std::string_view Grid4Model::TableText(data::Document::Row row, int col) const {
  return Document().Grid4().TextMatrix(static_cast<int>(row), col);
}

void Grid4Model::RunsChanged() {
  Sync();
  ColumnsChanged();
}

void Grid4Model::ShowLatest() {
  if (!std::exchange(latest_changed_, false) || rowCount() == 0) return;
  emit dataChanged(index(rowCount() - 1, 0), index(rowCount() - 1, columnCount() - 1));
}

}  // namespace quenlor::app
