// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/set_aside.h"

namespace quenlor::platform {

// A file that keeps what the operator chooses, read when the program starts and replaced at each choice. What
// fails is told with its reason, and the choice holds in memory.
//
// One that is there and cannot be read is never overwritten: whoever replaces it, or cannot do without it,
// sets it aside first, under a name with the time of its last change.
class KeptFile {
 public:
  using Tell = std::function<void(const std::string&)>;

  KeptFile(FileSystem& files, std::string path, Tell tell = {})
      : files_(files), path_(std::move(path)), tell_(std::move(tell)) {}

  enum class Unread { kStays, kIsSetAside };

  Result<std::string> Read(Unread unread = Unread::kStays) {
    auto text = files_.Read(path_);
    unread_ = !text.ok() && !NotFound(text);
    if (!unread_) return text;
    const bool set_aside = unread == Unread::kIsSetAside && !SetUnreadAside();
    Say(text.failure().text + (set_aside ? " (it was set aside)" : " (it stays as it is)"));
    return text;
  }

  Done Replace(std::string_view text) {
    Done failed;
    if (unread_) failed = SetUnreadAside();
    if (!failed) failed = files_.Replace(path_, text);
    if (failed) Say(failed->text);
    return failed;
  }

 private:
  Done SetUnreadAside() {
    const auto changed = files_.ModifiedAt(path_);
    Done failed;
    if (!NotFound(changed)) failed = SetAside(files_, path_, changed.ok() ? changed.value() : 0);
    unread_ = failed.has_value();
    return failed;
  }
  void Say(const std::string& text) const {
    if (tell_) tell_(text);
  }

  FileSystem& files_;
  std::string path_;
  Tell tell_;
  bool unread_ = false;
};

}  // namespace quenlor::platform
