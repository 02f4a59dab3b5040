// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <qt_windows.h>

#include "platform/qt/qt_file_system.h"
#include "platform/qt/system_name.h"

namespace quenlor::platform {

namespace fs = std::filesystem;

// The disk of the adapter: a folder of its own. A user's files cannot be limited here.
class RealDisk {
 public:
  std::string Path(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  void MakeFolder(const std::string& path) { fs::create_directory(path); }
  // What another program has opened for itself alone nobody may use.
  template <class Try>
  auto WhenForbidden(const std::string& path, const Try& attempt) {
    const qt::OpenHandle alone(
        ::CreateFileW(qt::SystemName(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    return attempt();
  }
  static constexpr bool kMayBeFull = false;
  static constexpr bool kNamesAreBytes = false;
  void LimitFilesTo(std::uint64_t) {}
  void LiftLimit() {}
  static std::int64_t Now() {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toSecsSinceEpoch() + now.offsetFromUtc();
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path().toStdString()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  qt::QtFileSystem files;

 private:
  QTemporaryDir folder_;
};

}  // namespace quenlor::platform
