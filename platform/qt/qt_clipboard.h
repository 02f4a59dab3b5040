// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clipboard.h"

namespace quenlor::platform::qt {

class QtClipboard final : public Clipboard {
 public:
  void Clear() override;
  void SetText(const std::string& text) override;
};

}  // namespace quenlor::platform::qt
