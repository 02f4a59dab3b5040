// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "app/desk/session.h"

namespace quenlor::app {

// The newest reading, to be read across the room: viscosity large, temperature below it, and whose it is. It
// takes what the frames leave free, and is away where that is too little.
class CurrentValue : public QWidget {
  Q_OBJECT

 public:
  CurrentValue(const Session& session, QWidget* parent);

  void ShowNewest();
  QString Spoken() const;  // what is shown, as a sentence; empty when there is nothing

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Value {
    QString number;
    QString unit;  // empty where the column beside it holds none
  };
  Value Newest(int column) const;

  const Session& session_;
  Value visco_;
  Value temp_;
  QString whose_;
  QColor color_;
};

}  // namespace quenlor::app
