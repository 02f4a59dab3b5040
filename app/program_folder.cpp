// SPDX-License-Identifier: MIT
#include "app/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "app/program_name.h"

namespace quenlor::app {
namespace {

// Permission bits do not tell everything (a read-only file system, another user's folder), so it is tried.
bool CanBeWritten(const QString& folder) {
  return QTemporaryFile(folder + QStringLiteral("/.quenlor")).open();
}

// Beside the folder of the programs; app/CMakeLists.txt has it put there.
bool IsInstalled(const QString& executable_folder) {
  return QDir(executable_folder).exists(QStringLiteral("../share/quenlor/installed.txt"));
}

}  // namespace

QString ProgramFolder(const QString& chosen, const QString& executable_folder, const QString& user_folder) {
  QString folder = executable_folder;
  if (IsInstalled(executable_folder) || !CanBeWritten(executable_folder)) folder = user_folder;
  if (!chosen.isEmpty()) folder = QDir(chosen).absolutePath();
  QDir().mkpath(folder);
  return folder;
}

QString ProgramFolder(const QString& chosen) {
  return ProgramFolder(chosen, QCoreApplication::applicationDirPath(),
                       QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

QString FolderToRead(const QString& chosen, const QString& executable_folder, const QString& settings_name,
                     const QString& user_folder) {
  if (!chosen.isEmpty()) return QDir(chosen).absolutePath();
  const bool kept_there = !IsInstalled(executable_folder) && QDir(executable_folder).exists(settings_name);
  return kept_there ? executable_folder : user_folder;
}

QString FolderToRead(const QString& chosen) {
  return FolderToRead(chosen, QCoreApplication::applicationDirPath(),
                      QString::fromStdString(ProgramName() + ".ini"),
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

}  // namespace quenlor::app
