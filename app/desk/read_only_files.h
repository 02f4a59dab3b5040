// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_system.h"

namespace quenlor::app {

// A disk that can be looked at and stays as it is: whoever writes is told that it did not work.
class ReadOnlyFiles final : public platform::FileSystem {
 public:
  explicit ReadOnlyFiles(const platform::FileSystem& files) : files_(files) {}

  bool Exists(const std::string& path) const override { return files_.Exists(path); }
  bool Same(const std::string& path, const std::string& other) const override {
    return files_.Same(path, other);
  }
  platform::Result<std::string> Read(const std::string& path,
                                     const data::Progress& progress = {}) const override {
    return files_.Read(path, progress);
  }
  std::vector<platform::FileEntry> List(const std::string& folder) const override {
    return files_.List(folder);
  }
  platform::Result<platform::FileState> State(const std::string& path) const override {
    return files_.State(path);
  }
  platform::Result<std::int64_t> ModifiedAt(const std::string& path) const override {
    return files_.ModifiedAt(path);
  }

  using platform::FileSystem::Replace;
  platform::Done Replace(const std::string& path,
                         const std::function<void(platform::ByteSink&)>& /*write*/) override {
    return Refuse(path);
  }
  platform::Done Append(const std::string& path, std::string_view /*bytes*/) override { return Refuse(path); }
  platform::Done Sync(const std::string& path) override { return Refuse(path); }
  void BeginSync(const std::string& /*path*/) override {}
  platform::Done EndedSync(const std::string& path) override { return Refuse(path); }
  platform::Done Rename(const std::string& from, const std::string& /*to*/) override { return Refuse(from); }
  std::unique_ptr<platform::FileLock> Lock(const std::string& /*path*/) override { return nullptr; }

 private:
  static platform::Done Refuse(const std::string& path) {
    return platform::Failure{path + " is only read here", platform::FailureKind::kPermission};
  }

  const platform::FileSystem& files_;
};

}  // namespace quenlor::app
