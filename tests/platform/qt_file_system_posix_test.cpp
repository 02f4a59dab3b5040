// SPDX-License-Identifier: MIT
// What only the files of the computer have: modes, links, devices, other programs.

#include "platform/qt/qt_file_system.h"

#include <fstream>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/wait.h>

#include "platform/qt/native_file.h"
#include "tests/platform/disks.h"

namespace quenlor::platform {
namespace {

using testing::StartsWith;

class QtFileSystemTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return disk_.Path(name); }
  std::string Content(const std::string& name) {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Write(const std::string& name, const std::string& content) {
    std::ofstream(Path(name), std::ios::binary) << content;
  }
  unsigned Mode(const std::string& name) const {
    struct stat info {};
    return ::stat(Path(name).c_str(), &info) == 0 ? info.st_mode & 07777U : 0U;
  }

  void Chmod(const std::string& path, unsigned mode) { ASSERT_EQ(::chmod(path.c_str(), mode), 0); }

  RealDisk disk_;
  qt::QtFileSystem& files_ = disk_.files;
};

TEST_F(QtFileSystemTest, ReplacingKeepsThePermissions) {
  for (const unsigned mode : {0640U, 0600U, 0664U, 0755U}) {
    Write("a", "old");
    Chmod(Path("a"), mode);
    ASSERT_EQ(Told(files_.Replace(Path("a"), "new")), "done");
    EXPECT_EQ(Mode("a"), mode);
    EXPECT_EQ(Content("a"), "new");
  }
}

TEST_F(QtFileSystemTest, WhoMayReplaceTheFilesOfOthersKeepsThemTheirs) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of somebody else";
  Write("a", "old");
  ASSERT_EQ(::chown(Path("a").c_str(), 1234, 5678), 0);
  Chmod(Path("a"), 0440);
  ASSERT_EQ(Told(files_.Replace(Path("a"), "new")), "done");
  struct stat info {};
  ASSERT_EQ(::stat(Path("a").c_str(), &info), 0);
  EXPECT_EQ(info.st_uid, 1234U);
  EXPECT_EQ(info.st_gid, 5678U);
  EXPECT_EQ(Mode("a"), 0440U);
  EXPECT_EQ(Content("a"), "new");
}

TEST_F(QtFileSystemTest, ANewFileHasThePermissionsTheUserWants) {
  const mode_t before = ::umask(027);
  ASSERT_EQ(Told(files_.Replace(Path("a"), "x")), "done");
  ::umask(before);
  EXPECT_EQ(Mode("a"), 0640U);
}

TEST_F(QtFileSystemTest, ASymbolicLinkKeepsPointing) {
  fs::create_directory(Path("store"));
  Write("store/real", "old");
  fs::create_symlink("store/real", Path("link"));
  fs::create_symlink(Path("link"), Path("link to link"));
  ASSERT_EQ(Told(files_.Replace(Path("link to link"), "new")), "done");
  ASSERT_EQ(Told(files_.Append(Path("link"), " line")), "done");
  EXPECT_TRUE(fs::is_symlink(Path("link to link")));
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_FALSE(fs::is_symlink(Path("store/real")));
  EXPECT_EQ(Content("store/real"), "new line");
}

TEST_F(QtFileSystemTest, ALinkToNothingGetsItsFile) {
  fs::create_directory(Path("store"));
  fs::create_symlink("store/real", Path("link"));
  EXPECT_FALSE(files_.Exists(Path("link")));
  ASSERT_EQ(Told(files_.Replace(Path("link"), "new")), "done");
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(Content("store/real"), "new");
}

TEST_F(QtFileSystemTest, AFileInAFolderThatCannotBeWrittenIsWrittenInPlace) {
  Write("a", "a long old content");
  Chmod(Path("a"), 0666);
  Chmod(Path(""), 0555);
  Done replaced;
  Done made;
  {
    const Nobody nobody;
    replaced = files_.Replace(Path("a"), "new");
    made = files_.Replace(Path("b"), "new");
  }
  Chmod(Path(""), 0755);
  EXPECT_EQ(Told(replaced), "done");
  EXPECT_EQ(Content("a"), "new");
  EXPECT_EQ(Told(made), "cannot write " + Path("b") + ": Permission denied");
}

TEST_F(QtFileSystemTest, AFileOfTheLongestNameIsWrittenInPlace) {
  const std::string name(255, 'a');
  EXPECT_EQ(Told(files_.Replace(Path(name), "old")), "done");
  EXPECT_EQ(Told(files_.Replace(Path(name), "new")), "done");
  EXPECT_EQ(Content(name), "new");
}

