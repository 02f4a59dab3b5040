// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/measurement_table.h"
#include "data/progress.h"
#include "data/run_table.h"
#include "data/settings_list.h"
#include "data/utf8.h"

namespace quenlor::data {

// What an Axis line says: its numbers, and the items of the menus as they stand. Empty is what it does not
// say.
struct AxisValues {
  std::optional<double> ViscoColumn, TempColumn;
  std::optional<double> TimeMin, TimeMax, ViscoMin, ViscoMax, TempMin, TempMax;
  std::optional<double> ViscoLogMin, ViscoLogMax;
  std::optional<std::string> TimeS, mLog, LW, MK;
};

// What a data file holds, before it becomes the open document.
//
// A data file is lines of fields: title row and readings, then "Info" lines (the run table), one "Axis" line,
// one "Date" line, one "Memo" line, and free memo lines to the end. Nothing is quoted.
// A reading whose number is followed by the other of "," and ";" is divided by that: the separator may have
// changed while the file was written.
struct DataFileContents {
  char separator = ',';
  bool holds_commas = false;  // some field has a "," in it
  MeasurementTable table;
  RunTable runs;
  int run_count = 0;                   // the highest run number seen, up to 32767
  std::optional<std::string> date;     // the Date line's text
  std::optional<std::string> remarks;  // the Memo line's text, blanks restored
  AxisValues axis;
  std::vector<std::string> List2;               // the memo lines, byte for byte
  TextEncoding encoding = TextEncoding::kUtf8;  // of everything before them
};

// Reads the bytes of a data file. Whatever they are, something is read and nothing fails; bytes that are
// not UTF-8 count as Latin-1, but for the memo lines, which nobody reads here. The bytes become the table's
// store, so reading costs little more than one pass over them.
DataFileContents ParseDataFile(std::string bytes);

// The same, told of on its way; nothing when it was left.
std::optional<DataFileContents> ParseDataFile(std::string bytes, const Progress& progress);

// The settings that an Axis line carries: time scale, visco axis, line and marker. A field that names no
// menu item becomes the setting as it stands, and no item is checked.
void ApplyAxisSettings(const AxisValues& axis, SettingsList& settings);

// The one title line of the template of a new document: eight-bit text ended by CR LF, always divided by ",".
// `field_count` is the configured number of fields per reading; from the seventh field on they are "Data5",
// "Data6" ….
std::string NewTemplate(bool visco_view, int field_count);

}  // namespace quenlor::data
