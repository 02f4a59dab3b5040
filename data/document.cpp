// SPDX-License-Identifier: MIT
#include "data/document.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "data/merge.h"
#include "data/text_number.h"

namespace quenlor::data {
namespace {

void Assign(double& limit, std::optional<double> number) {
  if (number) limit = *number;
}

void Assign(std::int16_t& exponent, std::optional<double> number) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (number && *number >= Limits::min() && *number <= Limits::max())
    exponent = static_cast<std::int16_t>(*number);
}

}  // namespace

bool Document::AppendReading(std::span<const std::string_view> fields, const Moment& now,
                             const std::function<void(Row)>& filled) {
  const bool first_of_run = StartTime_ == 0;
  if (first_of_run && RunCount_ >= kMaxRuns) return false;
  if (first_of_run) {
    StartRun();
    StartTime_ = now.seconds;
  }

  const double elapsed = now.seconds - StartTime_;
  const std::string time =
      settings_.Index(setting::kTimeS) == 0 ? TenthsText(elapsed) : SecondsToTime(elapsed);
  runs_.SetTextMatrix(RunCount_, 2, time);
  const std::string date = DateText(now.local_second);
  const std::string time_of_day = TimeText(now.local_second);
  runs_.SetTextMatrix(RunCount_, 3, date);
  runs_.SetTextMatrix(RunCount_, 4, time_of_day);

  const std::string run = std::to_string(RunCount_);
  std::vector<std::string_view> cells(2 + fields.size());
  cells[0] = run;
  cells[1] = time;
  std::ranges::copy(fields, cells.begin() + 2);
  for (const std::string_view field : fields) NoteCommas(field);
  const int cols = table_.Cols();
  table_.AppendRow(cells);
  const Row row = table_.EntryRow() - 1;
  if (filled) filled(row);

  date_ = date + ' ' + time_of_day;
  DataChanged_ = true;
  ++unsaved_readings_;
  last_reading_at_ = now.seconds;
  if (table_.Cols() != cols) Tell(&DocumentListener::ColumnsChanged);
  if (first_of_run) Tell(&DocumentListener::RunsChanged);
  Tell(&DocumentListener::ReadingAppended, row);
  return true;
}

void Document::StartRun() {
  ++RunCount_;
  const std::string name = "No." + std::to_string(RunCount_);
  runs_.SetTextMatrix(RunCount_, 0, name);
  runs_.SetTextMatrix(RunCount_, 1, name);
  if (RunCount_ == 2) MultiRun_ = true;
}

MeasurementTable::RemovedRows Document::RemoveRows(Row row, Row row_sel) {
  const auto [first, last] = std::minmax(row, row_sel);
  if (first < 1 || last >= table_.EntryRow()) return {};
  Tell(&DocumentListener::RowsAboutToBeRemoved, Row{first}, Row{last});
  MeasurementTable::RemovedRows removed = table_.RemoveRows(first, last);
  unsaved_readings_ = std::min(unsaved_readings_, table_.EntryRow() - 1);
  edited_ = true;
  Tell(&DocumentListener::RowsRemoved, Row{first}, Row{last});
  return removed;
}

void Document::RestoreRows(const MeasurementTable::RemovedRows& rows) {
  if (rows.Count() == 0 || rows.first > table_.EntryRow()) return;
  const Row last = rows.first + rows.Count() - 1;
  Tell(&DocumentListener::RowsAboutToBeRestored, Row{rows.first}, Row{last});
  table_.RestoreRows(rows);
  edited_ = true;
  Tell(&DocumentListener::RowsRestored, Row{rows.first}, Row{last});
}

void Document::SetCell(Row row, int col, std::string_view text) {
  NoteCommas(text);
  table_.SetTextMatrix(row, col, OneLine(text));
  edited_ = true;
  Tell(&DocumentListener::CellChanged, row, col);
}

void Document::SetTitle(int col, std::string_view text) {
  NoteCommas(text);
  table_.SetTextMatrix(0, col, OneLine(text));
  edited_ = true;
  Tell(&DocumentListener::ColumnsChanged);
}

void Document::SetSampleName(int run, std::string_view name) {
  if (run < 1 || run >= runs_.Rows()) return;
  NoteCommas(name);
  runs_.SetTextMatrix(run, 1, OneLine(name));
  edited_ = true;
  Tell(&DocumentListener::RunsChanged);
}

void Document::NoteCommas(std::string_view text) {
  if (holds_commas_ || text.find(',') == std::string_view::npos) return;
  holds_commas_ = true;
  TellOfCommas();
}

void Document::TellOfCommas() {
  if (!CommasDivide() || std::exchange(commas_told_, true)) return;
  Tell(&DocumentListener::CommasDivideFields);
}

