// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include "fuzz/promise.h"
#include "fuzz/targets.h"
#include "platform/line_settings.h"

namespace quenlor::fuzz {

void LineSettings(std::string_view input) {
  const auto settings = platform::ParseLineSettings(input);
  if (!settings) return;
  Check(settings->speed > 0, "a line has a speed");
  const char* const stop_bits = settings->stop_bits == platform::StopBits::kOne   ? "1"
                                : settings->stop_bits == platform::StopBits::kTwo ? "2"
                                                                                  : "1.5";
  const std::string text =
      std::to_string(settings->speed) + settings->parity + std::to_string(settings->data_bits) + stop_bits;
  const auto zeros = std::min(input.find_first_not_of('0'), input.size());
  Check(text == input.substr(zeros), "what was understood is what the text says");
}

}  // namespace quenlor::fuzz
