// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>

#include "link/measurement.h"

namespace quenlor::app {

// Tells assistive technology aloud what an eye would notice by itself: the newest reading and every end, one
// of them a second at most. Of readings that come faster only the newest is told; an end is never left out.
class Announcer : public QObject, private link::MeasurementListener {
  Q_OBJECT

 public:
  // `newest` shows readings and is called after them; `message` shows the reason of an end, and heard of it
  // before.
  Announcer(link::Measurement& measurement, QWidget& newest, QWidget& message, QObject* parent);
  ~Announcer() override;

  void TellReading(const QString& reading);  // empty when there is none any longer

 signals:
  void Announced(const QWidget& shown);  // what it shows was told

 private:
  void Ended(link::Ending why) override;
  void TellNext();
  void Tell(QWidget& shown);

  link::Measurement& measurement_;
  QWidget& newest_;
  QWidget& message_;
  QTimer pause_;  // since something was told
  QString reading_;
  bool ended_ = false;
};

}  // namespace quenlor::app
