// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <tuple>
#include <vector>

#include "data/axis_ranges.h"

namespace quenlor::graph {

// What of the readings is shown: the ranges, and which of them follow the data.
struct ShownView {
  data::AxisRanges ranges;
  bool Check2 = true;
  bool Check3 = true;
  bool Check4 = true;

  bool operator==(const ShownView& other) const {
    const auto state = [](const ShownView& view) {
      const data::AxisRanges& r = view.ranges;
      return std::tuple(view.Check2, view.Check3, view.Check4, r.TimeMin, r.TimeMax, r.ViscoMin, r.ViscoMax,
                        r.TempMin, r.TempMax, r.ViscoLogMin, r.ViscoLogMax);
    };
    return state(*this) == state(other);
  }
};

// The views that were left by hand, and the way through them, as a reader walks through pages.
class ViewHistory {
 public:
  static constexpr std::size_t kMost = 100;  // nobody walks farther back

  // Another view is about to take this one's place. Later ones are forgotten.
  void Leave(const ShownView& view) {
    later_.clear();
    if (!earlier_.empty() && earlier_.back() == view) return;
    if (earlier_.size() == kMost) earlier_.erase(earlier_.begin());
    earlier_.push_back(view);
  }

  // The next one on the way that is not the present one; nothing at its end.
  std::optional<ShownView> Earlier(const ShownView& now) { return Walk(earlier_, later_, now); }
  std::optional<ShownView> Later(const ShownView& now) { return Walk(later_, earlier_, now); }

  void Clear() {
    earlier_.clear();
    later_.clear();
  }

 private:
  using Views = std::vector<ShownView>;
  static std::optional<ShownView> Walk(Views& from, Views& to, const ShownView& now) {
    while (!from.empty() && from.back() == now) from.pop_back();
    if (from.empty()) return std::nullopt;
    to.push_back(now);
    const ShownView next = from.back();
    from.pop_back();
    return next;
  }

  Views earlier_;
  Views later_;
};

}  // namespace quenlor::graph
