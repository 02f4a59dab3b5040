// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>
#include <array>
#include <functional>
#include <string>

#include "app/desk/status.h"

namespace quenlor::app {

// The status bar: what was said last on the left, and what goes on in fields beside it, which no text pushes
// away. Where they do not all fit, the less important ones go first.
class StatusLine : public QObject {
  Q_OBJECT

 public:
  StatusLine(Status& status, QStatusBar* bar);

  void Show();  // as it is now

  QWidget& Message() const { return *message_; }  // shows what was said last

  // Says something that can be done about; the offer stays until one of both was chosen or something else is
  // said.
  void Offer(const std::string& text, const QString& deed, std::function<void()> take,
             std::function<void()> dismiss);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum Field { kState, kDocument, kErrors, kPort, kRun, kAges, kFields };

  void Changed();
  void Set(QLabel* label, const QString& text);
  void FitFields();

  Status& status_;
  QStatusBar* bar_;
  QLabel* message_;
  QLabel* offer_;
  std::string offered_;
  std::function<void()> take_;
  std::function<void()> dismiss_;
  QWidget* room_;
  QLabel* sign_;
  std::array<QLabel*, kFields> fields_{};
  QTimer tick_;  // while a measurement runs
  QTimer soon_;  // events that come in bursts are shown once
};

}  // namespace quenlor::app
