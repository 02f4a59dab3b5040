// SPDX-License-Identifier: MIT
#pragma once

#include <future>
#include <string>

#include "platform/file_system.h"

namespace quenlor::platform::qt {

// The files of the computer.
class QtFileSystem : public FileSystem {
 public:
  using FileSystem::Replace;

  bool Exists(const std::string& path) const override;
  bool Same(const std::string& path, const std::string& other) const override;
  Result<std::string> Read(const std::string& path, const data::Progress& progress = {}) const override;
  std::vector<FileEntry> List(const std::string& folder) const override;
  Result<FileState> State(const std::string& path) const override;
  Result<std::int64_t> ModifiedAt(const std::string& path) const override;
  Done Replace(const std::string& path, const std::function<void(ByteSink&)>& write) override;
  Done Append(const std::string& path, std::string_view bytes) override;
  Done Sync(const std::string& path) override;
  void BeginSync(const std::string& path) override;
  Done EndedSync(const std::string& path) override;
  Done Rename(const std::string& from, const std::string& to) override;
  std::unique_ptr<FileLock> Lock(const std::string& path) override;
  std::string HolderOf(const std::string& lock) const override;

 private:
  std::string syncing_path_;
  std::future<Done> syncing_;
};

}  // namespace quenlor::platform::qt
