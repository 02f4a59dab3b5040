// SPDX-License-Identifier: MIT
#include <algorithm>

#include "data/text_number.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "instrument/viscometer.h"

namespace quenlor::fuzz {
namespace {

constexpr std::size_t kMostOutput = 65536 + 1024;  // the limit, and the line that passes it
constexpr double kLongestPause = 1e6;              // seconds

void CheckDue(const instrument::Viscometer& viscometer) {
  if (viscometer.HungUp()) Check(!viscometer.NextDue(), "a dropped line has nothing to come");
}

}  // namespace

// The input's first line is the options. Each line that follows begins with the seconds that go by before the
// rest of it is sent, as it is: a command ends at a carriage return before the line's end.
void Viscometer(std::string_view input) {
  const auto first_end = std::min(input.find('\n'), input.size());
  const auto parsed = instrument::ParseOptionsText(input.substr(0, first_end));
  const auto* const options = std::get_if<instrument::ViscometerOptions>(&parsed);
  if (!options) return;
  instrument::Viscometer viscometer(*options);
  instrument::Viscometer byte_by_byte(*options);

  double now = 1000;
  for (auto rest = input.substr(std::min(first_end + 1, input.size())); !rest.empty();) {
    const auto line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    now += std::clamp(data::C_Val(line), 0.0, kLongestPause);
    const auto sent = line.substr(std::min(line.find_first_not_of("0123456789. "), line.size()));

    viscometer.Receive(sent, now);
    for (const char& c : sent) byte_by_byte.Receive({&c, 1}, now);
    const bool was_hung_up = viscometer.HungUp();
    const std::string output = viscometer.Emit(now);
    Check(output.size() <= kMostOutput, "output is bounded");
    Check(output == byte_by_byte.Emit(now), "chunks do not change the answer");
    Check(viscometer.NextDue() == byte_by_byte.NextDue(), "chunks do not change what is due");
    Check(!was_hung_up || output.empty(), "a dropped line is silent");
    CheckDue(viscometer);
  }
}

}  // namespace quenlor::fuzz
