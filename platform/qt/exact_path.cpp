// SPDX-License-Identifier: MIT
#include "platform/qt/exact_path.h"

#include <QUrl>

namespace quenlor::platform::qt {

std::string PathOf(const QUrl& url) {
#ifdef Q_OS_UNIX
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
#else
  return url.toLocalFile().toStdString();
#endif
}

}  // namespace quenlor::platform::qt
