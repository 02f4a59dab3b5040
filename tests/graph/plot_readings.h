// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "data/measurement_table.h"
#include "graph/value_arrays.h"

namespace quenlor::graph {

struct TestReading {
  int run = 1;
  double time = 0;
  double visco = 0;
  double temp = 0;
};

inline constexpr int kViscoColumn = 2;
inline constexpr int kTempColumn = 3;

// So that the number comes back as it was.
inline std::string CellText(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

inline void Append(data::MeasurementTable& table, const TestReading& reading) {
  const std::string cells[] = {std::to_string(reading.run), CellText(reading.time), CellText(reading.visco),
                               CellText(reading.temp)};
  table.AppendRow(std::vector<std::string_view>(std::begin(cells), std::end(cells)));
}

inline data::MeasurementTable TableOf(const std::vector<TestReading>& readings) {
  data::MeasurementTable table;
  for (const TestReading& reading : readings) Append(table, reading);
  return table;
}

inline void CopyAll(ValueArrays& values, const data::MeasurementTable& table) {
  values.CopyAll_Time(table);
  values.CopyAll_Visco(table, kViscoColumn);
  values.CopyAll_Temp(table, kTempColumn);
}

inline void CopyNewest(ValueArrays& values, const data::MeasurementTable& table) {
  const data::MeasurementTable::Row row = table.EntryRow() - 1;
  values.Copy_Time(table, row);
  values.Copy_Visco(table, row, kViscoColumn);
  values.Copy_Temp(table, row, kTempColumn);
}

inline ValueArrays ValuesOf(const std::vector<TestReading>& readings) {
  ValueArrays values;
  CopyAll(values, TableOf(readings));
  return values;
}

}  // namespace quenlor::graph
