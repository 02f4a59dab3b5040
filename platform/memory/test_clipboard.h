// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/clipboard.h"

namespace quenlor::platform::memory {

// A clipboard for tests: what is on it now, and how often it was emptied for it.
class TestClipboard : public Clipboard {
 public:
  void Clear() override {
    text_.reset();
    ++times_cleared_;
  }
  void SetText(const std::string& text) override { text_ = text; }

  const std::optional<std::string>& Text() const { return text_; }
  int TimesCleared() const { return times_cleared_; }

 private:
  std::optional<std::string> text_;
  int times_cleared_ = 0;
};

}  // namespace quenlor::platform::memory
