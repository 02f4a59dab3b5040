// SPDX-License-Identifier: MIT
#pragma once

namespace quenlor::app {

// Whether one and a half is "1,5" to this system.
bool SystemWritesComma();

}  // namespace quenlor::app