void Document::SetFieldSeparator(char separator) {
  FieldSeparator_ = separator;
  TellOfCommas();
}

void Document::SetFileName(std::string_view name) {
  file_name_ = OneLine(name);
  Tell(&DocumentListener::HeaderChanged);
}

void Document::SetRemarks(std::string_view remarks) {
  remarks_ = OneLine(remarks);
  edited_ = true;
  Tell(&DocumentListener::HeaderChanged);
}

void Document::SetViscoColumn(int col) {
  ViscoColumn_ = static_cast<std::int16_t>(col);
  Tell(&DocumentListener::ColumnsChanged);
}

void Document::SetTempColumn(int col) {
  TempColumn_ = static_cast<std::int16_t>(col);
  Tell(&DocumentListener::ColumnsChanged);
}

// The columns called as the template calls them, else the first two data columns.
void Document::ChooseColumns() {
  ViscoColumn_ = 2;
  TempColumn_ = 3;
  for (int col = table_.Cols() - 1; col >= 2; --col) {
    if (table_.TextMatrix(0, col) == "Viscosity") ViscoColumn_ = static_cast<std::int16_t>(col);
    if (table_.TextMatrix(0, col) == "Temp") TempColumn_ = static_cast<std::int16_t>(col);
  }
}

void Document::TakeAxis(const AxisValues& axis) {
  const auto column = [&](std::int16_t& target, std::optional<double> number) {
    if (number && *number >= 2 && *number < table_.Cols()) target = static_cast<std::int16_t>(*number);
  };
  column(ViscoColumn_, axis.ViscoColumn);
  column(TempColumn_, axis.TempColumn);
  Assign(ranges_.TimeMin, axis.TimeMin);
  Assign(ranges_.TimeMax, axis.TimeMax);
  Assign(ranges_.ViscoMin, axis.ViscoMin);
  Assign(ranges_.ViscoMax, axis.ViscoMax);
  Assign(ranges_.TempMin, axis.TempMin);
  Assign(ranges_.TempMax, axis.TempMax);
  Assign(ranges_.ViscoLogMin, axis.ViscoLogMin);
  Assign(ranges_.ViscoLogMax, axis.ViscoLogMax);
}

void Document::Load(DataFileContents contents, std::string_view file_name, std::string_view file_date) {
  table_ = std::move(contents.table);
  runs_ = std::move(contents.runs);
  List2_ = std::move(contents.List2);
  RunCount_ = static_cast<std::int16_t>(contents.run_count);
  MultiRun_ = RunCount_ >= 2;
  KeptInAFile();
  last_reading_at_ = 0;
  StartTime_ = 0;
  holds_commas_ = contents.holds_commas;
  commas_told_ = false;
  encoding_ = contents.encoding;
  FieldSeparator_ = settings_.DecimalComma() ? ';' : contents.separator;
  file_name_ = file_name;
  date_ = contents.date.value_or(std::string(file_date));
  remarks_ = contents.remarks.value_or(std::string(kEmptyRemarks));
  ChooseColumns();
  TakeAxis(contents.axis);
  Tell(&DocumentListener::DocumentReplaced);
}

bool Document::AppendRuns(DataFileContents contents, std::string_view file_name) {
  const Row count = contents.table.EntryRow() - 1;
  const Row first = table_.EntryRow();
  if (!HasNumbersFor(contents, RunCount_)) return false;
  if (count == 0) return true;
  const int cols = table_.Cols();
  Tell(&DocumentListener::RowsAboutToBeRestored, Row{first}, Row{first + count - 1});
  NameRunsAfterFile(contents, file_name);
  if (contents.date) date_ = *contents.date;
  std::ranges::move(contents.List2, std::back_inserter(List2_));
  holds_commas_ = holds_commas_ || contents.holds_commas;
  RunCount_ = static_cast<std::int16_t>(data::AppendRuns(std::move(contents), table_, runs_, RunCount_));
  MultiRun_ = RunCount_ >= 2;
  DataChanged_ = true;
  unsaved_readings_ += count;
  StartTime_ = 0;
  Tell(&DocumentListener::RowsRestored, Row{first}, Row{first + count - 1});
  if (table_.Cols() != cols) Tell(&DocumentListener::ColumnsChanged);
  Tell(&DocumentListener::RunsChanged);
  Tell(&DocumentListener::HeaderChanged);
  TellOfCommas();
  return true;
}

void Document::KeptInAFile() {
  DataChanged_ = false;
  edited_ = false;
  unsaved_readings_ = 0;
}

void Document::Saved(std::string_view file_name) {
  KeptInAFile();
  Tell(&DocumentListener::DocumentSaved);
  SetFileName(file_name);
}

}  // namespace quenlor::data
