// SPDX-License-Identifier: MIT
#include "app/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <filesystem>

#include "app/program_name.h"
#include "data/utf8.h"
#include "platform/qt/native_file.h"

namespace quenlor::app {
namespace {

namespace fs = std::filesystem;

// Permission bits do not tell everything (a read-only file system, another user's folder), so it is tried.
bool CanBeWritten(const QString& folder) {
  return QTemporaryFile(folder + QStringLiteral("/.quenlor")).open();
}

// Beside the folder of the programs; app/CMakeLists.txt has it put there.
bool IsInstalled(const QString& executable_folder) {
  return QDir(executable_folder).exists(QStringLiteral("../share/quenlor/installed.txt"));
}

fs::path Whole(const std::string& folder) {
  std::error_code error;  // there may be no current folder any more
  const fs::path absolute = fs::absolute(folder, error);
  const fs::path whole = (error ? fs::path(folder) : absolute).lexically_normal();
  return whole.has_filename() || whole == whole.root_path() ? whole : whole.parent_path();
}

}  // namespace

platform::Done CannotUseFolder(const std::string& chosen) {
  if (chosen.empty()) return {};
  if (platform::qt::KindOfFile(chosen) == platform::qt::FileKind::kFolder) return {};
  const platform::qt::Reason missing = platform::qt::FindFile(chosen);
  return platform::Cannot("use the folder " + chosen,
                          missing ? *missing : platform::Failure{"Not a directory"});
}

// Qt's lock files have names of text, and a name that is none came here with another character in its place.
platform::Done CannotKeepFilesIn(const std::string& folder) {
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  if (data::IsUtf8(folder) && folder.find(kReplacement) == folder.npos) return {};
  return platform::Failure{"cannot keep files in the folder " + folder + ": its name is not UTF-8"};
}

std::string ProgramFolder(const std::string& chosen, const QString& executable_folder,
                          const QString& user_folder) {
  if (!chosen.empty()) return Whole(chosen).string();
  if (!IsInstalled(executable_folder) && CanBeWritten(executable_folder))
    return executable_folder.toStdString();
  if (!CannotKeepFilesIn(user_folder.toStdString())) QDir().mkpath(user_folder);
  return user_folder.toStdString();
}

std::string ProgramFolder(const std::string& chosen) {
  return ProgramFolder(chosen, QCoreApplication::applicationDirPath(),
                       QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

std::string FolderToRead(const std::string& chosen, const QString& executable_folder,
                         const QString& settings_name, const QString& user_folder) {
  if (!chosen.empty()) return Whole(chosen).string();
  const bool kept_there = !IsInstalled(executable_folder) && QDir(executable_folder).exists(settings_name);
  return (kept_there ? executable_folder : user_folder).toStdString();
}

std::string FolderToRead(const std::string& chosen) {
  return FolderToRead(chosen, QCoreApplication::applicationDirPath(),
                      QString::fromStdString(ProgramName() + ".ini"),
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

}  // namespace quenlor::app
