// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "link/saved_logs.h"
#include "platform/file_system.h"

namespace quenlor::app {

// Raw logs of an earlier life of the program that hold readings which no data file does: after a crash, or
// when somebody did not save. Each is told until it was looked at or dismissed; a log that changes is another
// one.
class LeftReadings {
 public:
  LeftReadings(platform::FileSystem& files, const std::string& folder);

  struct Left {
    std::string path;  // of the latest one
    std::string text;  // for the status line
  };
  std::optional<Left> Find() const;

  void Seen(const std::string& path);

 private:
  std::vector<std::string> SeenLines() const;
  bool HoldsReadings(const platform::FileEntry& log) const;

  platform::FileSystem& files_;
  std::string folder_;
  std::string seen_path_;
};

}  // namespace quenlor::app
