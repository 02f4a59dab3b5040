// SPDX-License-Identifier: MIT
#include "app/window/announcer.h"

#include <QAccessible>

namespace quenlor::app {
namespace {

constexpr int kPauseMilliseconds = 1000;

}  // namespace

Announcer::Announcer(link::Measurement& measurement, QWidget& newest, QWidget& message, QObject* parent)
    : QObject(parent), measurement_(measurement), newest_(newest), message_(message) {
  pause_.setSingleShot(true);
  pause_.setInterval(kPauseMilliseconds);
  connect(&pause_, &QTimer::timeout, this, &Announcer::TellNext);
  measurement_.AddListener(*this);
}

Announcer::~Announcer() { measurement_.RemoveListener(*this); }

void Announcer::TellReading(const QString& reading) {
  if (reading.isEmpty()) newest_.setAccessibleName({});
  reading_ = reading == newest_.accessibleName() ? QString() : reading;
  TellNext();
}

void Announcer::Ended(link::Ending /*why*/) {
  ended_ = true;
  TellNext();
}

void Announcer::TellNext() {
  if (pause_.isActive()) return;
  if (ended_) {
    ended_ = false;
    Tell(message_);
  } else if (!reading_.isEmpty()) {
    newest_.setAccessibleName(reading_);
    reading_.clear();
    Tell(newest_);
  } else {
    return;
  }
  pause_.start();
}

void Announcer::Tell(QWidget& shown) {
  QAccessibleEvent event(&shown, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
  emit Announced(shown);
}

}  // namespace quenlor::app
