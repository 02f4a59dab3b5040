// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "instrument/noise.h"
#include "instrument/viscometer_options.h"

namespace quenlor::instrument {

// A viscometer without glass and steel: commands and a clock in, lines of readings out.
//
// "QUENLOR" or "START" begins a run: the n-th reading is due n intervals later, whenever the host looks. The
// first poll ("Q" or "QM") ends the streaming; from then on each poll brings one reading. "STOP" ends the run
// and drops what has not left yet; then only a start word wakes the instrument again, or a poll where the
// option `polls_after_stop` says so. Before its first start word it answers polls, since a logger may work
// with polls alone; the first one begins a run of its own. Commands end at a carriage return; any other is
// ignored.
//
// Times are seconds of any clock that does not go back. Output and memory are bounded whatever the host does.
class Viscometer {
 public:
  explicit Viscometer(const ViscometerOptions& options);

  // Takes bytes from the line, in any chunks. What was due before `now_seconds` leaves before
  // their commands count.
  void Receive(std::string_view bytes, double now_seconds);

  // Takes what has left the instrument by now, but at most about 64 KiB (4 KiB at interval 0) at a time: as
  // long as more is due, NextDue() lies in the past. At interval 0 that never ends, so call once a turn.
  std::string Emit(double now_seconds);

  // When Emit will have something to give, or nothing when only a command can change that.
  std::optional<double> NextDue() const;

  // The line is dropped, and everything that was sent before has been taken. Never takes a command again.
  bool HungUp() const { return dropped_ && output_.empty(); }

 private:
  enum class Mode { kUntouched, kStreaming, kPolled, kStopped };

  void Obey(std::string_view command);
  void BeginRun(Mode mode);
  void TakePoll();
  void Advance();
  bool Mute() const;
  bool FullSpeed() const;
  std::optional<double> ReadingDue() const;
  double StreamSeconds() const;
  void AddReading(double run_seconds);
  std::string ReadingText(double run_seconds);
  std::string GarbageText();

  const ViscometerOptions options_;
  Noise noise_;
  Noise fault_noise_;  // its own, so that faults do not change the readings
  std::string command_;
  std::string output_;
  std::deque<double> polls_;  // when those came that wait for their answer; empty while streaming
  Mode mode_ = Mode::kUntouched;
  double now_ = 0;
  double run_start_ = 0;
  std::int64_t number_ = 0;  // of the last reading of the run
  bool dropped_ = false;
};

}  // namespace quenlor::instrument
