// SPDX-License-Identifier: MIT
#include "data/count_text.h"

namespace quenlor::data {

std::string CountText(std::int64_t count, const std::string& one, const std::string& many) {
  std::string digits = std::to_string(count);
  for (int at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3)
    digits.insert(static_cast<std::size_t>(at), 1, ',');
  return digits + ' ' + (count == 1 ? one : many);
}

}  // namespace quenlor::data
