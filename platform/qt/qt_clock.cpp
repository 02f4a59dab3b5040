// SPDX-License-Identifier: MIT
#include "platform/qt/qt_clock.h"

#include <QDateTime>

namespace quenlor::platform::qt {
namespace {

int OffsetAt(std::chrono::system_clock::time_point utc) {
  return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(utc)).offsetFromUtc();
}

}  // namespace

data::Moment MomentOf(std::chrono::system_clock::time_point utc, int start_offset, int current_offset) {
  const auto second = std::chrono::floor<std::chrono::seconds>(utc);
  const std::chrono::duration<double> fraction = utc - second;
  const std::int64_t whole = second.time_since_epoch().count();
  return {.seconds = static_cast<double>(whole + start_offset) + fraction.count(),
          .local_second = whole + current_offset};
}

QtClock::QtClock() : start_offset_(OffsetAt(std::chrono::system_clock::now())) {}

data::Moment QtClock::Now() const {
  const auto utc = std::chrono::system_clock::now();
  const auto second = std::chrono::floor<std::chrono::seconds>(utc);
  if (second != asked_at_) {
    offset_ = OffsetAt(utc);
    asked_at_ = second;
  }
  return MomentOf(utc, start_offset_, offset_);
}

}  // namespace quenlor::platform::qt
