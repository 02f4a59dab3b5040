// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "reports/statistics.h"

namespace quenlor::reports {

// The statistics of one document, with what they are captioned with; all of it belongs to somebody else.
struct StatisticsSheet {
  std::string_view file_name;
  std::string_view date;
  const StatisticsTable& table;
};

// Whether a cell beside the row titles stands at the right of its column: a figure does, be it a number or a
// time, and the title of a column that begins with one.
bool StandsRight(const StatisticsTable& table, StatisticsTable::Row row, int col);

// For the clipboard: the file name, the date and every row of the table as a line each, ended by CR LF. Every
// cell has a TAB before it, so that the row titles stand in the second column of a spreadsheet.
std::string ClipboardText(const StatisticsSheet& sheet);

// For scripts: one block of comma-separated lines (RFC 4180, but ended by LF), to be appended to those of
// other documents.
//
//   File,Date,No.,Time,Viscosity        the table's titles, which may differ from block to block
//   a.csv,2024/03/05 10:00:00,1,00:10:00,12.5
//   a.csv,2024/03/05 10:00:00,Maximum,00:10:00,12.5
//
// The table is one built with "." as the decimal point. Always valid UTF-8.
void AppendCsv(const StatisticsSheet& sheet, std::string& text);

// For scripts: an array of one object a document, each on lines of its own.
//
//   {"file": "a.csv", "date": "2024/03/05 10:00:00", "columns": ["No.", "Time", "Viscosity", "Temp"],
//    "runs": [{"label": "1", "cells": ["00:10:00", "12.5", "25.0"]}],
//    "statistics": {"time": {"column": 1, "maximum": 600, "minimum": 600, "average": 600,
//                            "standard_deviation": null}, "viscosity": {...}, "temperature": {...}}}
//
// "cells" begin with column 1 and are the readings' texts. Times are in seconds; numbers are written with as
// many digits as it takes to read the same number back. What there is none of is null. Always valid UTF-8.
std::string JsonText(std::span<const StatisticsSheet> sheets);

}  // namespace quenlor::reports
