// SPDX-License-Identifier: MIT
#pragma once

namespace quenlor::platform::qt {

// The waiting pointer over all windows; as often as it is shown it has to be taken away. For BusyPointer.
void ShowBusyPointer(bool busy);

}  // namespace quenlor::platform::qt