TEST_F(QtFileSystemTest, AFileThatMayNotBeWrittenIsNotReplaced) {
  Write("a", "old");
  Chmod(Path("a"), 0444);
  Chmod(Path(""), 0777);
  Done replaced;
  Done appended;
  {
    const Nobody nobody;
    replaced = files_.Replace(Path("a"), "new");
    appended = files_.Append(Path("a"), "new");
  }
  EXPECT_EQ(Told(replaced), "cannot replace " + Path("a") + ": Permission denied");
  EXPECT_EQ(Told(appended), "cannot append to " + Path("a") + ": Permission denied");
  EXPECT_EQ(Content("a"), "old");
}

TEST_F(QtFileSystemTest, AnUnreadableFileIsToldByName) {
  Write("a", "secret");
  Chmod(Path("a"), 0000);
  Chmod(Path(""), 0755);
  const Nobody nobody;
  const Result<std::string> content = files_.Read(Path("a"));
  ASSERT_FALSE(content.ok());
  EXPECT_EQ(content.failure().text, "cannot read " + Path("a") + ": Permission denied");
}

TEST_F(QtFileSystemTest, AMissingFolderIsToldByTheNameOfTheFile) {
  EXPECT_EQ(Told(files_.Replace(Path("no/a"), "x")),
            "cannot write " + Path("no/a") + ": No such file or directory");
  EXPECT_EQ(Told(files_.Append(Path("no/a"), "x")),
            "cannot append to " + Path("no/a") + ": No such file or directory");
}

TEST_F(QtFileSystemTest, WhatALinkOrAFolderDoesNotHoldIsMissing) {
  fs::create_symlink("nothing", Path("link"));
  Write("a", "no folder");
  for (const std::string& path : {Path("link"), Path("no/a"), Path("a/b")}) {
    EXPECT_FALSE(files_.Exists(path));
    EXPECT_TRUE(NotFound(files_.Read(path)));
    EXPECT_TRUE(NotFound(files_.ModifiedAt(path)));
    EXPECT_TRUE(NotFound(files_.Append(path, "x")));
    EXPECT_TRUE(NotFound(files_.Sync(path)));
  }
  EXPECT_TRUE(NotFound(files_.Replace(Path("no/a"), "x")));
}

TEST_F(QtFileSystemTest, WhatAForbiddenFolderHoldsIsNotKnownToBeMissing) {
  fs::create_directory(Path("folder"));
  Write("folder/a", "secret");
  const Done done = disk_.WhenForbidden(Path("folder"), [&]() -> Done {
    EXPECT_EQ(KindOf(files_.Read(Path("folder/a"))), FailureKind::kPermission);
    EXPECT_EQ(KindOf(files_.ModifiedAt(Path("folder/a"))), FailureKind::kPermission);
    EXPECT_EQ(KindOf(files_.Append(Path("folder/a"), "x")), FailureKind::kPermission);
    return files_.Replace(Path("folder/b"), "x");
  });
  EXPECT_EQ(KindOf(done), FailureKind::kPermission);
}

TEST(QtFileSystemKinds, FollowFromTheSystemsErrors) {
  const auto kind = [](int error) { return qt::KindOf({error, std::generic_category()}); };
  EXPECT_EQ(kind(ENOENT), FailureKind::kNotFound);
  EXPECT_EQ(kind(ENOTDIR), FailureKind::kNotFound);
  EXPECT_EQ(kind(EACCES), FailureKind::kPermission);
  EXPECT_EQ(kind(EPERM), FailureKind::kPermission);
  EXPECT_EQ(kind(EROFS), FailureKind::kPermission);
  EXPECT_EQ(kind(ENOSPC), FailureKind::kFull);
  EXPECT_EQ(kind(EDQUOT), FailureKind::kFull);
  EXPECT_EQ(kind(EFBIG), FailureKind::kFull);
  EXPECT_EQ(kind(EIO), FailureKind::kOther);
  EXPECT_EQ(kind(EISDIR), FailureKind::kOther);
  EXPECT_EQ(kind(0), FailureKind::kOther);
}

// A disk of 64 kB.
class SmallDisk : public QtFileSystemTest {
 protected:
  void SetUp() override {
    if (!Mount(0)) GTEST_SKIP() << "only root can mount a file system, and not in every container";
  }
  ~SmallDisk() override { ::umount(Path("").c_str()); }
  bool Mount(unsigned long flags) {
    return ::mount("quenlor", Path("").c_str(), "tmpfs", flags, "size=64k") == 0;
  }
};

