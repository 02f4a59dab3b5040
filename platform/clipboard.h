// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quenlor::platform {

// The desktop's clipboard.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;  // plain text, UTF-8, line ends as they are
};

}  // namespace quenlor::platform
