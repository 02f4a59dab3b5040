// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>

#include "bench/readings.h"

// Writes a data file of so many readings to the standard output.
int main(int argc, char** argv) {
  const std::int64_t readings = argc == 2 ? std::atoll(argv[1]) : 0;
  if (readings <= 0) {
    std::fputs("usage: quenlor-bench-readings COUNT >FILE\n", stderr);
    return 2;
  }
  const std::string text = quenlor::bench::DataFileText(readings);
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 ? 0 : 1;
}
