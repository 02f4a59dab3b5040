// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "tests/actions/action.h"

class QWidget;

namespace quenlor::actions {

// A hand on the boxes and menus that an action brings up and that wait for an answer: it presses what is
// there, by chance, and closes what stays for long.
class Boxes : public QObject {
 public:
  explicit Boxes(Chance& chance) : chance_(chance) { LookSoon(); }

  // Answers until no box is left; false when one stays.
  bool Settle();

 private:
  void LookSoon();
  void Answer(QWidget* box);

  Chance& chance_;
  int answers_ = 0;
};

QWidget* WaitingBox();  // a menu, a list or a modal window; none is usual

}  // namespace quenlor::actions
