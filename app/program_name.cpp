// SPDX-License-Identifier: MIT
#include "app/program_name.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace quenlor::app {

std::string ProgramName(const std::string& program_file) {
  QString name = QFileInfo(QString::fromStdString(program_file)).fileName();
  if (name.endsWith(QStringLiteral(".exe"), Qt::CaseInsensitive)) name.chop(4);
  return name.toStdString();
}

std::string ProgramName() { return ProgramName(QCoreApplication::applicationFilePath().toStdString()); }

}  // namespace quenlor::app
