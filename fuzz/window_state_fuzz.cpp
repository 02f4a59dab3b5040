// SPDX-License-Identifier: MIT
#include <cmath>

#include "app/window/window_state.h"
#include "fuzz/promise.h"
#include "fuzz/targets.h"

namespace quenlor::fuzz {

void WindowState(std::string_view input) {
  const auto state = app::WindowState::Parse(input);
  if (!state) return;
  Check(!state->geometry.isEmpty(), "a window stood somewhere");
  Check(std::isfinite(state->posi_left), "the bar stood somewhere");

  const auto again = app::WindowState::Parse(state->Text());
  Check(again.has_value() && again->geometry == state->geometry, "a place that is written reads as it was");
  Check(std::abs(again->posi_left - state->posi_left) <= 1e-12 * std::abs(state->posi_left),
        "a bar that is written reads as it was, to as many digits as are written");
}

}  // namespace quenlor::fuzz
