// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace quenlor::tests {

// The event loop turns until nothing more follows from what has happened so far; a line that never comes to
// rest is served, too, and does not keep it.
inline void TakeTurns() {
  constexpr int kTurns = 200;
  for (int turn = 0; turn < kTurns; ++turn) QCoreApplication::processEvents();
}

}  // namespace quenlor::tests
