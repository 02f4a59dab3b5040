// SPDX-License-Identifier: MIT
#include "app/new_file.h"

#include "app/desk/session.h"
#include "platform/qt/native_file.h"

namespace quenlor::app {

platform::Done WhyNoNewFile(const std::string& path) {
  using platform::qt::FileKind;
  const std::string cannot = "write " + path;
  switch (platform::qt::KindOfFile(path)) {
    case FileKind::kFile:
      return platform::Cannot(cannot, {"it is there already"});
    case FileKind::kFolder:
      return platform::Cannot(cannot, {"it is a folder"});
    case FileKind::kOther:  // a pipe or a device
      return {};
    case FileKind::kMissing:
      break;
  }
  const std::string folder = FolderOf(path);
  if (platform::qt::KindOfFile(folder) != FileKind::kFolder)
    return platform::Cannot(cannot, {"there is no folder " + folder});
  if (!platform::qt::MayWrite(folder))
    return platform::Cannot(cannot, {"nothing may be written in the folder " + folder});
  return {};
}

}  // namespace quenlor::app
