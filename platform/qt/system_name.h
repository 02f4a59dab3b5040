// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/result.h"

namespace quenlor::platform::qt {

// What the sources that ask Windows about files have in common.

// A path of ours, UTF-8 with either slash, as the system takes it: also one that is longer than 260
// characters, whatever the registry says about long paths.
std::wstring SystemName(const std::string& path);

// The system's reason by its number, in English, without the full stop.
Failure ReasonOf(unsigned long error);

// A handle of the system's, closed in the end.
class OpenHandle {
 public:
  explicit OpenHandle(void* handle) : handle_(handle) {}
  ~OpenHandle();
  OpenHandle(const OpenHandle&) = delete;
  OpenHandle& operator=(const OpenHandle&) = delete;

  explicit operator bool() const;
  void* get() const { return handle_; }

 private:
  void* handle_;
};

// Where a link leads, whole; the path itself when it is none, or leads to nothing.
std::string WhereItPoints(const std::string& path);

}  // namespace quenlor::platform::qt
