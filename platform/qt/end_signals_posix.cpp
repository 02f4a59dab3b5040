// SPDX-License-Identifier: MIT
#include "platform/qt/end_signals.h"

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quenlor::platform::qt {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// A handler may do next to nothing; a byte wakes the event loop.
volatile std::sig_atomic_t waking_end = -1;

void Wake(int /*signal*/) {
  const int before = errno;
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = ::write(waking_end, &byte, 1);
  errno = before;
}

}  // namespace

struct EndSignals::Parts {
  std::array<int, 2> ends{-1, -1};
  std::array<struct sigaction, kSignals.size()> before{};
  std::unique_ptr<QSocketNotifier> notifier;

  void LetGo() const {
    for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &before[i], nullptr);
  }
};

EndSignals::EndSignals(std::function<void()> asked) : parts_(std::make_unique<Parts>()) {
  for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], nullptr, &parts_->before[i]);
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, parts_->ends.data()) != 0) return;
  for (const int end : parts_->ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  waking_end = parts_->ends[1];
  parts_->notifier = std::make_unique<QSocketNotifier>(parts_->ends[0], QSocketNotifier::Read);
  QObject::connect(parts_->notifier.get(), &QSocketNotifier::activated, parts_->notifier.get(),
                   [this, asked = std::move(asked)] {
                     parts_->notifier->setEnabled(false);
                     parts_->LetGo();
                     asked();
                   });
  struct sigaction wake {};
  wake.sa_handler = Wake;
  wake.sa_flags = SA_RESTART;
  sigemptyset(&wake.sa_mask);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    if (parts_->before[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &wake, nullptr);
  }
}

EndSignals::~EndSignals() {
  parts_->LetGo();
  parts_->notifier.reset();
  waking_end = -1;
  for (const int end : parts_->ends) ::close(end);
}

}  // namespace quenlor::platform::qt
