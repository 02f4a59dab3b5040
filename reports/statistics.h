// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "data/measurement_table.h"
#include "reports/column_statistics.h"

namespace quenlor::reports {

// The statistics of a measurement table: its titles, the last reading of every run, and four rows "Maximum",
// "Minimum", "Average" and "Std Dev" over those last readings.
//
// A snapshot: the measurement table may change afterwards. Row 0 holds the titles, rows 1 to Runs() the runs;
// the columns are those of the measurement table. A run's label in column 0 is the run number of the row
// before its last reading, so a run of one reading bears the number of the run before it, or the title.
//
// Only time, viscosity and temperature have statistics, one after the other: of two that name the same column
// the later stands in it. One that names no column that holds readings has none.
class StatisticsTable {
 public:
  using Row = data::MeasurementTable::Row;
  static constexpr Row kSummaryRows = 4;

  struct Column {
    int column = 0;
    std::optional<ColumnStatistics> values;  // nothing without runs
  };

  // Of an empty measurement table.
  StatisticsTable() : StatisticsTable(data::MeasurementTable(), 2, 3) {}

  // The summary rows show their numbers with that decimal point; the readings' cells stay as they are.
  StatisticsTable(const data::MeasurementTable& table, int ViscoColumn, int TempColumn,
                  char decimal_point = '.');

  Row Rows() const { return cells_.Rows() - 1; }
  int Cols() const { return cells_.Cols(); }
  Row Runs() const { return Rows() - 1 - kSummaryRows; }
  // A cell outside of the table reads as empty. The view holds as long as the table.
  std::string_view TextMatrix(Row row, int col) const { return cells_.TextMatrix(row, col); }
  // The first cells of a row below the titles; those that are missing at its end are empty.
  std::span<const std::string_view> Cells(Row row, std::span<std::string_view> room) const {
    return cells_.Cells(row, room);
  }
  // The row's cells from column 0 to the last, joined by the separator.
  void AppendLine(Row row, char separator, std::string& line) const {
    cells_.AppendLine(row, separator, line);
  }

  const Column& Time() const { return time_; }  // in seconds
  const Column& Viscosity() const { return viscosity_; }
  const Column& Temperature() const { return temperature_; }

 private:
  class Summary;

  void AddRuns(const data::MeasurementTable& table);
  void SummariseTime(Summary& summary);
  void SummariseNumbers(Column& column, char decimal_point, Summary& summary);

  data::MeasurementTable cells_;  // its readings are the runs and the summary rows
  Column time_;
  Column viscosity_;
  Column temperature_;
};

}  // namespace quenlor::reports
