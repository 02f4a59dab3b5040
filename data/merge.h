// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "data/data_file.h"

namespace quenlor::data {

// Calls the runs of a file that have only their number after the file, without its ending: "monday" where it
// has one run, else "monday No.2".
void NameRunsAfterFile(DataFileContents& file, std::string_view file_name);

// Whether there are numbers for all of its runs behind that one.
bool HasNumbersFor(const DataFileContents& file, int run_count);

// Adds the readings and runs of a file behind those of a document's tables; the highest run number then.
//
// Its runs that have readings get the next numbers, in their order, and keep their names. Columns are found
// by their titles, and those that are not there are added; what would need more columns than there can be is
// left out. A reading without a run stays one. The numbers suffice.
int AppendRuns(DataFileContents&& file, MeasurementTable& table, RunTable& runs, int run_count);

// Adds a file to another one: its runs, named and behind the others as above, its date, which is that of the
// newest reading then, and its memo lines. What it says of axes and remarks is left. False, and nothing
// changed, when the run numbers do not suffice.
bool AppendFile(DataFileContents&& file, std::string_view file_name, DataFileContents& to);

}  // namespace quenlor::data
