// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/measurement_table.h"
#include "data/run_table.h"

namespace quenlor::data {

// The limits of the graph's axes; time in seconds, the logarithmic viscosity axis in decade exponents.
struct AxisRanges {
  double TimeMin = 0;
  double TimeMax = 180;
  double ViscoMin = 0;
  double ViscoMax = 100;
  double TempMin = 0;
  double TempMax = 100;
  std::int16_t ViscoLogMin = 0;
  std::int16_t ViscoLogMax = 2;
};

// What a data file holds, before it becomes the open document.
//
// A data file is lines of fields: title row and readings, then "Info" lines (the run table), one "Axis" line,
// one "Date" line, one "Memo" line, and free memo lines to the end. Nothing is quoted.
struct DataFileContents {
  char separator = ',';
  bool holds_commas = false;  // some field has a "," in it
  MeasurementTable table;
  RunTable runs;
  int run_count = 0;                   // the highest run number seen, up to 32767
  std::optional<std::string> date;     // the Date line's text
  std::optional<std::string> remarks;  // the Memo line's text, blanks restored
  std::vector<std::string> axis;       // the Axis line's fields; empty when there is none
  std::vector<std::string> List2;      // the memo lines
};

// Reads the bytes of a data file. Whatever they are, something is read and nothing fails; bytes that are
// not UTF-8 count as Latin-1. The bytes become the table's store, so reading costs little more than one
// pass over them.
DataFileContents ParseDataFile(std::string bytes);

// The fields of one line of text. `List1` of a document is what this gives.
std::vector<std::string> SplitFields(std::string_view line, char separator);

// The one title line of the template of a new document: eight-bit text ended by CR LF, always divided by ",".
// `field_count` is the configured number of fields per reading; from the seventh field on they are "Data5",
// "Data6" ….
std::string NewTemplate(bool visco_view, int field_count);

}  // namespace quenlor::data
