// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "instrument/curve.h"

namespace quenlor::instrument {

// How a reading is written.
enum class LineForm {
  kVisco,      // 1234.5 mPa.s,25.1 C
  kBare,       // 1234.5,25.1
  kComma,      // 1234,5;25,1
  kSemicolon,  // 1234.5;25.1
  kNumbered,   // 7,1234.5,25.1   the first field counts the readings of the run
};

enum class Ack { kNone, kBefore, kOwnLine };

// What goes wrong on demand. Every count is one of readings of the run, the first being 1; 0 switches
// a fault off.
struct Faults {
  double late_seconds = 0;                    // everything leaves that much later
  std::int64_t missing_every = 0;             // every n-th reading is not sent
  std::int64_t garbage_every = 0;             // every n-th line is random bytes
  std::int64_t half_every = 0;                // every n-th line breaks off, without its end
  std::int64_t endless_from = 0;              // from the n-th reading on no line ends
  Ack ack = Ack::kNone;                       // before each reading
  std::int64_t burst = 1;                     // readings at once each interval, while streaming
  std::optional<std::int64_t> silence_after;  // after n readings nothing more; 0 never says a word
  std::int64_t hang_up_after = 0;             // after n readings the line is dropped, for good
  bool babble = false;                        // unknown commands are answered with a line of random bytes
};

struct ViscometerOptions {
  double interval = 1;     // seconds between streamed readings; 0 is as fast as the host takes them
  std::int64_t count = 0;  // streamed readings a run, 0 is without end; polls are answered beyond it
  Curve viscosity = Approach{1200, 300, 60};  // mPa.s
  Curve temperature = Approach{20, 25, 120};  // degrees Celsius
  double viscosity_noise = 0;                 // standard deviations, in the units above
  double temperature_noise = 0;
  std::uint64_t seed = 1;
  LineForm form = LineForm::kVisco;
  bool polls_after_stop = false;  // whether a poll between "STOP" and the next start word is answered
  Faults faults;
};

struct OptionsError {
  std::string text;  // what is wrong, for the person who wrote the options
};
using ParsedOptions = std::variant<ViscometerOptions, OptionsError>;

// Reads options as on a command line: "--interval", "0.5", or "--interval=0.5". Later options win over
// earlier ones.
ParsedOptions ParseOptions(const std::vector<std::string>& arguments);

// The same from one text, words separated by blanks.
ParsedOptions ParseOptionsText(std::string_view text);

// The part of a help text that explains the options, line by line.
std::string_view OptionsHelp();

}  // namespace quenlor::instrument
