// SPDX-License-Identifier: MIT
#include "app/program_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace quenlor::app {
namespace {

const QString kSettings = QStringLiteral("quenlor.ini");

struct Folders {
  QTemporaryDir root;
  QString Make(const char* name) {
    const QString path = root.filePath(QString::fromLatin1(name));
    QDir().mkpath(path);
    return path;
  }
  // As installing into that prefix leaves it; gives the folder of the programs.
  QString Install(const std::string& prefix) {
    Write(Make((prefix + "/share/quenlor").c_str()) + QStringLiteral("/installed.txt"));
    return Make((prefix + "/bin").c_str());
  }
  static void Write(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  }
  static bool IsEmpty(const QString& folder) {
    return QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }
};

TEST(ProgramFolder, TheGivenFolderWins) {
  Folders folders;
  const std::string chosen = folders.Make("a/b").toStdString();
  EXPECT_EQ(ProgramFolder(chosen, folders.Make("exe"), folders.Make("user")), chosen);
  EXPECT_EQ(ProgramFolder(chosen + "/../b/", folders.Make("exe"), folders.Make("user")), chosen);
}

TEST(ProgramFolder, AGivenFolderHasToBeThere) {
  Folders folders;
  const std::string chosen = folders.root.filePath(QStringLiteral("a")).toStdString();
  EXPECT_FALSE(CannotUseFolder(""));
  ASSERT_TRUE(CannotUseFolder(chosen));
  EXPECT_EQ(CannotUseFolder(chosen)->text, "cannot use the folder " + chosen + ": No such file or directory");
  Folders::Write(QString::fromStdString(chosen));
  EXPECT_EQ(CannotUseFolder(chosen)->text, "cannot use the folder " + chosen + ": Not a directory");
  EXPECT_FALSE(CannotUseFolder(folders.Make("b").toStdString()));
}

TEST(ProgramFolder, ElseTheFolderOfTheExecutable) {
  Folders folders;
  const QString executable = folders.Make("exe");
  EXPECT_EQ(ProgramFolder({}, executable, folders.Make("user")), executable.toStdString());
  EXPECT_TRUE(Folders::IsEmpty(executable)) << "trying leaves no trace";
}

TEST(ProgramFolder, AnInstalledProgramUsesTheUsersFolderWhereverItIsInstalled) {
  for (const char* prefix : {"usr", "opt/lab/quenlor", "home/.local"}) {
    Folders folders;
    const QString executable = folders.Install(prefix);
    const QString user = folders.root.filePath(QStringLiteral("user/data"));
    EXPECT_EQ(ProgramFolder({}, executable, user), user.toStdString()) << prefix;
    EXPECT_TRUE(QDir(user).exists()) << prefix;
    EXPECT_TRUE(Folders::IsEmpty(executable)) << prefix;
  }
}

TEST(ProgramFolder, AnInstalledProgramThatIsMovedAsAWholeStaysOne) {
  Folders folders;
  folders.Install("before");
  ASSERT_TRUE(QDir().rename(folders.root.filePath("before"), folders.root.filePath("after")));
  const QString user = folders.Make("user");
  EXPECT_EQ(ProgramFolder({}, folders.root.filePath("after/bin"), user), user.toStdString());
}

TEST(ProgramFolder, AnUnpackedProgramKeepsItsFilesBesideItself) {
  Folders folders;
  const QString executable = folders.Make("quenlor/bin");
  folders.Make("quenlor/share/doc");
  folders.Make("quenlor/share/quenlor");  // somebody else's folder of that name says nothing
  EXPECT_EQ(ProgramFolder({}, executable, folders.Make("user")), executable.toStdString());
}

TEST(ProgramFolder, TheGivenFolderWinsForAnInstalledProgramToo) {
  Folders folders;
  const std::string chosen = folders.Make("chosen").toStdString();
  EXPECT_EQ(ProgramFolder(chosen, folders.Install("usr"), folders.Make("user")), chosen);
}

TEST(ProgramFolder, AFolderThatCannotBeWrittenGivesWayToTheUsersFolder) {
  Folders folders;
  const QString user = folders.Make("user");
  // A folder that is not there refuses everybody, root as well.
  EXPECT_EQ(ProgramFolder({}, folders.root.filePath(QStringLiteral("gone")), user), user.toStdString());
}

TEST(ProgramFolder, NoFilesAreKeptWhereTheNameIsNotExact) {
  EXPECT_FALSE(CannotKeepFilesIn("/lab/öl"));
  EXPECT_TRUE(CannotKeepFilesIn("/lab/\xF6l"));
  Folders folders;
  const QString mangled = folders.root.filePath(QStringLiteral("\uFFFDl"));
  EXPECT_TRUE(CannotKeepFilesIn(ProgramFolder({}, folders.root.filePath(QStringLiteral("gone")), mangled)));
  EXPECT_FALSE(QDir(mangled).exists());
}

TEST(FolderToRead, IsWhereSettingsHaveBeenKeptAndNothingIsMade) {
  Folders folders;
  const QString executable = folders.Make("exe");
  const QString user = folders.root.filePath(QStringLiteral("user"));
  const QString chosen = folders.root.filePath(QStringLiteral("chosen"));
  EXPECT_EQ(FolderToRead({}, executable, kSettings, user), user.toStdString());
  EXPECT_EQ(FolderToRead(chosen.toStdString(), executable, kSettings, user), chosen.toStdString());
  EXPECT_FALSE(QDir(user).exists());
  EXPECT_FALSE(QDir(chosen).exists());
  Folders::Write(executable + u'/' + kSettings);
  EXPECT_EQ(FolderToRead({}, executable, kSettings, user), executable.toStdString());
}

TEST(FolderToRead, IsNotWhereACopyUnderAnotherNameHasKeptItsSettings) {
  Folders folders;
  const QString executable = folders.Make("exe");
  const QString user = folders.root.filePath(QStringLiteral("user"));
  Folders::Write(executable + u'/' + kSettings);
  EXPECT_EQ(FolderToRead({}, executable, QStringLiteral("lab2.ini"), user), user.toStdString());
}

TEST(FolderToRead, IsTheUsersForAnInstalledProgramWhateverStandsBesideIt) {
  Folders folders;
  const QString executable = folders.Install("usr");
  const QString user = folders.root.filePath(QStringLiteral("user"));
  Folders::Write(executable + u'/' + kSettings);
  EXPECT_EQ(FolderToRead({}, executable, kSettings, user), user.toStdString());
}

}  // namespace
}  // namespace quenlor::app
