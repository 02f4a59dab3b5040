// SPDX-License-Identifier: MIT
#include <algorithm>

#include "app/command_line.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "link/port_settings.h"

namespace quenlor::fuzz {
namespace {

using app::Task;

constexpr int kLargestPicture = 32767;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    lines.emplace_back(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(lines.back().size() + 1, text.size()));
  }
  return lines;
}

void CheckBatch(const app::CommandLine& line) {
  const app::BatchOptions& batch = line.batch;
  const auto standard_inputs = std::ranges::count(line.files, "-");
  Check(batch.output.empty() == (batch.task == Task::kWindow || batch.task == Task::kStatistics),
        "a report and a picture have an output");
  for (const int side : {batch.width, batch.height})
    Check(side >= 1 && side <= kLargestPicture, "a picture can be made");
  if (batch.task == Task::kWindow) {
    Check(line.files.size() <= 1 && standard_inputs == 0, "the window opens at most one file of the disk");
  } else if (batch.task == Task::kMeasure) {
    Check(line.files.empty(), "a measurement reads no file");
    Check(batch.measure.runs >= 1 && batch.measure.pause >= 0, "there are runs, one after the other");
    Check(batch.measure.readings.value_or(1) >= 1 && batch.measure.minutes.value_or(1) > 0,
          "a run has a length");
    data::SettingsList settings;
    if (!ApplyMeasureOptions(batch.measure, settings).empty()) return;
    Check(link::ApplyPortSettings(settings).has_value(), "what was chosen is an item of its menu");
  } else {
    Check(!line.files.empty() && standard_inputs <= 1, "a batch command reads files, each of them once");
    Check(batch.task != Task::kGraph || line.files.size() == 1, "a picture is that of one file");
  }
}

}  // namespace

// An argument a line.
void CommandLine(std::string_view input) {
  const app::CommandLine line = app::ParseCommandLine(Lines(input));
  Check(line.error.find('\n') == line.error.npos, "an error is one line");
  if (!line.error.empty()) return;
  for (const auto& [port, device] : line.ports) Check(port >= 1 && !device.empty(), "a port has a device");
  for (const int port : line.virtual_ports) Check(port >= 1, "port numbers begin with 1");
  for (const std::string& file : line.files) Check(!file.empty(), "a file has a name");
  if (!line.help && !line.version) CheckBatch(line);
}

}  // namespace quenlor::fuzz
