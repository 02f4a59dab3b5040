// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file_writer.h"
#include "data/document.h"
#include "tests/data/naive_table.h"

namespace quenlor::data {

// 2024-02-29, shortly before midnight: whatever a test measures soon passes into another day and month.
inline constexpr double kStartSecond = 1709251200.0 - 30;

// So many seconds after the measurement's beginning.
inline Moment After(double seconds) {
  const double now = kStartSecond + seconds;
  return {now, static_cast<std::int64_t>(std::floor(now))};
}

// A document with the settings that it looks at.
struct Laboratory {
  SettingsList settings;
  Document document{settings};

  Laboratory() { settings.Set(setting::kTimeS, 1); }

  void Open(std::string bytes) {
    document.Load(ParseDataFile(std::move(bytes)), "file.csv", "2002/03/20 12:00:00");
  }

  std::string Bytes() const {
    std::string bytes;
    WriteDataFile(document, settings, [&](std::string_view piece) { bytes += piece; });
    return bytes;
  }

  bool Append(std::initializer_list<std::string_view> fields, double seconds) {
    return document.AppendReading(std::vector<std::string_view>(fields), After(seconds));
  }

  // A run of its own with one reading.
  bool AppendRun(std::initializer_list<std::string_view> fields = {"1", "2"}, double seconds = 0) {
    document.BeginMeasurement();
    return Append(fields, seconds);
  }

  Texts Row(Document::Row row) const { return RowTexts(document.Grid1(), row); }

  Texts Run(int run) const {
    Texts texts;
    for (int col = 0; col < document.Grid4().Cols(); ++col)
      texts.emplace_back(document.Grid4().TextMatrix(run, col));
    return texts;
  }
};

// Writes down what it is told, one line each.
struct WritingListener : DocumentListener {
  Texts heard;

  void ReadingAppended(Row row) override { heard.push_back("reading " + std::to_string(row)); }
  void RowsRemoved(Row first, Row last) override {
    heard.push_back("removed " + std::to_string(first) + " to " + std::to_string(last));
  }
  void CellChanged(Row row, int col) override {
    heard.push_back("cell " + std::to_string(row) + ',' + std::to_string(col));
  }
  void ColumnsChanged() override { heard.push_back("columns"); }
  void RunsChanged() override { heard.push_back("runs"); }
  void HeaderChanged() override { heard.push_back("header"); }
  void DocumentReplaced() override { heard.push_back("replaced"); }
};

}  // namespace quenlor::data
