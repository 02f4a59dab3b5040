// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "app/desk/document_commands.h"
#include "app/desk/session.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/scripted_dialogs.h"
#include "platform/memory/test_clock.h"
#include "platform/memory/test_event_loop.h"

namespace quenlor::app {

// A session and its commands, whose line, clock, disk and boxes are a test's. The program folder is "/lab".
template <class Disk>
struct DeskBenchOn : private DocumentCommandsView {
  platform::memory::TestClock clock{platform::memory::MomentAt(2026, 11, 21, 9, 30)};
  platform::memory::TestTimer Timer1{clock};
  platform::memory::TestTimer Timer2{clock};
  platform::memory::TestEventLoop loop{clock};
  platform::memory::MemorySerialPort MSComm1;
  Disk files{&clock};
  platform::memory::ScriptedDialogs dialogs;
  Session session{files, {"/lab"}, false};
  link::Measurement measurement{
      {MSComm1, clock, Timer1, Timer2, loop, files}, session.Document(), session.List(), "/lab"};
  DocumentCommands commands{session, measurement, dialogs, *this};

  // What the commands showed.
  std::vector<std::string> said;
  int busy = 0;
  int choices_shown = 0;
  int received_data_cleared = 0;
  std::vector<double> parts;  // how far long works had come

  // The operator leaves a long work as soon as it has come so far.
  double leaves_at = 2;

  // A measurement that receives these lines and is stopped.
  void Measure(const std::vector<std::string>& lines) {
    session.List().Set(data::setting::kVisco, 0);
    measurement.Start();
    for (const std::string& line : lines) MSComm1.Feed(line + "\r");
    measurement.Stop();
  }

 private:
  void Say(const std::string& text) override { said.push_back(text); }
  void Busy(bool on) override { busy += on ? 1 : -1; }
  bool Progress(const std::string&, double part, bool may_leave) override {
    parts.push_back(part);
    return !may_leave || part < leaves_at;
  }
  void ShowChoices() override { ++choices_shown; }
  void ClearReceivedData() override { ++received_data_cleared; }
};

using DeskBench = DeskBenchOn<platform::memory::MemoryFileSystem>;

}  // namespace quenlor::app
