// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "reports/statistics.h"

namespace quenlor::reports {

using Texts = std::vector<std::string>;

inline constexpr int kVisco = 2;
inline constexpr int kTemp = 3;

// A measurement table of run number, time, viscosity and temperature, or whatever the titles say.
inline data::MeasurementTable Readings(const std::vector<Texts>& rows,
                                       Texts titles = {"No.", "Time", "Viscosity", "Temp"}) {
  data::MeasurementTable table;
  table.Reset(std::move(titles));
  for (const Texts& row : rows) table.AppendRow(std::vector<std::string_view>(row.begin(), row.end()));
  return table;
}

// One run of one reading for each viscosity.
inline data::MeasurementTable RunsOf(const Texts& viscosities) {
  std::vector<Texts> rows;
  for (const std::string& viscosity : viscosities)
    rows.push_back({std::to_string(rows.size() + 1), "00:01:00", viscosity, "25.0"});
  return Readings(rows);
}

inline StatisticsTable StatisticsOfReadings(const std::vector<Texts>& rows) {
  return {Readings(rows), kVisco, kTemp};
}

inline Texts RowOf(const StatisticsTable& table, StatisticsTable::Row row) {
  Texts cells;
  for (int col = 0; col < table.Cols(); ++col) cells.emplace_back(table.TextMatrix(row, col));
  return cells;
}

// Maximum, minimum, average and standard deviation of a column, as shown.
inline Texts SummaryOf(const StatisticsTable& table, int col) {
  Texts texts;
  for (auto row = table.Rows() - StatisticsTable::kSummaryRows; row < table.Rows(); ++row)
    texts.emplace_back(table.TextMatrix(row, col));
  return texts;
}

}  // namespace quenlor::reports
