// SPDX-License-Identifier: MIT
#include "app/new_file.h"

#include <filesystem>

#include "app/desk/session.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace quenlor::app {

namespace fs = std::filesystem;

platform::Done WhyNoNewFile(const std::string& path) {
  const std::string cannot = "write " + path;
  std::error_code error;
  const fs::file_status there = fs::status(path, error);
  if (fs::is_regular_file(there)) return platform::Cannot(cannot, {"it is there already"});
  if (fs::is_directory(there)) return platform::Cannot(cannot, {"it is a folder"});
  if (fs::exists(there)) return {};  // a pipe or a device
  const std::string folder = FolderOf(path);
  if (!fs::is_directory(folder, error)) return platform::Cannot(cannot, {"there is no folder " + folder});
#ifndef _WIN32
  if (::access(folder.c_str(), W_OK) != 0)
    return platform::Cannot(cannot, {"nothing may be written in the folder " + folder});
#endif
  return {};
}

}  // namespace quenlor::app
