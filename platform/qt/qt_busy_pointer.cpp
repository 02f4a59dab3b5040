// SPDX-License-Identifier: MIT
#include "platform/qt/qt_busy_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace quenlor::platform::qt {

void ShowBusyPointer(bool busy) {
  if (busy) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

}  // namespace quenlor::platform::qt
