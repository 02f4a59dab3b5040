// SPDX-License-Identifier: MIT
#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QWidget>

#include <qt_windows.h>

namespace quenlor::platform::qt {

struct QtDesktop::Hold {
  Hold() { ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED); }
  ~Hold() { ::SetThreadExecutionState(ES_CONTINUOUS); }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;
};

void QtDesktop::KeepAwake(bool awake) {
  if (!awake) return hold_.reset();
  if (!hold_) hold_ = std::make_shared<Hold>();
}

// The button in the task bar asks to be looked at; what there is to tell stands in the window.
void QtDesktop::Notify(const std::string& /*title*/, const std::string& /*text*/) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && !window->parentWidget()) QApplication::alert(window);
  }
}

QtDesktop::QtDesktop() = default;
QtDesktop::~QtDesktop() = default;

}  // namespace quenlor::platform::qt
