// SPDX-License-Identifier: MIT
#include "app/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace quenlor::app {
namespace {

// Permission bits do not tell everything (a read-only file system, another user's folder), so it is tried.
bool CanBeWritten(const QString& folder) {
  return QTemporaryFile(folder + QStringLiteral("/.quenlor")).open();
}

bool SameFolder(const QString& one, const QString& other) {
  return QDir(one).canonicalPath() == QDir(other).canonicalPath() && !QDir(one).canonicalPath().isEmpty();
}

}  // namespace

QString ProgramFolder(const QString& chosen, const QString& executable_folder,
                      const QString& installed_folder, const QString& user_folder) {
  QString folder = executable_folder;
  if (SameFolder(executable_folder, installed_folder) || !CanBeWritten(executable_folder))
    folder = user_folder;
  if (!chosen.isEmpty()) folder = QDir(chosen).absolutePath();
  QDir().mkpath(folder);
  return folder;
}

QString ProgramFolder(const QString& chosen) {
  return ProgramFolder(chosen, QCoreApplication::applicationDirPath(),
                       QStringLiteral(QUENLOR_INSTALLED_FOLDER),
                       QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

QString FolderToRead(const QString& chosen, const QString& executable_folder, const QString& user_folder) {
  if (!chosen.isEmpty()) return QDir(chosen).absolutePath();
  return QDir(executable_folder).exists(QStringLiteral("quenlor.ini")) ? executable_folder : user_folder;
}

QString FolderToRead(const QString& chosen) {
  return FolderToRead(chosen, QCoreApplication::applicationDirPath(),
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

}  // namespace quenlor::app
