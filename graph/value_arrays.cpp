// SPDX-License-Identifier: MIT
#include "graph/value_arrays.h"

#include <algorithm>
#include <cmath>

#include "data/text_number.h"

namespace quenlor::graph {
namespace {

constexpr int kNumberColumn = 0;
constexpr int kTimeColumn = 1;

int RunNumber(std::string_view cell) {
  constexpr double kLargest = 1e9;
  return static_cast<int>(std::nearbyint(std::clamp(data::C_Val(cell), -kLargest, kLargest)));
}

}  // namespace

void ValueArrays::CopyAll_Time(const Table& table) {
  ++generation_;
  time_.Clear();
  time_.Reserve(table.EntryRow() - 1);
  runs_.clear();
  numbers_.clear();
  last_rows_ = {};
  double largest = 0;
  for (Table::Row row = 1; row < table.EntryRow(); ++row) {
    AddTime(table, row);
    largest = row == 1 ? extremes_.LastTime : std::max(largest, extremes_.LastTime);
  }
  extremes_.LastTime = largest;
  extremes_.HasReadings = table.HasReadings();
}

void ValueArrays::CopyAll_Visco(const Table& table, int column) {
  ++generation_;
  visco_.Clear();
  visco_.Reserve(table.EntryRow() - 1);
  extremes_.DataViscoMin = extremes_.DataViscoMax = extremes_.PosViscoMin = extremes_.PosViscoMax = 0;
  for (Table::Row row = 1; row < table.EntryRow(); ++row)
    AddVisco(data::C_Val(table.TextMatrix(row, column)));
}

void ValueArrays::CopyAll_Temp(const Table& table, int column) {
  ++generation_;
  temp_.Clear();
  temp_.Reserve(table.EntryRow() - 1);
  extremes_.DataTempMin = extremes_.DataTempMax = 0;
  for (Table::Row row = 1; row < table.EntryRow(); ++row) AddTemp(data::C_Val(table.TextMatrix(row, column)));
}

void ValueArrays::Copy_Time(const Table& table, Table::Row row) {
  if (row != time_.Size() + 1) return CopyAll_Time(table);
  AddTime(table, row);
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

void ValueArrays::AddTime(const Table& table, Table::Row row) {
  const std::string_view number = table.TextMatrix(row, kNumberColumn);
  if (runs_.empty() || number != last_number_) {
    last_number_ = number;
    runs_.push_back({time_.Size(), RunNumber(number)});
    numbers_.insert(runs_.back().number);
  }
  const int run = runs_.back().number;
  if (run >= 1 && run < static_cast<int>(last_rows_.size())) last_rows_[static_cast<std::size_t>(run)] = row;
  time_.Append(data::TimeToSeconds(table.TextMatrix(row, kTimeColumn)));
  extremes_.LastTime = time_[time_.Size() - 1];
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

}  // namespace quenlor::graph
