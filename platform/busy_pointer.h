// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace quenlor::platform {

// The waiting pointer, shown as long as this lives. `show` shows it and takes it away.
class BusyPointer {
 public:
  explicit BusyPointer(std::function<void(bool busy)> show) : show_(std::move(show)) { show_(true); }
  ~BusyPointer() { show_(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  std::function<void(bool)> show_;
};

}  // namespace quenlor::platform
