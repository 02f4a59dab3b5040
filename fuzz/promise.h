// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace quenlor::fuzz {

// The code under test broke what its header promises. A fuzzer ends at it and keeps the input; the replay
// shows it as a failed test that names the input.
class BrokenPromise : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void Check(bool holds, const char* promise) {
  if (!holds) throw BrokenPromise(promise);
}

}  // namespace quenlor::fuzz
