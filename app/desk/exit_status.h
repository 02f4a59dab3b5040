// SPDX-License-Identifier: MIT
#pragma once

namespace quenlor::app {

// How a command without a window ends, for the script that called it.
enum class ExitStatus {
  kDone = 0,
  kWrongUsage = 2,
  kCannotRead = 3,
  kCannotOpen = 3,  // the port of a measurement
  kCannotWrite = 4,
  kMeasurementLost = 5,  // ended by the watchdog, a lost device, or the last run number
};

}  // namespace quenlor::app
