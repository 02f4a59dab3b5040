// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>

#include "data/date_time.h"
#include "platform/file_system.h"

namespace quenlor::platform {

// Gives a file a name that tells a moment and that nothing else has: "Com_1_20261121-093000.txt".
inline Done SetAside(FileSystem& files, const std::string& path, std::int64_t local_second) {
  std::string stamp = data::DateText(local_second) + "-" + data::TimeText(local_second);
  std::erase_if(stamp, [](char c) { return c == '/' || c == ':'; });
  const std::size_t dot = path.rfind('.');
  const std::string ending = path.substr(dot);
  const std::string stem = path.substr(0, dot) + "_" + stamp;
  std::string copy = stem + ending;
  for (int n = 2; files.Exists(copy); ++n)
    copy.assign(stem).append("-").append(std::to_string(n)).append(ending);
  return files.Rename(path, copy);
}

}  // namespace quenlor::platform
