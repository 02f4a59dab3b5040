// SPDX-License-Identifier: MIT
#include "platform/qt/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QString>

namespace quenlor::platform::qt {

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

void QtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

}  // namespace quenlor::platform::qt
