// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "app/desk/session.h"
#include "data/count_text.h"
#include "link/measurement.h"
#include "platform/clock.h"

namespace quenlor::app {

// What the status line shows, field by field; an empty one is not shown.
struct StatusFields {
  enum class Tone { kIdle, kRunning, kWarning };

  std::string message;   // what was said last; while measuring, what is waited for
  std::string state;     // "Measuring", "Stopped", or why and when the last measurement ended
  std::string errors;    // "3 line errors, last 14:57:12"
  std::string port;      // "Port 1 ttyUSB0 · 2400 E71 CR/LF": in use, or what Start would use
  std::string run;       // "Run 5 · 108 readings · 00:08:59"
  std::string ages;      // "last 0.8 s · next in 4 s"
  std::string document;  // "resin.csv · 108 unsaved readings · 1 gap, about 2 readings missing"
  Tone tone = Tone::kIdle;
  bool running = false;
};

// A device as it is told apart from others: "ttyUSB0", "pts/2".
std::string_view ShortDeviceName(std::string_view device);

// Knows at any time what goes on, in words: the measurement, the document, and what was said last.
//
// Nothing is worked out before it is asked for, so a reading costs nothing here. The reason of an end stays
// until the next Start, whatever is said meanwhile.
class Status : private link::MeasurementListener, private data::DocumentListener {
 public:
  // `name_of_port` tells the device behind a number; empty when there is none.
  Status(Session& session, link::Measurement& measurement, const platform::Clock& clock,
         std::function<std::string(int port)> name_of_port);
  ~Status() override;
  Status(const Status&) = delete;
  Status& operator=(const Status&) = delete;

  // Replaces what was said before. While a measurement runs it gives way, after a while, to what is waited
  // for.
  void Say(std::string text);
  const std::string& Said() const { return said_; }

  StatusFields Fields() const;
  // The last end in a sentence; empty before the first, and while a measurement runs.
  const std::string& LastEnd() const { return end_sentence_; }
  // Says why Start was refused, and which devices are there instead of a missing one.
  void StartRefused(const platform::OpenFailure& failure);

  // Ports may have other devices now.
  void DevicesFound() { Changed(); }

  // Called when a field may be another one without time having passed.
  void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  double Now() const { return clock_.Now().seconds; }
  std::string ClockTime() const { return data::TimeText(clock_.Now().local_second); }
  void Changed() const {
    if (changed_) changed_();
  }
  std::string DevicesThere() const;
  std::string WaitsFor(double now) const;
  std::string PortField() const;
  std::string DeviceText(int port) const;
  std::string RunField() const;
  std::string AgesField(double now) const;
  std::string DocumentField() const;

  void StateChanged() override { Changed(); }
  void Started() override;
  void Ended(link::Ending why) override;
  void ErrorLine(const std::string& line) override;
  void Told(const std::string& text) override;
  void ReadingAppended(Row) override { ++readings_; }
  void RowsRemoved(Row, Row) override { Changed(); }
  void RowsRestored(Row, Row) override { Changed(); }
  void DocumentReplaced() override;
  void DocumentSaved() override { Changed(); }
  void HeaderChanged() override { Changed(); }

  Session& session_;
  link::Measurement& measurement_;
  const platform::Clock& clock_;
  std::function<std::string(int)> name_of_port_;
  std::function<void()> changed_;
  std::string said_;
  double said_at_ = 0;
  std::string end_;            // short, for the field
  std::string end_sentence_;   // whole
  std::string log_trouble_;    // while readings are missing in the raw log
  std::int64_t readings_ = 0;  // of this measurement
  int line_errors_ = 0;        // of this measurement
  bool line_damaged_ = false;  // framing or parity, which wrong settings cause
  std::string last_error_time_;
};

using data::CountText;

}  // namespace quenlor::app
