// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>

#include "tests/app/window/window_bench.h"

namespace quenlor::actions {

// How often the table holds each numbered reading, and how often it ever has: a document to which its own
// file is appended holds them twice.
class HeldReadings {
 public:
  void Note(const data::MeasurementTable& table);
  const std::multiset<int>& Now() const { return now_; }
  std::size_t Most(int number) const { return most_.at(number); }

 private:
  std::multiset<int> now_;
  std::map<int, std::size_t> most_;
};

// What holds after whatever was done. Each throws fuzz::BrokenPromise when it does not.

// Button, menus and port tell the same, nothing waits, and no pointer is left busy.
void CheckState(app::WindowBench& bench);

// What is shown in the tables and drawn by the graph is what the document holds.
void CheckViews(app::WindowBench& bench);

// Every numbered reading of the table stands in the raw log of the measurement that runs, as often as there.
// A row that is removed from the table stays in the log.
void CheckRawLog(app::WindowBench& bench, const HeldReadings& held);

// A data file that was written reads back as the table.
void CheckSaved(app::WindowBench& bench, const std::string& path);

// The first field of every reading that is sent, so that it can be found again wherever it is.
std::string NumberedReading(int number);
std::multiset<int> NumbersIn(const std::string& text);

std::string TableText(const data::MeasurementTable& table, char divider = '|');

}  // namespace quenlor::actions
