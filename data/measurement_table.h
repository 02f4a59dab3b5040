// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quenlor::data {

// The measurement table: one row of text cells per reading, the store of record of a document.
//
// Row 0 holds the titles, rows 1 to Rows() - 2 the readings, and the last row is the always empty entry row
// into which the next reading goes. Column 0 is the run number, column 1 the elapsed time, the rest are data
// columns. Texts are UTF-8 without line ends. A cell outside the table reads as empty.
//
// A row is one run of bytes in a block, its cells divided by the byte FF and ended by FE, two bytes that
// UTF-8 never uses; an index holds where each row starts. Appending is O(1), a block is never moved, and a
// file that was read becomes a block as it is.
class MeasurementTable {
 public:
  using Row = std::int64_t;

  // Readings that were taken out and can be put back: the table keeps their texts.
  struct RemovedRows {
    Row first = 0;
    std::vector<std::uint64_t> starts;
    Row Count() const { return static_cast<Row>(starts.size()); }
  };

  static constexpr int kMaxCols = 32767;  // column numbers are 16-bit
  static constexpr char kCellEnd = '\xFF';
  static constexpr char kRowEnd = '\xFE';

  MeasurementTable();

  // Back to the titles and the entry row. There are at least the columns "No." and "Time".
  void Reset(std::vector<std::string> titles = {});

  Row Rows() const { return static_cast<Row>(starts_.size()) + 2; }
  int Cols() const { return static_cast<int>(titles_.size()); }
  Row EntryRow() const { return Rows() - 1; }
  bool HasReadings() const { return !starts_.empty(); }

  // The view holds until the table changes.
  std::string_view TextMatrix(Row row, int col) const;

  // The first cells of a reading, as many as the row has and there is room for, which is for one at least.
  // All of them take one walk along the row, where each TextMatrix takes one; cells that are missing at its
  // end cost nothing.
  std::span<const std::string_view> Cells(Row row, std::span<std::string_view> room) const;

  // Replaces one title or one cell of a reading; the entry row and cells outside the table are left alone.
  void SetTextMatrix(Row row, int col, std::string_view text);

  // One more data column, titled "Data" and its number ("Data5" is column 6). False at the
  // last possible column.
  bool AddDataColumn();

  // Makes the entry row a reading. Cells beyond the columns add columns.
  void AppendRow(std::span<const std::string_view> cells);

  // Removes readings first to last, both included; all of them must be readings.
  RemovedRows RemoveRows(Row first, Row last);

  // Puts them back where they were. What was removed later is back already, and Reset came not between.
  void RestoreRows(const RemovedRows& rows);

  // The row's cells from column 0 to the last, joined by the separator; missing cells are empty.
  void AppendLine(Row row, char separator, std::string& line) const;

  // Takes over a block of rows in the form described above; `starts` are offsets in it, in row order.
  // The caller has added the columns that the rows need; no row has more cells than there are columns.
  void AdoptRows(std::string block, std::vector<std::uint64_t> starts);

  // Takes over the readings of another table whose columns are the first of this one's.
  void AdoptReadings(MeasurementTable&& other);

  // SetTextMatrix for column 0 of a reading. A number that is longer finds its place before the row where
  // that came from a file: a line end that nobody needs any more.
  void SetRunNumber(Row row, std::string_view text);

 private:
  const char* RowStart(Row row) const;
  std::string_view BlockFrom(Row row) const;  // the row, and what follows it in its block
  std::uint64_t StoreRow(std::span<const std::string_view> cells);

  std::vector<std::string> titles_;
  std::deque<std::string> blocks_;
  std::vector<std::uint64_t> starts_;  // block number in the high bits, offset in the low ones
};

}  // namespace quenlor::data
