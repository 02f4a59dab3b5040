// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <string_view>

namespace quenlor::app {

bool IsTerminal(std::FILE* stream);

// Shows UTF-8 whatever the terminal takes. False when it did not take all.
bool WriteToTerminal(std::FILE* terminal, std::string_view text);

}  // namespace quenlor::app
