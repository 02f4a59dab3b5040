// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace quenlor::bench {

struct PlainColumns {
  std::vector<double> time;
  std::vector<double> visco;
  std::vector<double> temp;
};

// What reading a data file costs at the least: one pass that finds lines and fields and keeps three numbers
// of each reading, nothing else. It trusts the file to have six columns.
PlainColumns ParsePlainly(std::string_view bytes, std::size_t readings);

}  // namespace quenlor::bench
