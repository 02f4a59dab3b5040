// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/memory/memory_file_system.h"

namespace quenlor::app {

// How a disk fails.
struct Fault {
  enum class Effect {
    kNothing,     // of what was asked for is done
    kAllTheSame,  // it is done, and reported as failed: closing and syncing have such failures
  };

  const char* name;
  platform::Failure reason;
  Effect effect = Effect::kNothing;
  bool stays = false;  // for every later operation, too
};

// Files whose n-th operation fails.
class FaultyFiles : public platform::memory::MemoryFileSystem {
 public:
  using FileSystem::Replace;
  using MemoryFileSystem::MemoryFileSystem;

  void FailAt(int operation, const Fault& fault) {
    at_ = operation;
    fault_ = &fault;
    operations_ = 0;
    hit_.clear();
  }
  void Heal() { fault_ = nullptr; }
  int Operations() const { return operations_; }
  const std::vector<std::string>& Hit() const { return hit_; }  // "append /lab/Com_1.txt"

  platform::Result<std::string> Read(const std::string& path,
                                     const data::Progress& progress = {}) const override {
    if (Fails("read", path)) return platform::Cannot("read " + path, fault_->reason);
    return MemoryFileSystem::Read(path, progress);
  }
  platform::Result<platform::FileState> State(const std::string& path) const override {
    if (Fails("look at", path)) return platform::Cannot("read " + path, fault_->reason);
    return MemoryFileSystem::State(path);
  }
  platform::Result<std::int64_t> ModifiedAt(const std::string& path) const override {
    if (Fails("date", path)) return platform::Cannot("read " + path, fault_->reason);
    return MemoryFileSystem::ModifiedAt(path);
  }
  platform::Done Replace(const std::string& path,
                         const std::function<void(platform::ByteSink&)>& write) override {
    return Do("replace", path, [&] { return MemoryFileSystem::Replace(path, write); });
  }
  platform::Done Append(const std::string& path, std::string_view bytes) override {
    return Do("append", path, [&] { return MemoryFileSystem::Append(path, bytes); });
  }
  platform::Done Sync(const std::string& path) override {
    return Do("sync", path, [&] { return MemoryFileSystem::Sync(path); });
  }
  platform::Done Rename(const std::string& from, const std::string& to) override {
    return Do("rename", from, [&] { return MemoryFileSystem::Rename(from, to); });
  }
  std::unique_ptr<platform::FileLock> Lock(const std::string& path) override {
    if (Fails("lock", path)) return nullptr;
    return MemoryFileSystem::Lock(path);
  }

 private:
  bool Fails(const std::string& what, const std::string& path) const {
    ++operations_;
    if (fault_ == nullptr || operations_ < at_ || (operations_ > at_ && !fault_->stays)) return false;
    hit_.push_back(what + " " + path);
    return true;
  }
  platform::Done Do(const std::string& what, const std::string& path,
                    const std::function<platform::Done()>& work) {
    if (!Fails(what, path)) return work();
    if (fault_->effect == Fault::Effect::kAllTheSame) work();
    return platform::Cannot(what + " " + path, fault_->reason);
  }

  int at_ = 0;
  const Fault* fault_ = nullptr;
  mutable int operations_ = 0;
  mutable std::vector<std::string> hit_;
};

}  // namespace quenlor::app
