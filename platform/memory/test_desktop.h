// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/desktop.h"

namespace quenlor::platform::memory {

// A desktop that remembers what it was asked for.
struct TestDesktop : Desktop {
  void KeepAwake(bool on) override { awake = on; }
  void Notify(const std::string& title, const std::string& text) override {
    notifications.push_back(title + ": " + text);
  }

  bool awake = false;
  std::vector<std::string> notifications;
};

}  // namespace quenlor::platform::memory
