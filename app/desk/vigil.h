// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "app/desk/status.h"
#include "link/measurement.h"
#include "platform/desktop.h"

namespace quenlor::app {

// Watches over a measurement that nobody looks at: the machine stays awake while it runs, and an end that
// nobody has chosen is told on the desktop.
class Vigil : private link::MeasurementListener {
 public:
  // `in_front` tells whether somebody looks at the window. `status` was a listener before.
  Vigil(link::Measurement& measurement, const Status& status, platform::Desktop& desktop,
        std::function<bool()> in_front)
      : measurement_(measurement), status_(status), desktop_(desktop), in_front_(std::move(in_front)) {
    measurement_.AddListener(*this);
  }
  ~Vigil() override {
    measurement_.RemoveListener(*this);
    desktop_.KeepAwake(false);
  }
  Vigil(const Vigil&) = delete;
  Vigil& operator=(const Vigil&) = delete;

 private:
  void Started() override { desktop_.KeepAwake(true); }
  void Ended(link::Ending why) override {
    desktop_.KeepAwake(false);
    if (why != link::Ending::kByHand && !in_front_()) desktop_.Notify("Quenlor", status_.LastEnd());
  }

  link::Measurement& measurement_;
  const Status& status_;
  platform::Desktop& desktop_;
  std::function<bool()> in_front_;
};

}  // namespace quenlor::app
