// SPDX-License-Identifier: MIT
#include "app/window/refresh_tick.h"

#include <utility>

namespace quenlor::app {
namespace {

// The tables are shown anew at most this often, and never so often that showing them takes more than a small
// part of the time: painting after an insertion costs more the more rows there are.
constexpr int kRefreshMilliseconds = 50;
constexpr int kRefreshShare = 8;

}  // namespace

RefreshTick::RefreshTick(std::function<int(bool whole)> show, std::function<void()> captions_changed,
                         QObject* window)
    : show_(std::move(show)), captions_changed_(std::move(captions_changed)), timer_(window) {
  timer_.setObjectName(QStringLiteral("Refresh"));
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Now(); });
}

void RefreshTick::Ask() {
  if (!timer_.isActive()) timer_.start(kRefreshMilliseconds);
}

void RefreshTick::Fig() {
  whole_ = true;
  Ask();
}

void RefreshTick::Now() {
  const int cost = show_(std::exchange(whole_, false));
  // The next one is kept away by a share of this one's cost, even if readings wait already.
  if (cost * kRefreshShare > kRefreshMilliseconds) timer_.start(cost * kRefreshShare);
}

}  // namespace quenlor::app
