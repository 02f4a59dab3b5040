// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace quenlor::bench {

// What became of a program that was run to its end.
struct Ran {
  double seconds = 0;                // until it ended
  double seconds_to_first_line = 0;  // until its first line of output
  std::string output;
  int exit_code = -1;
};

// Runs the program of that path with those arguments.
Ran Run(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace quenlor::bench
