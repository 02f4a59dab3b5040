// SPDX-License-Identifier: MIT
#include "app/virtual_port.h"

#include <algorithm>
#include <cmath>

#include "platform/line_settings.h"

namespace quenlor::app {

using namespace platform;

VirtualPort::VirtualPort(const instrument::ViscometerOptions& options) : viscometer_(options) {
  clock_.start();
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Turn(); });
}

std::optional<OpenFailure> VirtualPort::Open(int comm_port, std::string_view settings) {
  Close();
  comm_port_ = comm_port;
  if (!ParseLineSettings(settings))
    return OpenFailure{"virtual viscometer", "the line settings are not valid", ""};
  if (viscometer_.HungUp()) return OpenFailure{"virtual viscometer", "it has hung up", ""};
  ForgetUnheard();
  received_.clear();
  open_ = true;
  ScheduleTurn();
  return {};
}

// What was said while nobody listened is lost. An instrument at full speed never falls silent; it is cut off.
void VirtualPort::ForgetUnheard() {
  constexpr int kMostPieces = 1000;
  const double now = Now();
  for (int i = 0; i < kMostPieces && viscometer_.NextDue().value_or(now + 1) <= now; ++i)
    viscometer_.Emit(now);
}

void VirtualPort::Close() {
  open_ = false;
  timer_.stop();
}

void VirtualPort::Output(std::string_view bytes) {
  if (!open_) return;
  viscometer_.Receive(bytes, Now());
  ScheduleTurn();
}

void VirtualPort::ScheduleTurn() {
  if (!open_ || telling_) return;
  if (viscometer_.HungUp()) return timer_.start(0);
  const auto due = viscometer_.NextDue();
  if (!due) return timer_.stop();
  constexpr double kLongestWaitSeconds =
      3600;  // within a timer's range; a later turn finds nothing and waits on
  const double wait = std::clamp(*due - Now(), 0.0, kLongestWaitSeconds);
  timer_.start(static_cast<int>(std::ceil(wait * 1000)));
}

void VirtualPort::Turn() {
  if (telling_) return;  // the handler lets events run; what is due is told when it returns
  received_ += viscometer_.Emit(Now());
  telling_ = true;
  if (!received_.empty() && handler_) handler_(comm_event::kReceive);
  if (open_ && viscometer_.HungUp()) {
    Close();
    if (handler_) handler_(comm_event::kPortGone);
  }
  telling_ = false;
  ScheduleTurn();
}

}  // namespace quenlor::app
