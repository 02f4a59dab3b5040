// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/desktop.h"

namespace quenlor::platform::qt {

// The desktop by its message bus: logind's inhibitor and the desktop's notifications. Nothing waits for an
// answer, so a bus that is slow or away costs nothing.
class QtDesktop : public Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;

  void KeepAwake(bool awake) override;
  void Notify(const std::string& title, const std::string& text) override;

 private:
  struct Hold;
  std::shared_ptr<Hold> hold_;  // while the machine is kept awake
};

}  // namespace quenlor::platform::qt
