// SPDX-License-Identifier: MIT
#include "platform/qt/plain_tip.h"

#include <QTextDocument>

namespace quenlor::platform::qt {

QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

}  // namespace quenlor::platform::qt
