// SPDX-License-Identifier: MIT
#include "platform/qt/plain_tip.h"

#include <QTextDocument>

namespace quenlor::platform::qt {

QString PlainTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<qt>%1</qt>")
      .arg(text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")));
}

}  // namespace quenlor::platform::qt
