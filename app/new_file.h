// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/result.h"

namespace quenlor::app {

// Why no file of readings can be begun under that name, as far as it can be known before: there is no folder
// for it, or a file already, whose readings would be lost; nobody could be asked. A pipe or a device may be
// there.
platform::Done WhyNoNewFile(const std::string& path);

}  // namespace quenlor::app
