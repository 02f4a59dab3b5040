// SPDX-License-Identifier: MIT
#include "app/program_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace quenlor::app {
namespace {

struct Folders {
  QTemporaryDir root;
  QString Make(const char* name) {
    const QString path = root.filePath(QString::fromLatin1(name));
    QDir().mkpath(path);
    return path;
  }
};

TEST(ProgramFolder, TheGivenFolderWinsAndIsMade) {
  Folders folders;
  const QString chosen = folders.root.filePath(QStringLiteral("a/b"));
  EXPECT_EQ(ProgramFolder(chosen, folders.Make("exe"), {}, folders.Make("user")), chosen);
  EXPECT_TRUE(QDir(chosen).exists());
}

TEST(ProgramFolder, ElseTheFolderOfTheExecutable) {
  Folders folders;
  const QString executable = folders.Make("exe");
  EXPECT_EQ(ProgramFolder({}, executable, folders.Make("bin"), folders.Make("user")), executable);
  EXPECT_TRUE(QDir(executable).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
      << "trying leaves no trace";
}

TEST(ProgramFolder, AnInstalledProgramUsesTheUsersFolder) {
  Folders folders;
  const QString executable = folders.Make("bin");
  const QString user = folders.root.filePath(QStringLiteral("user/data"));
  EXPECT_EQ(ProgramFolder({}, executable, executable + QStringLiteral("/."), user), user);
  EXPECT_TRUE(QDir(user).exists());
}

TEST(ProgramFolder, AFolderThatCannotBeWrittenGivesWayToTheUsersFolder) {
  Folders folders;
  const QString user = folders.Make("user");
  // A folder that is not there refuses everybody, root as well.
  EXPECT_EQ(ProgramFolder({}, folders.root.filePath(QStringLiteral("gone")), {}, user), user);
}

TEST(FolderToRead, IsWhereSettingsHaveBeenKeptAndNothingIsMade) {
  Folders folders;
  const QString executable = folders.Make("exe");
  const QString user = folders.root.filePath(QStringLiteral("user"));
  const QString chosen = folders.root.filePath(QStringLiteral("chosen"));
  EXPECT_EQ(FolderToRead({}, executable, user), user);
  EXPECT_EQ(FolderToRead(chosen, executable, user), chosen);
  EXPECT_FALSE(QDir(user).exists());
  EXPECT_FALSE(QDir(chosen).exists());
  QFile settings(executable + QStringLiteral("/quenlor.ini"));
  ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
  EXPECT_EQ(FolderToRead({}, executable, user), executable);
}

}  // namespace
}  // namespace quenlor::app
