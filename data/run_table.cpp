// SPDX-License-Identifier: MIT
#include "data/run_table.h"

#include <algorithm>

#include "data/text_number.h"

namespace quenlor::data {

int RunNumber(std::string_view cell) {
  const double number = C_Val(cell);
  return number >= 1 && number < kMaxRuns + 1 ? static_cast<int>(number) : 0;
}

void RunTable::InitRunInfoGrid() {
  cols_ = 5;
  rows_ = {{"Sample No.", "Sample Name", "Analysis Time", "Date", "Time"}};
}

std::string_view RunTable::TextMatrix(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0) return {};
  const auto& cells = rows_[static_cast<std::size_t>(row)];
  return static_cast<std::size_t>(col) < cells.size() ? std::string_view(cells[static_cast<std::size_t>(col)])
                                                      : std::string_view();
}

void RunTable::SetTextMatrix(int row, int col, std::string_view text) {
  if (row < 0 || col < 0 || col >= kMostCols) return;
  AddRunsUpTo(row);
  cols_ = std::max(cols_, col + 1);
  auto& cells = rows_[static_cast<std::size_t>(row)];
  cells.resize(std::max(cells.size(), static_cast<std::size_t>(col) + 1));
  cells[static_cast<std::size_t>(col)] = text;
}

void RunTable::AddRunsUpTo(int n) {
  for (int row = Rows(); row <= n; ++row) {
    const std::string name = "No." + std::to_string(row);
    rows_.push_back({name, name});
  }
}

}  // namespace quenlor::data
