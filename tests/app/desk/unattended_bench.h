// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/desk/unattended.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/test_clock.h"
#include "platform/memory/test_event_loop.h"

namespace quenlor::app {

// A measurement without a window, whose line, clock, disk and streams are a test's. The program folder is
// "/lab", the data file "/data/out.csv"; the clock shows 09:30:00. Without a word of the order nothing is
// sent.
struct UnattendedBench {
  platform::memory::TestClock clock{platform::memory::MomentAt(2026, 11, 21, 9, 30)};
  platform::memory::TestTimer Timer1{clock};
  platform::memory::TestTimer Timer2{clock};
  platform::memory::TestTimer turn{clock};
  platform::memory::TestEventLoop loop{clock};
  platform::memory::MemorySerialPort MSComm1;
  platform::memory::MemoryFileSystem files{&clock};
  UnattendedOrder order{.output = "/data/out.csv", .format = OutputFormat::kText, .options = {}};
  std::string output;               // standard output
  std::vector<std::string> errors;  // standard error, a line each
  platform::Done output_fails;
  platform::Done why_not_written;
  std::optional<ExitStatus> status;  // once it has ended
  std::unique_ptr<Unattended> unattended;

  UnattendedBench() {
    Choose(data::setting::kVisco, "0");
    Choose(data::setting::kRepeat, "0");
  }
  void Choose(int element, const std::string& text) { order.options.choices.emplace_back(element, text); }

  Unattended& Begin() {
    unattended.reset();
    unattended = std::make_unique<Unattended>(
        order, UnattendedPorts{.measurement = {MSComm1, clock, Timer1, Timer2, loop, files},
                               .turn = turn,
                               .place = {"/lab"},
                               .system_writes_comma = false,
                               .name_of_port = [](int) { return "/dev/ttyV1"; },
                               .why_not_written = [this](const std::string&) { return why_not_written; },
                               .write_standard_output =
                                   [this](std::string_view text) {
                                     if (!output_fails) output += text;
                                     return output_fails;
                                   },
                               .complain = [this](const std::string& line) { errors.push_back(line); }});
    unattended->Begin([this](ExitStatus how) { status = how; });
    return *unattended;
  }

  void Line(const std::string& text) { MSComm1.Feed(text + "\r"); }
  void Reading(const std::string& text) {
    Line(text);
    clock.Advance(1.0);
  }
  std::string Saved() const { return files.Content("/data/out.csv"); }
  std::string Log() const { return files.Content("/lab/Com_1.txt"); }
};

}  // namespace quenlor::app
