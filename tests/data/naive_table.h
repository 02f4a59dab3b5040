// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "data/measurement_table.h"

namespace quenlor::data {

using Random = std::mt19937_64;
using Texts = std::vector<std::string>;

// A number from 0 to n - 1, the same on every system for the same seed.
inline std::size_t Below(Random& random, std::size_t n) { return static_cast<std::size_t>(random() % n); }

// A text as a cell may hold it: ASCII, longer characters, NULs, blanks; no line ends and no separators.
inline std::string RandomText(Random& random) {
  static const std::string kPieces[] = {
      "0",  "1",          "25.1",         "-",  " ",     "E3",
      "No", "\xC2\xB0 C", "\xE2\x82\xAC", "\t", "mPa.s", std::string(1, '\0')};
  std::string text;
  for (std::size_t n = Below(random, 5); n > 0; --n) text += kPieces[Below(random, std::size(kPieces))];
  return text;
}

inline Texts RandomTexts(Random& random, std::size_t count) {
  Texts texts(count);
  for (std::string& text : texts) text = RandomText(random);
  return texts;
}

inline std::vector<std::string_view> Views(const Texts& texts) { return {texts.begin(), texts.end()}; }

// One row of a table, from column 0 to the last.
inline Texts RowTexts(const MeasurementTable& table, MeasurementTable::Row row) {
  Texts texts;
  for (int col = 0; col < table.Cols(); ++col) texts.emplace_back(table.TextMatrix(row, col));
  return texts;
}

// All rows of a table but the entry row.
inline std::vector<Texts> AllTexts(const MeasurementTable& table) {
  std::vector<Texts> texts;
  for (MeasurementTable::Row row = 0; row < table.EntryRow(); ++row) texts.push_back(RowTexts(table, row));
  return texts;
}

inline std::string RowLine(const MeasurementTable& table, MeasurementTable::Row row, char separator) {
  std::string line;
  table.AppendLine(row, separator, line);
  return line;
}

inline std::string Joined(const Texts& texts, char separator) {
  std::string line;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) line += separator;
    line += texts[i];
  }
  return line;
}

// A measurement table as plain as it can be: what the real one is compared with. Row 0 holds the titles,
// there is no entry row, and every row has a text for every column.
struct NaiveTable {
  std::vector<Texts> rows{{"No.", "Time"}};

  std::size_t Cols() const { return rows.front().size(); }

  void AddDataColumn() {
    const std::string title = "Data" + std::to_string(Cols() - 1);
    for (Texts& row : rows) row.emplace_back();
    rows.front().back() = title;
  }

  void AppendRow(Texts cells) {
    while (Cols() < cells.size()) AddDataColumn();
    cells.resize(Cols());
    rows.push_back(std::move(cells));
  }

  void RemoveRows(std::size_t first, std::size_t last) {
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(first),
               rows.begin() + static_cast<std::ptrdiff_t>(last) + 1);
  }

  std::string TextMatrix(long long row, long long col) const {
    if (row < 0 || row >= static_cast<long long>(rows.size())) return {};
    if (col < 0 || col >= static_cast<long long>(Cols())) return {};
    return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
  }
};

}  // namespace quenlor::data