TEST_F(SmallDisk, KeepsWhatItHasWhenItIsFull) {
  ASSERT_EQ(Told(files_.Replace(Path("a"), "old")), "done");
  const Done replaced = files_.Replace(Path("a"), std::string(100'000, 'n'));
  EXPECT_EQ(Told(replaced), "cannot replace " + Path("a") + ": No space left on device");
  EXPECT_EQ(KindOf(replaced), FailureKind::kFull);
  EXPECT_EQ(KindOf(files_.Replace(Path("b"), std::string(100'000, 'n'))), FailureKind::kFull);
  const Done appended = files_.Append(Path("a"), std::string(100'000, 'n'));
  EXPECT_EQ(Told(appended), "cannot append to " + Path("a") + ": No space left on device");
  EXPECT_EQ(KindOf(appended), FailureKind::kFull);
  EXPECT_EQ(Content("a"), "old");
  EXPECT_THAT(disk_.Names(), testing::ElementsAre("a"));
}

TEST_F(SmallDisk, MayBeThereToBeReadOnly) {
  ASSERT_EQ(Told(files_.Replace(Path("a"), "old")), "done");
  ASSERT_TRUE(Mount(MS_REMOUNT | MS_RDONLY));
  EXPECT_EQ(KindOf(files_.Replace(Path("a"), "new")), FailureKind::kPermission);
  EXPECT_EQ(KindOf(files_.Replace(Path("b"), "new")), FailureKind::kPermission);
  EXPECT_EQ(KindOf(files_.Append(Path("a"), "new")), FailureKind::kPermission);
  EXPECT_EQ(Content("a"), "old");
}

TEST_F(QtFileSystemTest, AFullDeviceIsTold) {
  const Done appended = files_.Append("/dev/full", "x");
  const Done replaced = files_.Replace("/dev/full", "x");
  EXPECT_EQ(Told(appended), "cannot append to /dev/full: No space left on device");
  EXPECT_EQ(Told(replaced), "cannot replace /dev/full: No space left on device");
  EXPECT_EQ(KindOf(appended), FailureKind::kFull);
  EXPECT_EQ(KindOf(replaced), FailureKind::kFull);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(QtFileSystemTest, WhatHasNoSizeIsReadToItsEnd) {
  const Result<std::string> file = files_.Read("/proc/self/status");
  ASSERT_TRUE(file.ok());
  EXPECT_THAT(file.value(), StartsWith("Name:"));
}

TEST_F(QtFileSystemTest, WhatMayNeverEndIsRefused) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  EXPECT_FALSE(files_.Read("/proc/self/fd/" + std::to_string(ends[0])).ok());
  ::close(ends[0]);
  ::close(ends[1]);
  EXPECT_FALSE(files_.Read("/dev/zero").ok());
}

TEST_F(QtFileSystemTest, APipeIsWrittenInPlace) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const std::string path = "/proc/self/fd/" + std::to_string(ends[1]);
  EXPECT_EQ(Told(files_.Replace(path, "content")), "done");
  EXPECT_EQ(Told(files_.Sync(path)), "done");
  char read[16];
  EXPECT_EQ(::read(ends[0], read, sizeof(read)), 7);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST_F(QtFileSystemTest, NoFileStaysOpen) {
  const auto open_files = [] {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  const auto before = open_files();
  for (int round = 0; round < 3; ++round) {
    files_.Replace(Path("a"), "x");
    files_.Append(Path("a"), "x");
    files_.Append("/dev/full", "x");
    files_.Sync(Path("a"));
    EXPECT_TRUE(files_.Read(Path("a")).ok());
    EXPECT_TRUE(files_.ModifiedAt(Path("a")).ok());
    files_.Rename(Path("a"), Path("b" + std::to_string(round)));
  }
  EXPECT_EQ(open_files(), before);
}

TEST_F(QtFileSystemTest, ModificationTimesAreLocal) {
  Write("a", "x");
  const std::int64_t local = QDateTime(QDate(2024, 7, 1), QTime(13, 30)).toSecsSinceEpoch();
  const timespec times[2] = {{.tv_sec = local, .tv_nsec = 0}, {.tv_sec = local, .tv_nsec = 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, Path("a").c_str(), times, 0), 0);
  const Result<std::int64_t> time = files_.ModifiedAt(Path("a"));
  ASSERT_TRUE(time.ok());
  EXPECT_EQ(data::DateTimeText(time.value()), "2024/07/01 13:30:00");
}

TEST_F(QtFileSystemTest, ALockOfAnotherProgramHoldsUntilItIsKilled) {
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t other = ::fork();
  ASSERT_GE(other, 0);
  if (other == 0) {
    const auto lock = files_.Lock(Path("a.lock"));
    const char answer = lock ? 'y' : 'n';
    if (::write(ready[1], &answer, 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }
  char answer = '?';
  EXPECT_EQ(::read(ready[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_FALSE(files_.Lock(Path("a.lock")));
  EXPECT_EQ(files_.HolderOf(Path("a.lock")), "process " + std::to_string(other) + " (platform_tests)");

  ::kill(other, SIGKILL);
  EXPECT_EQ(::waitpid(other, nullptr, 0), other);
  EXPECT_EQ(files_.HolderOf(Path("a.lock")), "");
  EXPECT_TRUE(files_.Lock(Path("a.lock")));
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST_F(QtFileSystemTest, WhatAKilledSaveLeftGoesWithTheNextOneOfThatFile) {
  Write("a.csv", "old");
  Write("a.csv.quenlor-abcdef", "half");
  Write("b.csv.quenlor-abcdef", "of another file");
  Write("a.csv.backup", "mine");
  Write("a.csv.quenlor-abcdeF", "mine");
  Write("a.csv.quenlor-abcdefg", "mine");
  ASSERT_EQ(Told(files_.Replace(Path("a.csv"), "new")), "done");
  EXPECT_THAT(disk_.Names(), testing::ElementsAre("a.csv", "a.csv.backup", "a.csv.quenlor-abcdeF",
                                                  "a.csv.quenlor-abcdefg", "b.csv.quenlor-abcdef"));
  EXPECT_EQ(Content("a.csv"), "new");
}

TEST_F(QtFileSystemTest, ASaveThatGoesOnKeepsWhatItHasWritten) {
  Done inner;
  const Done outer = files_.Replace(Path("a.csv"), [&](ByteSink& sink) {
    sink.Write("outer");
    inner = files_.Replace(Path("a.csv"), "inner");
  });
  EXPECT_EQ(Told(inner), "done");
  EXPECT_EQ(Told(outer), "done");
  EXPECT_EQ(Content("a.csv"), "outer");
  EXPECT_THAT(disk_.Names(), testing::ElementsAre("a.csv"));
}

TEST_F(QtFileSystemTest, ALinkKnowsWhetherItLeadsOut) {
  fs::create_directory(Path("lab"));
  Write("lab/log", "x");
  Write("elsewhere", "x");
  fs::create_symlink("log", Path("lab/within"));
  fs::create_symlink("../elsewhere", Path("lab/out"));
  fs::create_symlink(Path("no such file"), Path("lab/to nothing"));
  EXPECT_FALSE(files_.State(Path("lab/within")).value().leads_out);
  EXPECT_TRUE(files_.State(Path("lab/out")).value().leads_out);
  EXPECT_TRUE(files_.State(Path("lab/to nothing")).value().leads_out);
  EXPECT_EQ(files_.State(Path("lab/within")).value(), files_.State(Path("lab/log")).value());
}

TEST_F(QtFileSystemTest, WhatADeadHolderLeftLocksNothing) {
  const std::string leftovers[] = {"", std::string("\0\xFF damaged", 10),
                                   "4711\nquenlor\nanother-computer\n\n\n",
                                   std::to_string(::getppid()) + "\nquenlor\n\n\n\n"};
  for (const std::string& leftover : leftovers) {
    for (const unsigned mode : {0644U, 0444U}) {
      Write("a.lock", leftover);
      Chmod(Path("a.lock"), mode);
      const auto lock = files_.Lock(Path("a.lock"));
      EXPECT_TRUE(lock) << leftover;
      EXPECT_FALSE(files_.Lock(Path("a.lock")));
    }
    EXPECT_FALSE(files_.Exists(Path("a.lock")));
  }
}

TEST_F(QtFileSystemTest, ALockWhoseFileSomebodyRemovedLeavesTheNextOneAlone) {
  auto first = files_.Lock(Path("a.lock"));
  fs::remove(Path("a.lock"));
  const auto second = files_.Lock(Path("a.lock"));
  first.reset();
  EXPECT_FALSE(files_.Lock(Path("a.lock")));
}

TEST_F(QtFileSystemTest, AnOldLockIsAsGoodAsANewOne) {
  const auto lock = files_.Lock(Path("a.lock"));
  const timespec times[2] = {{.tv_sec = 1, .tv_nsec = 0}, {.tv_sec = 1, .tv_nsec = 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, Path("a.lock").c_str(), times, 0), 0);
  EXPECT_FALSE(files_.Lock(Path("a.lock")));
}

TEST_F(QtFileSystemTest, WhereNoLockFileCanBeMadeTheLockIsGranted) {
  Chmod(Path(""), 0555);
  {
    const Nobody nobody;
    EXPECT_TRUE(files_.Lock(Path("a.lock")));
  }
  Chmod(Path(""), 0755);
  EXPECT_TRUE(files_.Lock(Path("no folder/a.lock")));
}

TEST(QtFileSystemPipes, AppendingToAPipeThatNobodyReadsFailsAtOnce) {
  const QTemporaryDir folder;
  const std::string pipe = folder.filePath(QStringLiteral("pipe")).toStdString();
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_TRUE(qt::QtFileSystem().Append(pipe, "line"));
}

}  // namespace
}  // namespace quenlor::platform
