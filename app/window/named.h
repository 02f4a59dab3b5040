// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quenlor::app {

// A control under the name that the system has for it, with what it is called and what it does. One with a
// caption is called by that.
template <class Widget>
Widget* Named(Widget* widget, const char* name, const QString& accessible, const QString& tip) {
  widget->setObjectName(QString::fromLatin1(name));
  if (!accessible.isEmpty()) widget->setAccessibleName(accessible);
  widget->setAccessibleDescription(tip);
  widget->setToolTip(tip);
  return widget;
}

}  // namespace quenlor::app
