// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quenlor::data {

constexpr int kMaxRuns = 32767;  // run numbers are 16-bit

// Which run a row belongs to, told by its cell in column "No.": the number at its start without decimals,
// from 1 to kMaxRuns. 0 for any other text: a reading without a run.
int RunNumber(std::string_view cell);

// The run information table: row 0 holds titles, row n what is known of run n.
//
// Columns: 0 "Sample No.", 1 "Sample Name", 2 "Analysis Time", 3 "Date", 4 "Time"; a file may bring more.
// A cell outside the table reads as empty.
class RunTable {
 public:
  static constexpr int kMostCols = 256;  // a file with more is noise; each column counts for every run

  RunTable() { InitRunInfoGrid(); }

  void InitRunInfoGrid();  // the titles alone

  int Rows() const { return static_cast<int>(rows_.size()); }
  int Cols() const { return cols_; }
  std::string_view TextMatrix(int row, int col) const;

  // Writes one cell; rows and columns are added up to it.
  void SetTextMatrix(int row, int col, std::string_view text);

  // Makes sure that rows 1 to n exist; a row that is new is called "No." and its number in columns 0 and 1.
  void AddRunsUpTo(int n);

 private:
  int cols_ = 5;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace quenlor::data
