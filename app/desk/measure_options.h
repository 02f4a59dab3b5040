// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/settings_list.h"

namespace quenlor::app {

enum class OutputFormat { kText, kCsv, kJson };  // of what a command prints

// How a measurement without a window differs from what the settings say, and how it ends.
struct MeasureOptions {
  std::vector<std::pair<int, std::string>> choices;  // elements of the settings list, for this call alone
  std::optional<std::string> command;                // else the last one of the command list
  std::string settings_file;                         // else the folder's
  std::optional<std::int64_t> readings;              // that end a run
  std::optional<double> minutes;                     // from a run's start to its end
  int runs = 1;
  double pause = 0;           // seconds between two runs
  bool wait_on_loss = false;  // for a device that went away; else that is the end
  bool quiet = false;         // no word on standard error but of failures
};

// One of the options that only a measurement without a window has.
bool IsMeasureOption(std::string_view option);
bool MeasureOptionTakesValue(std::string_view option);

// Takes it; what is wrong, in one line, or nothing. The words are those of the menus.
std::string TakeMeasureOption(const std::string& option, const std::string& value, MeasureOptions& options);

// Makes the choices in the settings; what is wrong with the whole by then, in one line, or nothing.
std::string ApplyMeasureOptions(const MeasureOptions& options, data::SettingsList& settings);

}  // namespace quenlor::app
