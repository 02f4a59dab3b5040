// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace quenlor::app {

// One command at a time: while one waits, for the instrument or for an answer, others are refused.
class OneAtATime {
 public:
  bool Busy() const { return busy_; }

  void Run(const std::function<void()>& command) {
    if (busy_) return;
    {
      const Flag flag(busy_);
      command();
    }
    if (const auto then = std::exchange(afterwards_, {})) then();
  }

  // What is to be done as soon as the running command is over.
  void Afterwards(std::function<void()> then) { afterwards_ = std::move(then); }

 private:
  struct Flag {
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;
    bool& flag_;
  };

  bool busy_ = false;
  std::function<void()> afterwards_;
};

}  // namespace quenlor::app
