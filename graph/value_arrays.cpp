// SPDX-License-Identifier: MIT
#include "graph/value_arrays.h"

#include <algorithm>
#include <span>

#include "data/run_table.h"
#include "data/text_number.h"

namespace quenlor::graph {
namespace {

constexpr int kNumberColumn = 0;
constexpr int kTimeColumn = 1;

// For as many more readings all numbers stay where they are: to move those of a long table takes as long as
// painting it. What is not used of the room is no memory yet.
constexpr Index kRoom = 1 << 20;

void Clear(ValueColumn& column, const ValueArrays::Table& table) {
  column.Clear();
  column.Reserve(table.EntryRow() - 1 + kRoom);
}

constexpr data::MeasurementTable::Row kTold = 1 << 16;  // rows between two words about how far it has come

}  // namespace

void ValueArrays::CopyAll(const Table& table, int visco_column, int temp_column,
                          const data::Progress& progress) {
  ClearTime(table);
  Clear(visco_, table);
  Clear(temp_, table);
  CopyNew(table, visco_column, temp_column, progress);
}

void ValueArrays::CopyNew(const Table& table, int visco_column, int temp_column,
                          const data::Progress& progress) {
  ++generation_;
  std::vector<std::string_view> room(
      static_cast<std::size_t>(std::max({kTimeColumn, visco_column, temp_column})) + 1);
  for (Table::Row row = Size() + 1; row < table.EntryRow(); ++row) {
    const std::span<const std::string_view> cells = table.Cells(row, room);
    const auto cell = [cells](int column) {
      const auto at = static_cast<std::size_t>(column);
      return at < cells.size() ? cells[at] : std::string_view();
    };
    AddTime(row, cell(kNumberColumn), cell(kTimeColumn));
    visco_.Append(data::C_Val(cell(visco_column)));
    temp_.Append(data::C_Val(cell(temp_column)));
    if (progress && row % kTold == 0) progress(static_cast<double>(row) / static_cast<double>(table.Rows()));
  }
  NoteAllTimes();
  NoteAllVisco();
  NoteAllTemp();
}

void ValueArrays::CopyAll_Time(const Table& table) {
  ++generation_;
  ClearTime(table);
  for (Table::Row row = 1; row < table.EntryRow(); ++row)
    AddTime(row, table.TextMatrix(row, kNumberColumn), table.TextMatrix(row, kTimeColumn));
  NoteAllTimes();
}

void ValueArrays::CopyAll_Visco(const Table& table, int column) {
  ++generation_;
  Clear(visco_, table);
  for (Table::Row row = 1; row < table.EntryRow(); ++row)
    visco_.Append(data::C_Val(table.TextMatrix(row, column)));
  NoteAllVisco();
}

void ValueArrays::CopyAll_Temp(const Table& table, int column) {
  ++generation_;
  Clear(temp_, table);
  for (Table::Row row = 1; row < table.EntryRow(); ++row)
    temp_.Append(data::C_Val(table.TextMatrix(row, column)));
  NoteAllTemp();
}

void ValueArrays::Copy_Time(const Table& table, Table::Row row) {
  if (row != time_.Size() + 1) return CopyAll_Time(table);
  AddTime(row, table.TextMatrix(row, kNumberColumn), table.TextMatrix(row, kTimeColumn));
}

void ValueArrays::Copy_Visco(const Table& table, Table::Row row, int column) {
  if (row != visco_.Size() + 1) return CopyAll_Visco(table, column);
  AddVisco(data::C_Val(table.TextMatrix(row, column)));
}

void ValueArrays::Copy_Temp(const Table& table, Table::Row row, int column) {
  if (row != temp_.Size() + 1) return CopyAll_Temp(table, column);
  AddTemp(data::C_Val(table.TextMatrix(row, column)));
}

Index ValueArrays::Size() const { return std::min({time_.Size(), visco_.Size(), temp_.Size()}); }

std::size_t ValueArrays::RunOf(Index index) const {
  const auto after = std::upper_bound(runs_.begin(), runs_.end(), index,
                                      [](Index wanted, const Run& run) { return wanted < run.first; });
  return static_cast<std::size_t>(after - runs_.begin()) - 1;
}

Index ValueArrays::RunEnd(std::size_t run) const {
  return run + 1 < runs_.size() ? std::min(runs_[run + 1].first, Size()) : Size();
}

void ValueArrays::ClearTime(const Table& table) {
  Clear(time_, table);
  runs_.clear();
  written_runs_.clear();
  numbers_.clear();
  last_rows_ = {};
}

void ValueArrays::AddTime(Table::Row row, std::string_view number, std::string_view time) {
  if (written_runs_.empty() || number != last_number_) {
    last_number_ = number;
    const Run begun{time_.Size(), data::RunNumber(number)};
    written_runs_.push_back(begun);
    if (runs_.empty() || runs_.back().number != begun.number) runs_.push_back(begun);
    numbers_.insert(begun.number);
  }
  const int run = runs_.back().number;
  if (run >= 1 && run < static_cast<int>(last_rows_.size())) last_rows_[static_cast<std::size_t>(run)] = row;
  const bool first = time_.Size() == 0;
  time_.Append(data::TimeToSeconds(time));
  const double newest = time_[time_.Size() - 1];
  extremes_.LastTime = first ? newest : std::max(extremes_.LastTime, newest);
  extremes_.HasReadings = true;
}

void ValueArrays::AddVisco(double value) {
  const bool first = visco_.Size() == 0;
  visco_.Append(value);
  extremes_.DataViscoMin = first ? value : std::min(extremes_.DataViscoMin, value);
  extremes_.DataViscoMax = first ? value : std::max(extremes_.DataViscoMax, value);
  if (value > 0) {
    const bool first_positive = extremes_.PosViscoMin <= 0;
    extremes_.PosViscoMin = first_positive ? value : std::min(extremes_.PosViscoMin, value);
    extremes_.PosViscoMax = std::max(extremes_.PosViscoMax, value);
  }
}

void ValueArrays::AddTemp(double value) {
  const bool first = temp_.Size() == 0;
  temp_.Append(value);
  extremes_.DataTempMin = first ? value : std::min(extremes_.DataTempMin, value);
  extremes_.DataTempMax = first ? value : std::max(extremes_.DataTempMax, value);
}

void ValueArrays::NoteAllTimes() {
  extremes_.HasReadings = time_.Size() > 0;
  extremes_.LastTime = extremes_.HasReadings ? time_.ExtremesOf(0, time_.Size()).max : 0;
}

void ValueArrays::NoteAllVisco() {
  extremes_.DataViscoMin = extremes_.DataViscoMax = extremes_.PosViscoMin = extremes_.PosViscoMax = 0;
  if (visco_.Size() == 0) return;
  const ValueColumn::Extremes all = visco_.ExtremesOf(0, visco_.Size());
  extremes_.DataViscoMin = all.min;
  extremes_.DataViscoMax = all.max;
  if (all.max <= 0) return;
  extremes_.PosViscoMin = all.positive_min;
  extremes_.PosViscoMax = all.max;
}

void ValueArrays::NoteAllTemp() {
  extremes_.DataTempMin = extremes_.DataTempMax = 0;
  if (temp_.Size() == 0) return;
  const ValueColumn::Extremes all = temp_.ExtremesOf(0, temp_.Size());
  extremes_.DataTempMin = all.min;
  extremes_.DataTempMax = all.max;
}

}  // namespace quenlor::graph
