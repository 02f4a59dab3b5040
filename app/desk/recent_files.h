// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace quenlor::app {

// The data files that were opened or saved last, the latest first, kept in "Recent.txt" in the program
// folder: a path a line.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 8;

  RecentFiles(platform::FileSystem& files, std::string path);

  void Note(const std::string& path);

  // Those that are still there.
  std::vector<std::string> Paths() const;
  // Of the latest one; empty when there is none.
  std::string Folder() const;

 private:
  platform::FileSystem& files_;
  std::string path_;
  std::vector<std::string> paths_;
};

}  // namespace quenlor::app
