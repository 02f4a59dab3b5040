// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "data/measurement_table.h"
#include "tests/data/naive_table.h"

namespace quenlor::data {
namespace {

using Row = MeasurementTable::Row;

// One table under thousands of changes beside the naive model of it.
class SideBySide {
 public:
  explicit SideBySide(std::uint64_t seed) : random_(seed) {}

  void Change() {
    switch (Below(random_, 16)) {
      case 0:
        return AddColumn();
      case 1:
        return Remove();
      case 2:
        return Adopt();
      case 3:
      case 4:
      case 5:
        return Edit();
      default:
        return Append();
    }
  }

  void ExpectSameCellSomewhere() {
    const auto row = static_cast<Row>(Below(random_, naive_.rows.size() + 6)) - 3;
    const int col = static_cast<int>(Below(random_, naive_.Cols() + 6)) - 3;
    ASSERT_EQ(table_.TextMatrix(row, col), naive_.TextMatrix(row, col)) << row << ',' << col;
  }

  void ExpectSame() {
    ASSERT_EQ(table_.Rows(), static_cast<Row>(naive_.rows.size()) + 1);
    ASSERT_EQ(table_.Cols(), static_cast<int>(naive_.Cols()));
    ASSERT_EQ(AllTexts(table_), naive_.rows);
    for (std::size_t row = 1; row < naive_.rows.size(); ++row) {
      Texts wanted = naive_.rows[row];
      wanted.resize(1 + Below(random_, wanted.size() + 3));
      std::vector<std::string_view> room(wanted.size());
      const auto cells = table_.Cells(static_cast<Row>(row), room);
      Texts found(cells.begin(), cells.end());
      found.resize(wanted.size());
      ASSERT_EQ(found, wanted);
    }
    for (std::size_t row = 0; row < naive_.rows.size(); ++row) {
      ASSERT_EQ(RowLine(table_, static_cast<Row>(row), ';'), Joined(naive_.rows[row], ';'));
    }
  }

 private:
  void AddColumn() {
    if (naive_.Cols() >= 40) return;
    table_.AddDataColumn();
    naive_.AddDataColumn();
  }

  void Append() {
    Texts cells = RandomTexts(random_, Below(random_, 8));
    table_.AppendRow(Views(cells));
    naive_.AppendRow(std::move(cells));
  }

  void Adopt() {
    std::string block = "not a row";
    std::vector<std::uint64_t> starts;
    for (std::size_t n = Below(random_, 4); n > 0; --n) {
      Texts cells = RandomTexts(random_, 1 + Below(random_, naive_.Cols()));
      starts.push_back(block.size());
      (block += Joined(cells, MeasurementTable::kCellEnd)) += MeasurementTable::kRowEnd;
      naive_.AppendRow(std::move(cells));
    }
    table_.AdoptRows(std::move(block), std::move(starts));
  }

  void Edit() {
    const std::size_t row = Below(random_, naive_.rows.size());
    const std::size_t col = Below(random_, naive_.Cols());
    const std::string text = RandomText(random_);
    table_.SetTextMatrix(static_cast<Row>(row), static_cast<int>(col), text);
    naive_.rows[row][col] = text;
  }

  // Short ranges most of the time, so that the table grows; now and then all that is there.
  void Remove() {
    const std::size_t readings = naive_.rows.size() - 1;
    if (readings == 0) return;
    const bool all = Below(random_, 40) == 0;
    const std::size_t first = all ? 1 : 1 + Below(random_, readings);
    const std::size_t last = all ? readings : std::min(readings, first + Below(random_, 10));
    table_.RemoveRows(static_cast<Row>(first), static_cast<Row>(last));
    naive_.RemoveRows(first, last);
  }

  Random random_;
  MeasurementTable table_;
  NaiveTable naive_;
};

TEST(MeasurementTable, HoldsWhatANaiveTableHoldsAfterThousandsOfChanges) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    SideBySide tables(seed);
    for (int change = 1; change <= 4000; ++change) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", change " + std::to_string(change));
      tables.Change();
      ASSERT_NO_FATAL_FAILURE(tables.ExpectSameCellSomewhere());
      if (change % 100 == 0) {
        ASSERT_NO_FATAL_FAILURE(tables.ExpectSame());
      }
    }
  }
}

}  // namespace
}  // namespace quenlor::data
