// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/measurement_table.h"
#include "data/progress.h"
#include "graph/axis_ranges.h"
#include "graph/value_column.h"

namespace quenlor::graph {

// The graph's own copy of the readings, as numbers: time in seconds, viscosity, temperature, and which run
// each reading belongs to. A cell that is no number counts as 0.
//
// A run is a longest stretch of readings with one number in their "No." cells, however it is written; a
// number that comes again later is a new run. Reading `row` of the table has the index row - 1 here.
//
// A new reading is copied by Copy_Time, Copy_Visco and Copy_Temp, in O(1); after every other change of the
// table the CopyAll_… of the columns concerned read them again. A Copy_… that finds rows before its own
// missing, or its own there already, reads the whole column again, too.
class ValueArrays {
 public:
  using Table = data::MeasurementTable;

  struct Run {
    Index first = 0;
    int number = 0;  // 0 for readings without a run
  };

  // The three of them in one walk, which `progress` cannot leave.
  void CopyAll(const Table& table, int visco_column, int temp_column, const data::Progress& progress = {});
  // Those of the rows that were appended since, in one walk, too.
  void CopyNew(const Table& table, int visco_column, int temp_column, const data::Progress& progress = {});
  void CopyAll_Time(const Table& table);  // and the runs
  void CopyAll_Visco(const Table& table, int column);
  void CopyAll_Temp(const Table& table, int column);
  void Copy_Time(const Table& table, Table::Row row);
  void Copy_Visco(const Table& table, Table::Row row, int column);
  void Copy_Temp(const Table& table, Table::Row row, int column);

  const ValueColumn& Time() const { return time_; }
  const ValueColumn& Visco() const { return visco_; }
  const ValueColumn& Temp() const { return temp_; }

  // Readings of which all three numbers are known.
  Index Size() const;

  const std::vector<Run>& Runs() const { return runs_; }
  // The same, divided also where a number is written in another way ("1", then "01"), as the printed page has
  // it.
  const std::vector<Run>& WrittenRuns() const { return written_runs_; }
  std::size_t RunOf(Index index) const;                                  // its place in Runs()
  Index RunEnd(std::size_t run) const;                                   // the index after its last reading
  int SeriesCount() const { return static_cast<int>(numbers_.size()); }  // distinct run numbers
  bool SeveralSeries() const { return SeriesCount() >= 2; }

  // The newest reading of run `number`, 1 to 10, as a row of the table; 0 when it has none.
  Table::Row LastRow(int number) const { return last_rows_[static_cast<std::size_t>(number)]; }

  const DataExtremes& Extremes() const { return extremes_; }

  // Becomes another number whenever more has changed than readings having been appended.
  std::uint64_t Generation() const { return generation_; }

 private:
  void ClearTime(const Table& table);
  void AddTime(Table::Row row, std::string_view number, std::string_view time);
  void AddVisco(double value);
  void AddTemp(double value);
  void NoteAllTimes();
  void NoteAllVisco();
  void NoteAllTemp();

  ValueColumn time_;
  ValueColumn visco_;
  ValueColumn temp_;
  std::vector<Run> runs_;
  std::vector<Run> written_runs_;
  std::string last_number_;  // the newest reading's "No." cell
  std::set<int> numbers_;
  std::array<Table::Row, 11> last_rows_{};
  DataExtremes extremes_;
  std::uint64_t generation_ = 0;
};

}  // namespace quenlor::graph
