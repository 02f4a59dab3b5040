// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "app/desk/session.h"
#include "platform/memory/memory_file_system.h"

namespace quenlor::bench {

// A document with its graph, ready to be shown, as the program holds them.
struct OpenDocument {
  void Open(std::string bytes) { session.Load("readings.csv", data::ParseDataFile(std::move(bytes)), ""); }
  void Append(std::string bytes) {
    session.Document().AppendRuns(data::ParseDataFile(std::move(bytes)), "next.csv");
  }

  platform::memory::MemoryFileSystem files;
  app::Session session{files, {"/bench"}, false};
};

}  // namespace quenlor::bench
