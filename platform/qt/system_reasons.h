// SPDX-License-Identifier: MIT
#pragma once

namespace quenlor::platform::qt {

// The system's reasons for a failure ("No space left on device") stand within sentences of the program, which
// has one language; from now on they come in it, too. To be called when the application object exists: that
// takes over all of the user's locale.
void SystemReasonsInEnglish();

}  // namespace quenlor::platform::qt
