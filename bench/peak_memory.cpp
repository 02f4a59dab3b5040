// SPDX-License-Identifier: MIT
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/open_document.h"
#include "platform/qt/qt_file_system.h"

namespace {

// Of this process so far, in bytes.
double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) * 1024;
  }
  return 0;
}

}  // namespace

// Opens a data file and prints the row of the table that tells what memory this took at the most.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: quenlor-bench-memory FILE\n", stderr);
    return 2;
  }
  quenlor::bench::OpenDocument opened;
  auto bytes = quenlor::platform::qt::QtFileSystem().Read(argv[1]);
  if (!bytes.ok()) {
    std::fprintf(stderr, "%s\n", bytes.failure().text.c_str());
    return 1;
  }
  opened.Open(std::move(bytes.value()));
  const double peak = PeakMemory();
  const auto size = static_cast<double>(std::filesystem::file_size(argv[1]));
  std::printf("memory: peak while opening %.0f M readings|%.0f MB|%.0f MB file|%.2f|at most 3\n",
              static_cast<double>(opened.session.Graph().Values().Size()) / 1e6, peak / 1e6, size / 1e6,
              peak / size);
}
