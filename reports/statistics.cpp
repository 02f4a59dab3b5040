// SPDX-License-Identifier: MIT
#include "reports/statistics.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "data/text_number.h"
#include "reports/pattern_text.h"

namespace quenlor::reports {
namespace {

constexpr int kTimeColumn = 1;

std::ptrdiff_t Characters(std::string_view utf8) {
  return std::ranges::count_if(utf8, [](char c) { return (c & 0xC0) != 0x80; });
}

// How many characters stand behind the decimal separator; of a text with a point and a comma,
// the larger number.
int DecimalsOf(std::string_view text) {
  std::ptrdiff_t decimals = 0;
  for (const char separator : {'.', ','}) {
    const std::size_t at = text.find(separator);
    if (at != std::string_view::npos) decimals = std::max(decimals, Characters(text.substr(at + 1)));
  }
  constexpr std::ptrdiff_t kMoreThanEverShown = 1000;
  return static_cast<int>(std::min(decimals, kMoreThanEverShown));
}

std::string WithPoint(std::string text, char decimal_point) {
  std::ranges::replace(text, '.', decimal_point);
  return text;
}

}  // namespace

// The four rows below the runs while they are filled in.
class StatisticsTable::Summary {
 public:
  explicit Summary(int cols) {
    constexpr std::array kTitles = {"Maximum", "Minimum", "Average", "Std Dev"};
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      rows_[i].resize(static_cast<std::size_t>(cols));
      rows_[i].front() = kTitles[i];
    }
  }

  // The column's four texts, from the maximum down.
  void SetColumn(int col, std::array<std::string, kSummaryRows> texts) {
    for (std::size_t i = 0; i < rows_.size(); ++i)
      rows_[i][static_cast<std::size_t>(col)] = std::move(texts[i]);
  }

  void AppendTo(data::MeasurementTable& cells) const {
    for (const auto& row : rows_) cells.AppendRow(std::vector<std::string_view>(row.begin(), row.end()));
  }

 private:
  std::array<std::vector<std::string>, kSummaryRows> rows_;
};

StatisticsTable::StatisticsTable(const data::MeasurementTable& table, int ViscoColumn, int TempColumn,
                                 char decimal_point)
    : time_{kTimeColumn, {}}, viscosity_{ViscoColumn, {}}, temperature_{TempColumn, {}} {
  std::vector<std::string> titles;
  titles.reserve(static_cast<std::size_t>(table.Cols()));
  for (int col = 0; col < table.Cols(); ++col) titles.emplace_back(table.TextMatrix(0, col));
  cells_.Reset(std::move(titles));
  AddRuns(table);

  Summary summary(Cols());
  if (cells_.HasReadings()) {
    SummariseTime(summary);
    SummariseNumbers(viscosity_, decimal_point, summary);
    SummariseNumbers(temperature_, decimal_point, summary);
  }
  summary.AppendTo(cells_);
}

// A reading is the last of its run when the run number in the next row is another text; below the last
// reading there is the empty entry row.
void StatisticsTable::AddRuns(const data::MeasurementTable& table) {
  std::vector<std::string_view> cells(static_cast<std::size_t>(table.Cols()));
  std::string_view number = table.TextMatrix(1, 0);
  for (Row row = 1; row < table.EntryRow(); ++row) {
    const std::string_view next_number = table.TextMatrix(row + 1, 0);
    if (number != next_number) {
      const std::span<const std::string_view> run = table.Cells(row, cells);
      cells.front() = table.TextMatrix(row - 1, 0);
      cells_.AppendRow(run);
    }
    number = next_number;
  }
}

void StatisticsTable::SummariseTime(Summary& summary) {
  std::vector<double> seconds;
  for (Row row = 1; row < cells_.EntryRow(); ++row)
    seconds.push_back(data::TimeToSeconds(TextMatrix(row, kTimeColumn)));
  time_.values = StatisticsOf(seconds, RootOf::kAsItStands);
  const auto& [maximum, minimum, average, deviation] = *time_.values;
  summary.SetColumn(kTimeColumn,
                    {data::SecondsToTime(maximum), data::SecondsToTime(minimum), data::SecondsToTime(average),
                     deviation ? data::SecondsToTime(*deviation) : std::string()});
}

void StatisticsTable::SummariseNumbers(Column& column, char decimal_point, Summary& summary) {
  const int col = column.column;
  if (col < kTimeColumn || col >= Cols()) return;
  std::vector<double> numbers;
  int decimals = 0;
  for (Row row = 1; row < cells_.EntryRow(); ++row) {
    const std::string_view text = TextMatrix(row, col);
    numbers.push_back(data::C_Val(text));
    decimals = std::max(decimals, DecimalsOf(text));
  }
  column.values = StatisticsOf(numbers, RootOf::kAbsolute);
  const auto& [maximum, minimum, average, deviation] = *column.values;
  summary.SetColumn(
      col, {WithPoint(data::GeneralText(maximum), decimal_point),
            WithPoint(data::GeneralText(minimum), decimal_point),
            WithPoint(PatternText(average, decimals), decimal_point),
            deviation ? WithPoint(PatternText(*deviation, decimals), decimal_point) : std::string()});
}

}  // namespace quenlor::reports
