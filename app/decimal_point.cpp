// SPDX-License-Identifier: MIT
#include "app/decimal_point.h"

#include <QLocale>

namespace quenlor::app {

bool SystemWritesComma() { return QLocale::system().toString(3.0 / 2.0).contains(QLatin1Char(',')); }

}  // namespace quenlor::app
