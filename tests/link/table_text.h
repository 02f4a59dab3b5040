// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/document.h"

namespace quenlor::link {

using Texts = std::vector<std::string>;

// The data cells of a reading, from column 2 to the last.
inline Texts DataCells(const data::MeasurementTable& table, data::MeasurementTable::Row row) {
  Texts cells;
  for (int col = 2; col < table.Cols(); ++col) cells.emplace_back(table.TextMatrix(row, col));
  return cells;
}

// The title row and all readings, each with "|" between its cells: the same for two tables that
// hold the same.
inline Texts TableLines(const data::MeasurementTable& table) {
  Texts lines;
  for (data::MeasurementTable::Row row = 0; row < table.EntryRow(); ++row) {
    table.AppendLine(row, '|', lines.emplace_back());
  }
  return lines;
}

// One cell of every reading, from the first to the last.
inline Texts Column(const data::MeasurementTable& table, int col) {
  Texts cells;
  for (data::MeasurementTable::Row row = 1; row < table.EntryRow(); ++row) {
    cells.emplace_back(table.TextMatrix(row, col));
  }
  return cells;
}

inline std::string Repeated(std::string_view text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (; times > 0; --times) all += text;
  return all;
}

}  // namespace quenlor::link
