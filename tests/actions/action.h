// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace quenlor::actions {

// The same in every run and on every platform: the engine's sequence is fixed by the language, the library's
// distributions are not.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : engine_(seed) {}

  std::uint64_t Next() { return engine_(); }
  int Below(int end) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(end)); }
  bool OneIn(int count) { return Below(count) == 0; }
  template <class Choices>
  const auto& Of(const Choices& choices) {
    return *(std::begin(choices) + Below(static_cast<int>(std::size(choices))));
  }

 private:
  std::mt19937_64 engine_;
};

enum class Kind {
  kStartOrStop,
  kClick,
  kDoubleClick,
  kDrag,
  kWheel,
  kKey,
  kType,
  kMenu,
  kOpenMenu,
  kLines,
  kTime,
  kSetClock,
  kPort,
  kDiskFails,
  kDiskHeals,
  kRawLogChanges,
  kSave,
  kResize,
  kEndOfProgram,
};

// What a user, the instrument or the machine does. What exactly is chosen by `seed` among what is there at
// that moment, so that an action means something whichever came before it.
struct Action {
  Kind kind = Kind::kTime;
  std::uint64_t seed = 0;
};

std::vector<Action> RandomActions(std::uint64_t seed, int count);

}  // namespace quenlor::actions
