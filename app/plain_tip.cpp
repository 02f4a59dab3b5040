// SPDX-License-Identifier: MIT
#include "app/plain_tip.h"

#include <QTextDocument>

namespace quenlor::app {

QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

}  // namespace quenlor::app
