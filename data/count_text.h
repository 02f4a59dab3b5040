// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quenlor::data {

// "1 reading", "10,000,000 readings".
std::string CountText(std::int64_t count, const std::string& one, const std::string& many);

}  // namespace quenlor::data
