// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/document.h"
#include "data/settings_list.h"
#include "link/raw_log.h"
#include "platform/clock.h"
#include "platform/serial_port.h"

namespace quenlor::link {

// Turns what the serial port tells into readings and error lines.
//
// Characters gather in a line until its carriage return; then the line is stamped, split, appended to the
// document and to the raw log, all before the next character is looked at.
class Reception {
 public:
  // A line is kept up to this length; the rest of a longer one is dropped.
  static constexpr std::size_t kLongestLine = 8192;

  struct Answers {
    std::function<void()> line_begins;                      // the instrument has answered
    std::function<void(const std::string&)> line_received;  // the whole line, for the "Received Data" box
    std::function<void(const std::string&)> error;          // one line for the Error window
    std::function<void()> runs_used_up;                     // no run number is left for this line
  };

  Reception(platform::SerialPort& port, platform::Clock& clock, data::Document& document,
            const data::SettingsList& settings, RawLog& raw_log, Answers answers)
      : MSComm1_(port),
        clock_(clock),
        document_(document),
        settings_(settings),
        raw_log_(raw_log),
        answers_(std::move(answers)) {}

  // The port's event handler: received characters, errors of the line, and notifications that need no answer.
  void MSComm1_OnComm(int CommEvent);

  // Takes the characters that have come, whether or not they were told; nothing while characters are being
  // taken.
  void TakeWaiting();

  // A measurement begins: forgets a line that has begun, and what was counted.
  void Begin();

  std::uint64_t BytesReceived() const { return bytes_; }
  std::uint64_t LinesReceived() const { return lines_; }
  double LastByteAt() const { return last_byte_at_; }  // in the clock's time base; 0 before the first

 private:
  void ClearLine();
  void TakeCharacters(std::string_view Input);
  void Keep(std::string_view characters);
  bool ProcessLine();

  platform::SerialPort& MSComm1_;
  platform::Clock& clock_;
  data::Document& document_;
  const data::SettingsList& settings_;
  RawLog& raw_log_;
  Answers answers_;
  std::string LineBuffer;  // since the last carriage return
  bool taking_ = false;    // characters are being looked at
  bool line_cut_ = false;  // the line has been longer than can be kept
  std::vector<std::string> fields_;
  std::uint64_t bytes_ = 0;
  std::uint64_t lines_ = 0;
  double last_byte_at_ = 0;
};

}  // namespace quenlor::link
