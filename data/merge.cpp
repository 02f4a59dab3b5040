// SPDX-License-Identifier: MIT
#include "data/merge.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace quenlor::data {
namespace {

using Row = MeasurementTable::Row;

std::string OnlyItsNumber(int run) { return "No." + std::to_string(run); }

// Where each column of a file goes, by its title; of several columns with one title the first goes to the
// first. Run number and time have their own places.
std::vector<int> ColumnsByTitle(const MeasurementTable& from, MeasurementTable& to) {
  std::vector<int> column_of = {0, 1};
  std::vector<bool> taken(static_cast<std::size_t>(to.Cols()));
  for (int col = 2; col < from.Cols(); ++col) {
    const std::string_view title = from.TextMatrix(0, col);
    int found = 2;
    while (found < to.Cols() && (taken[static_cast<std::size_t>(found)] || to.TextMatrix(0, found) != title))
      ++found;
    if (found == to.Cols()) {
      if (!to.AddDataColumn()) break;
      to.SetTextMatrix(0, found, title);
      taken.push_back(false);
    }
    taken[static_cast<std::size_t>(found)] = true;
    column_of.push_back(found);
  }
  return column_of;
}

// Gives the runs of a file their new numbers, each at its first reading.
class Renumbering {
 public:
  Renumbering(int run_count, int runs_of_file)
      : run_count_(run_count), new_number_(static_cast<std::size_t>(runs_of_file) + 1) {}

  // The new text of a run's cell, which holds until the next call.
  std::string_view operator()(std::string_view cell) {
    if (cell == last_cell_) return last_text_;
    const int run = RunNumber(cell);
    last_cell_ = cell;
    last_text_ = run == 0 ? std::string(cell) : std::to_string(NewNumber(run));
    return last_text_;
  }

  int RunCount() const { return run_count_; }
  int NewNumber(int run) {
    int& number = new_number_[static_cast<std::size_t>(run)];
    if (number == 0) {
      number = ++run_count_;
      in_order_.push_back(run);
    }
    return number;
  }
  const std::vector<int>& InOrder() const { return in_order_; }  // old numbers

 private:
  int run_count_;
  std::vector<int> new_number_;
  std::vector<int> in_order_;
  std::string last_cell_;
  std::string last_text_;
};

int RunsWithReadings(const DataFileContents& file) {
  Renumbering count(0, file.run_count);
  for (Row row = 1; row < file.table.EntryRow(); ++row) count(file.table.TextMatrix(row, 0));
  return count.RunCount();
}

// The columns are where they are to be: the rows stay as they are but for their numbers.
void AdoptReadings(MeasurementTable&& from, MeasurementTable& to, Renumbering& number) {
  Row row = to.EntryRow();
  to.AdoptReadings(std::move(from));
  for (; row < to.EntryRow(); ++row) {
    const std::string_view cell = to.TextMatrix(row, 0);
    const std::string_view now = number(cell);
    if (now != cell) to.SetRunNumber(row, now);
  }
}

void CopyReadings(const MeasurementTable& from, const std::vector<int>& column_of, MeasurementTable& to,
                  Renumbering& number) {
  std::vector<std::string_view> room(column_of.size());
  std::vector<std::string_view> cells;
  for (Row row = 1; row < from.EntryRow(); ++row) {
    const auto read = from.Cells(row, room);
    cells.assign(2, {});
    for (std::size_t col = 0; col < read.size(); ++col) {
      const auto place = static_cast<std::size_t>(column_of[col]);
      if (place >= cells.size()) cells.resize(place + 1);
      cells[place] = read[col];
    }
    cells[0] = number(cells[0]);
    to.AppendRow(cells);
  }
}

void AppendReadings(MeasurementTable&& from, MeasurementTable& to, Renumbering& number) {
  const std::vector<int> column_of = ColumnsByTitle(from, to);
  bool all_in_place = column_of.size() == static_cast<std::size_t>(from.Cols());
  for (std::size_t col = 0; col < column_of.size(); ++col)
    all_in_place = all_in_place && column_of[col] == static_cast<int>(col);
  if (all_in_place)
    AdoptReadings(std::move(from), to, number);
  else
    CopyReadings(from, column_of, to, number);
}

}  // namespace

void NameRunsAfterFile(DataFileContents& file, std::string_view file_name) {
  const std::size_t dot = file_name.rfind('.');
  const std::string name(dot == 0 ? file_name : file_name.substr(0, dot));
  for (int run = 1; run <= file.run_count; ++run) {
    const std::string number = OnlyItsNumber(run);
    const std::string_view now = file.runs.TextMatrix(run, 1);
    if (!now.empty() && now != number) continue;
    std::string called = name;
    if (file.run_count > 1) called.append(1, ' ').append(number);
    file.runs.SetTextMatrix(run, 1, called);
  }
}

bool HasNumbersFor(const DataFileContents& file, int run_count) {
  return run_count + file.run_count <= kMaxRuns || run_count + RunsWithReadings(file) <= kMaxRuns;
}

int AppendRuns(DataFileContents&& file, MeasurementTable& table, RunTable& runs, int run_count) {
  Renumbering number(run_count, file.run_count);
  AppendReadings(std::move(file.table), table, number);
  for (const int run : number.InOrder()) {
    const int now = number.NewNumber(run);
    runs.SetTextMatrix(now, 0, OnlyItsNumber(now));
    for (int col = 1; col < file.runs.Cols(); ++col)
      runs.SetTextMatrix(now, col, file.runs.TextMatrix(run, col));
  }
  return number.RunCount();
}

bool AppendFile(DataFileContents&& file, std::string_view file_name, DataFileContents& to) {
  NameRunsAfterFile(file, file_name);
  if (!HasNumbersFor(file, to.run_count)) return false;
  if (file.date) to.date = file.date;
  std::ranges::move(file.List2, std::back_inserter(to.List2));
  to.holds_commas = to.holds_commas || file.holds_commas;
  to.run_count = AppendRuns(std::move(file), to.table, to.runs, to.run_count);
  return true;
}

}  // namespace quenlor::data
