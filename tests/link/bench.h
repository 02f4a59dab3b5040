// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "data/data_file.h"
#include "data/document.h"
#include "data/settings_list.h"
#include "link/measurement.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/test_clock.h"
#include "platform/memory/test_event_loop.h"
#include "tests/link/table_text.h"

namespace quenlor::link {

namespace setting = data::setting;

// A measurement on a lab bench: the instrument, the clock and the disk are a test's to turn.
//
// It begins with an empty document of six columns, port 1 at 9600N81, "CR/LF", and every option off; the
// command box says "Q". The program folder is "/lab", and the clock shows noon of 15 March 2024.
class Bench : private MeasurementListener {
 public:
  Bench() {
    for (const auto& [element, value] : {std::pair{setting::kBPS, 4},
                                         {setting::kParity, 2},
                                         {setting::kLength, 1},
                                         {setting::kVisco, 0},
                                         {setting::kRepeat, 0},
                                         {setting::kTimeS, 0}}) {
      settings.Set(element, value);
    }
    New();
    measurement.SetCommandData("Q");
    measurement.AddListener(*this);
  }

  // What the operator chooses.
  void New() { Open(data::NewTemplate(true, 6)); }
  void Open(std::string data_file) {
    document.Load(data::ParseDataFile(std::move(data_file)), "New.csv", "");
  }
  void Visco() { settings.Set(setting::kVisco, 1); }
  void Repeat(std::string seconds, std::string command = "Q") {
    settings.Set(setting::kRepeat, 1);
    settings.Set(setting::kRepeatSeconds, std::move(seconds));
    measurement.SetCommandData(std::move(command));
  }
  void AutoStop(std::string minutes) {
    settings.Set(setting::kAutoStop, 1);
    settings.Set(setting::kAutoStopMinutes, std::move(minutes));
  }

  // Start, where nothing is in its way.
  void Start() {
    const auto failure = measurement.Start();
    ASSERT_FALSE(failure) << failure->reason;
  }

  // The instrument sends a line.
  void Line(std::string_view text) { port.Feed(std::string(text) + "\r"); }

  // A whole measurement that receives these lines.
  void Measure(const Texts& lines) {
    Start();
    for (const std::string& line : lines) Line(line);
    measurement.Stop();
  }

  void Advance(double seconds) { clock.Advance(seconds); }

  // The clock goes on, and nobody got a turn meanwhile.
  void Stall(double seconds) {
    data::Moment now = clock.Now();
    now.seconds += seconds;
    now.local_second += static_cast<std::int64_t>(seconds);
    clock.SetNow(now);
  }

  // Lets that many seconds go by; the moments, counted from now, at which something was sent meanwhile.
  std::vector<double> SendTimes(double seconds) {
    std::vector<double> times;
    port.TakeSent();
    for (int tick = 1; tick <= seconds * 20; ++tick) {
      clock.Advance(std::chrono::milliseconds{50});
      if (!port.TakeSent().empty()) times.push_back(tick / 20.0);
    }
    return times;
  }

  std::string TakeSent() { return port.TakeSent(); }

  // A measurement has ended with all that belongs to it.
  bool Stopped() const {
    return !port.PortOpen() && !measurement.Running() && !measurement.Stopping() && !Timer1.Enabled() &&
           !Timer2.Enabled();
  }

  std::string RawLogText(int number = 1) const {
    return files.Content("/lab/Com_" + std::to_string(number) + ".txt");
  }

  // The names, without the folder, of the raw logs that were set aside.
  Texts Copies() const {
    Texts names;
    for (const std::string& path : files.Paths()) {
      if (path.starts_with("/lab/Com_") && path.find('_', 9) != path.npos) names.push_back(path.substr(5));
    }
    return names;
  }

  // What the program told.
  Texts errors;    // the Error window's lines
  Texts received;  // the "Received Data" box, line after line
  Texts told;      // the status line
  int state_changes = 0;
  std::vector<Ending> endings;

  // What a test does, or looks at, in that very moment.
  std::function<void()> while_painting;
  std::function<void()> while_writing_the_raw_log;
  std::function<void()> on_state_change;
  std::function<void()> on_line;

 private:
  class PaintingLoop : public platform::memory::TestEventLoop {
   public:
    PaintingLoop(platform::memory::TestClock& test_clock, Bench& bench)
        : TestEventLoop(test_clock), bench_(bench) {}
    void Paint() override {
      TestEventLoop::Paint();
      if (bench_.while_painting) bench_.while_painting();
    }

   private:
    Bench& bench_;
  };

  class RewritingFiles : public platform::memory::MemoryFileSystem {
   public:
    RewritingFiles(const platform::Clock& test_clock, Bench& bench)
        : MemoryFileSystem(&test_clock), bench_(bench) {}
    platform::Done Replace(const std::string& path,
                           const std::function<void(platform::ByteSink&)>& write) override {
      if (bench_.while_writing_the_raw_log) bench_.while_writing_the_raw_log();
      return MemoryFileSystem::Replace(path, write);
    }

   private:
    Bench& bench_;
  };

  void StateChanged() override {
    ++state_changes;
    if (on_state_change) on_state_change();
  }
  void Ended(Ending why) override { endings.push_back(why); }
  void LineReceived(const std::string& line) override {
    received.push_back(line);
    if (on_line) on_line();
  }
  void ErrorLine(const std::string& line) override { errors.push_back(line); }
  void Told(const std::string& text) override { told.push_back(text); }

 public:
  data::SettingsList settings;
  platform::memory::TestClock clock;
  platform::memory::TestTimer Timer1{clock};
  platform::memory::TestTimer Timer2{clock};
  PaintingLoop loop{clock, *this};
  platform::memory::MemorySerialPort port;
  RewritingFiles files{clock, *this};
  data::Document document{settings};
  Measurement measurement{{port, clock, Timer1, Timer2, loop, files}, document, settings, "/lab"};
};

}  // namespace quenlor::link
