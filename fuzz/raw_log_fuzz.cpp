// SPDX-License-Identifier: MIT
#include <set>

#include "data/data_file.h"
#include "data/text_lines.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/raw_log.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/test_clock.h"

namespace quenlor::fuzz {
namespace {

constexpr char kLog[] = "/lab/Com_1.txt";
constexpr std::int64_t kMostCells = 20'000;

// Columns that came later, and the separator, may differ between a line on the disk and one of the table.
std::string_view WithoutEmptyEnd(std::string_view line) {
  return line.substr(0, line.find_last_not_of(",;") + 1);
}

std::set<std::string> LinesOf(const data::MeasurementTable& table) {
  std::set<std::string> lines;
  for (data::MeasurementTable::Row row = 1; row < table.EntryRow(); ++row) {
    for (const char separator : {',', ';'}) {
      std::string line;
      table.AppendLine(row, separator, line);
      lines.emplace(WithoutEmptyEnd(line));
    }
  }
  return lines;
}

bool HoldsReadingsBeside(std::string_view log, const data::MeasurementTable& table) {
  const auto in_table = LinesOf(table);
  data::TextLines lines(log);
  while (const auto line = lines.Next()) {
    const auto reading = WithoutEmptyEnd(*line);
    if (reading.empty() || line->starts_with("No.,") || line->starts_with("No.;")) continue;
    if (!in_table.contains(std::string(reading))) return true;
  }
  return false;
}

bool HasCopy(const platform::memory::MemoryFileSystem& files, const std::string& log) {
  for (const std::string& path : files.Paths()) {
    if (path != kLog && path.ends_with(".txt") && files.Content(path) == log) return true;
  }
  return false;
}

}  // namespace

// The input is the log that a measurement finds, then a line "--", then the data file that is open; without
// that line the log itself is open.
void RawLog(std::string_view input) {
  constexpr std::string_view kDivider = "\n--\n";
  const auto divider = input.find(kDivider);
  const std::string log(input.substr(0, divider));
  const std::string open(divider == input.npos ? input : input.substr(divider + kDivider.size()));

  auto contents = data::ParseDataFile(open);
  if (contents.table.Rows() * contents.table.Cols() > kMostCells) return;
  const data::SettingsList settings;
  data::Document document(settings);
  document.Load(std::move(contents), "file.csv", "");

  platform::memory::TestClock clock;
  platform::memory::MemoryFileSystem files(&clock);
  files.Put(kLog, log);
  link::RawLog raw_log(files, clock, document, "/lab", [](const std::string&) {});
  Check(!raw_log.RewriteRawLog(1), "a log can be begun over any file");
  Check(!HoldsReadingsBeside(log, document.Grid1()) || HasCopy(files, log),
        "readings that the table does not hold are set aside");

  // A log of this table is no reason for another copy.
  const auto paths = files.Paths();
  raw_log.Close();
  Check(!raw_log.RewriteRawLog(1), "a log can be begun again");
  Check(files.Paths() == paths, "a log that holds the table alone is rewritten in its place");
}

}  // namespace quenlor::fuzz
