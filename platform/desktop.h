// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quenlor::platform {

// What the desktop around the program does for it. All of it may be missing: then nothing happens.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // While true, the machine does not fall asleep by itself.
  virtual void KeepAwake(bool awake) = 0;

  // Tells somebody who looks at another window, or at none.
  virtual void Notify(const std::string& title, const std::string& text) = 0;
};

}  // namespace quenlor::platform
