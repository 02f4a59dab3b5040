// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <string>

namespace quenlor::app {

// What the window tells in words. It stays while menus tell about their items beside it.
class StatusLine : public QLabel {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent);

  void Say(const std::string& text);
  std::string Told() const { return text().toStdString(); }
};

}  // namespace quenlor::app
