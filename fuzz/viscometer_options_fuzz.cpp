// SPDX-License-Identifier: MIT
#include <cmath>

#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "instrument/viscometer_options.h"

namespace quenlor::fuzz {
namespace {

void CheckOptions(const instrument::ViscometerOptions& options) {
  const instrument::Faults& faults = options.faults;
  for (const double number :
       {options.interval, options.viscosity_noise, options.temperature_noise, faults.late_seconds}) {
    Check(number >= 0 && number <= 1e9, "a time or a deviation is between 0 and 1e9");
  }
  for (const std::int64_t count :
       {options.count, faults.missing_every, faults.garbage_every, faults.half_every, faults.endless_from,
        faults.hang_up_after, faults.silence_after.value_or(0)}) {
    Check(count >= 0, "a count is not below 0");
  }
  Check(faults.burst >= 1, "a burst is at least one reading");
  for (const double seconds : {0.0, 1.0, 1e6}) {
    Check(std::isfinite(instrument::ValueAt(options.viscosity, seconds)) &&
              std::isfinite(instrument::ValueAt(options.temperature, seconds)),
          "a curve is finite");
  }
}

}  // namespace

void ViscometerOptions(std::string_view input) {
  const auto parsed = instrument::ParseOptionsText(input);
  if (const auto* const error = std::get_if<instrument::OptionsError>(&parsed)) {
    Check(!error->text.empty(), "an error says what is wrong");
  } else {
    CheckOptions(std::get<instrument::ViscometerOptions>(parsed));
  }
}

}  // namespace quenlor::fuzz
