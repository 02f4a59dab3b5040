// SPDX-License-Identifier: MIT
#include "tests/actions/action.h"

namespace quenlor::actions {
namespace {

struct Share {
  Kind kind;
  int weight;
};

constexpr Share kShares[] = {
    {Kind::kStartOrStop, 8}, {Kind::kClick, 14},    {Kind::kDoubleClick, 6},  {Kind::kDrag, 6},
    {Kind::kWheel, 4},       {Kind::kKey, 14},      {Kind::kType, 4},         {Kind::kMenu, 14},
    {Kind::kOpenMenu, 3},    {Kind::kLines, 26},    {Kind::kTime, 10},        {Kind::kSetClock, 1},
    {Kind::kPort, 3},        {Kind::kDiskFails, 3}, {Kind::kDiskHeals, 4},    {Kind::kRawLogChanges, 1},
    {Kind::kSave, 5},        {Kind::kResize, 2},    {Kind::kEndOfProgram, 1},
};

Kind RandomKind(Chance& chance) {
  int all = 0;
  for (const Share& share : kShares) all += share.weight;
  int at = chance.Below(all);
  for (const Share& share : kShares) {
    at -= share.weight;
    if (at < 0) return share.kind;
  }
  return Kind::kTime;
}

}  // namespace

std::vector<Action> RandomActions(std::uint64_t seed, int count) {
  Chance chance(seed);
  std::vector<Action> actions;
  for (int i = 0; i < count; ++i) {
    const Kind kind = RandomKind(chance);
    actions.push_back({kind, chance.Next()});
  }
  return actions;
}

}  // namespace quenlor::actions
