// SPDX-License-Identifier: MIT
#include <chrono>
#include <thread>

#include <gmock/gmock.h>

#include "tests/platform/disks.h"

namespace quenlor::platform {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

template <class Disk>
class FileSystemContract : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return disk.Path(name); }
  FileSystem& files() { return disk.files; }
  std::string Content(const std::string& name) {
    const Result<std::string> content = files().Read(Path(name));
    return content.ok() ? content.value() : "(" + content.failure().text + ")";
  }

  Disk disk;
};

using EveryDisk = testing::Types<RealDisk, MemoryDisk>;
TYPED_TEST_SUITE(FileSystemContract, EveryDisk);

constexpr char kEveryByte[] = "\0\r\n\x1a\xff\xc2\xb5";

TYPED_TEST(FileSystemContract, ReadsWhatItWroteByteForByte) {
  const std::string bytes(kEveryByte, sizeof(kEveryByte));
  EXPECT_EQ(Told(this->files().Replace(this->Path("a"), bytes)), "done");
  EXPECT_EQ(this->Content("a"), bytes);
}

TYPED_TEST(FileSystemContract, AFileIsTheSameAsItselfAndNoOther) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "x")), "done");
  ASSERT_EQ(Told(this->files().Replace(this->Path("b"), "x")), "done");
  EXPECT_TRUE(this->files().Same(this->Path("a"), this->Path("a")));
  EXPECT_FALSE(this->files().Same(this->Path("a"), this->Path("b")));
  EXPECT_FALSE(this->files().Same(this->Path("c"), this->Path("c"))) << "what is not there is no file";
}

TYPED_TEST(FileSystemContract, AnEmptyFileIsAFile) {
  EXPECT_EQ(Told(this->files().Replace(this->Path("a"), "")), "done");
  EXPECT_TRUE(this->files().Exists(this->Path("a")));
  EXPECT_EQ(this->Content("a"), "");
}

TYPED_TEST(FileSystemContract, NamesMayHoldAnyLetter) {
  const std::string name = "viscosité µ 粘度.csv";
  EXPECT_EQ(Told(this->files().Replace(this->Path(name), "x")), "done");
  EXPECT_EQ(Told(this->files().Append(this->Path(name), "y")), "done");
  EXPECT_EQ(this->Content(name), "xy");
  EXPECT_THAT(this->disk.Names(), ElementsAre(name));
}

TYPED_TEST(FileSystemContract, NamesMayHoldBytesThatAreNoText) {
  if (!TypeParam::kNamesAreBytes) GTEST_SKIP() << "the names of this system are text";
  const std::string name = "\xF6l \xFF.csv";
  EXPECT_EQ(Told(this->files().Replace(this->Path(name), "old")), "done");
  EXPECT_EQ(Told(this->files().Replace(this->Path(name), "x")), "done");
  EXPECT_EQ(Told(this->files().Append(this->Path(name), "y")), "done");
  EXPECT_EQ(Told(this->files().Sync(this->Path(name))), "done");
  EXPECT_TRUE(this->files().Exists(this->Path(name)));
  EXPECT_TRUE(this->files().ModifiedAt(this->Path(name)).ok());
  EXPECT_EQ(this->Content(name), "xy");
  EXPECT_THAT(this->disk.Names(), ElementsAre(name));
  EXPECT_EQ(Told(this->files().Rename(this->Path(name), this->Path("\xFE"))), "done");
  EXPECT_THAT(this->disk.Names(), ElementsAre("\xFE"));
  EXPECT_EQ(Told(this->files().Rename(this->Path("\xFE"), this->Path("a"))), "done");
}

TYPED_TEST(FileSystemContract, ManySmallAndLargeWritesArriveInOrder) {
  std::string expected;
  const Done done = this->files().Replace(this->Path("a"), [&expected](ByteSink& sink) {
    const auto put = [&](const std::string& bytes) {
      sink.Write(bytes);
      expected += bytes;
    };
    for (int line = 0; line < 200000; ++line) put("line " + std::to_string(line) + "\r\n");
    put(std::string(3'000'000, 'x'));
    put("");
    put("end");
  });
  EXPECT_EQ(Told(done), "done");
  EXPECT_TRUE(this->Content("a") == expected);
}

TYPED_TEST(FileSystemContract, ReplacingLeavesNothingOfTheOldContentAndNoOtherFile) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "a long old content")), "done");
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "new")), "done");
  EXPECT_EQ(this->Content("a"), "new");
  EXPECT_THAT(this->disk.Names(), ElementsAre("a"));
}

TYPED_TEST(FileSystemContract, TheOldContentIsThereUntilAllOfTheNewIs) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "old")), "done");
  std::string meanwhile;
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"),
                                       [&](ByteSink& sink) {
                                         sink.Write(std::string(4'000'000, 'n'));
                                         meanwhile = this->Content("a");
                                       })),
            "done");
  EXPECT_EQ(meanwhile, "old");
}

TYPED_TEST(FileSystemContract, AFullDiskLeavesTheOldContentWhole) {
  if (!TypeParam::kMayBeFull) GTEST_SKIP() << "this disk cannot be filled";
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "old")), "done");
  this->disk.LimitFilesTo(4096);
  const Done small_writes = this->files().Replace(this->Path("a"), [](ByteSink& sink) {
    for (int line = 0; line < 100000; ++line) sink.Write("a line of a new content\r\n");
  });
  const Done one_write = this->files().Replace(this->Path("a"), std::string(3'000'000, 'n'));
  const Done last_bytes = this->files().Replace(this->Path("a"), std::string(4097, 'n'));
  const Done new_file = this->files().Replace(this->Path("b"), std::string(4097, 'n'));
  this->disk.LiftLimit();

  for (const Done& done : {small_writes, one_write, last_bytes}) {
    EXPECT_THAT(Told(done), StartsWith("cannot replace " + this->Path("a") + ": "));
  }
  EXPECT_THAT(Told(new_file), StartsWith("cannot write " + this->Path("b") + ": "));
  EXPECT_EQ(this->Content("a"), "old");
  EXPECT_THAT(this->disk.Names(), ElementsAre("a")) << "nothing half written stays";
}

TYPED_TEST(FileSystemContract, AFileThatFitsExactlyIsWritten) {
  if (!TypeParam::kMayBeFull) GTEST_SKIP() << "this disk cannot be filled";
  this->disk.LimitFilesTo(4096);
  const Done replaced = this->files().Replace(this->Path("a"), std::string(4000, 'r'));
  const Done appended = this->files().Append(this->Path("a"), std::string(96, 'a'));
  this->disk.LiftLimit();
  EXPECT_EQ(Told(replaced), "done");
  EXPECT_EQ(Told(appended), "done");
  EXPECT_EQ(this->Content("a").size(), 4096U);
}

TYPED_TEST(FileSystemContract, AFolderIsNoFile) {
  this->disk.MakeFolder(this->Path("folder"));
  EXPECT_TRUE(this->files().Exists(this->Path("folder")));
  const Result<std::string> content = this->files().Read(this->Path("folder"));
  ASSERT_FALSE(content.ok());
  EXPECT_EQ(content.failure().text, "cannot read " + this->Path("folder") + ": Is a directory");
  EXPECT_EQ(Told(this->files().Replace(this->Path("folder"), "x")),
            "cannot replace " + this->Path("folder") + ": Is a directory");
  EXPECT_EQ(Told(this->files().Append(this->Path("folder"), "x")),
            "cannot append to " + this->Path("folder") + ": Is a directory");
}

TYPED_TEST(FileSystemContract, AMissingFileIsToldByName) {
  const std::string path = this->Path("missing");
  EXPECT_FALSE(this->files().Exists(path));
  const Result<std::string> content = this->files().Read(path);
  ASSERT_FALSE(content.ok());
  EXPECT_EQ(content.failure().text, "cannot read " + path + ": No such file or directory");
  const Result<std::int64_t> time = this->files().ModifiedAt(path);
  ASSERT_FALSE(time.ok());
  EXPECT_EQ(time.failure().text, "cannot read " + path + ": No such file or directory");
  EXPECT_EQ(Told(this->files().Sync(path)), "cannot sync " + path + ": No such file or directory");
  EXPECT_EQ(Told(this->files().Append(path, "x")),
            "cannot append to " + path + ": No such file or directory");
  EXPECT_FALSE(this->files().Exists(path)) << "asking makes none";
}

TYPED_TEST(FileSystemContract, AMissingFileIsAKindOfFailureOfItsOwn) {
  const std::string path = this->Path("missing");
  EXPECT_TRUE(NotFound(this->files().Read(path)));
  EXPECT_TRUE(NotFound(this->files().ModifiedAt(path)));
  EXPECT_TRUE(NotFound(this->files().Append(path, "x")));
  EXPECT_TRUE(NotFound(this->files().Sync(path)));
  EXPECT_TRUE(NotFound(this->files().Rename(path, this->Path("b"))));
  ASSERT_EQ(Told(this->files().Replace(path, "x")), "done");
  EXPECT_FALSE(NotFound(this->files().Read(path)));
  EXPECT_FALSE(NotFound(this->files().Append(path, "x")));
}

TYPED_TEST(FileSystemContract, AFolderIsNotMissing) {
  const std::string path = this->Path("folder");
  this->disk.MakeFolder(path);
  EXPECT_EQ(KindOf(this->files().Read(path)), FailureKind::kOther);
  EXPECT_EQ(KindOf(this->files().Replace(path, "x")), FailureKind::kOther);
  EXPECT_EQ(KindOf(this->files().Append(path, "x")), FailureKind::kOther);
}

TYPED_TEST(FileSystemContract, WhatTheUserMayNotUseIsNotMissing) {
  const std::string path = this->Path("a");
  ASSERT_EQ(Told(this->files().Replace(path, "x")), "done");
  this->disk.WhenForbidden(path, [&] {
    EXPECT_TRUE(this->files().Exists(path));
    EXPECT_EQ(KindOf(this->files().Read(path)), FailureKind::kPermission);
    EXPECT_EQ(KindOf(this->files().Replace(path, "y")), FailureKind::kPermission);
    EXPECT_EQ(KindOf(this->files().Append(path, "y")), FailureKind::kPermission);
    EXPECT_EQ(KindOf(this->files().Sync(path)), FailureKind::kPermission);
  });
}

TYPED_TEST(FileSystemContract, WhereNoRoomIsLeftThatIsTheKind) {
  if (!TypeParam::kMayBeFull) GTEST_SKIP() << "this disk cannot be filled";
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "old")), "done");
  this->disk.LimitFilesTo(4096);
  const Done small_writes = this->files().Replace(this->Path("a"), [](ByteSink& sink) {
    for (int line = 0; line < 100000; ++line) sink.Write("a line of a new content\r\n");
  });
  const Done new_file = this->files().Replace(this->Path("b"), std::string(4097, 'n'));
  const Done appended = this->files().Append(this->Path("a"), std::string(4097, 'n'));
  this->disk.LiftLimit();
  for (const Done& done : {small_writes, new_file, appended}) EXPECT_EQ(KindOf(done), FailureKind::kFull);
}

TYPED_TEST(FileSystemContract, AppendingAddsAtTheEnd) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "one\r\n")), "done");
  EXPECT_EQ(Told(this->files().Append(this->Path("log"), "")), "done");
  EXPECT_EQ(Told(this->files().Append(this->Path("log"), std::string("\0two", 4))), "done");
  EXPECT_EQ(this->Content("log"), std::string("one\r\n\0two", 9));
}

TYPED_TEST(FileSystemContract, AppendingFollowsAReplacement) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "older")), "done");
  ASSERT_EQ(Told(this->files().Append(this->Path("log"), "old")), "done");
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "new ")), "done");
  ASSERT_EQ(Told(this->files().Append(this->Path("log"), "line")), "done");
  EXPECT_EQ(this->Content("log"), "new line");
}

TYPED_TEST(FileSystemContract, OfAnAppendThatDoesNotFitNothingStays) {
  if (!TypeParam::kMayBeFull) GTEST_SKIP() << "this disk cannot be filled";
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "kept\r\n")), "done");
  this->disk.LimitFilesTo(4096);
  const Done too_long = this->files().Append(this->Path("log"), std::string(5000, 'x'));
  const Done fits = this->files().Append(this->Path("log"), "this too\r\n");
  this->disk.LiftLimit();
  EXPECT_THAT(Told(too_long), StartsWith("cannot append to " + this->Path("log") + ": "));
  EXPECT_EQ(Told(fits), "done");
  EXPECT_EQ(this->Content("log"), "kept\r\nthis too\r\n");
}

TYPED_TEST(FileSystemContract, SyncingChangesNothing) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "line")), "done");
  EXPECT_EQ(Told(this->files().Sync(this->Path("log"))), "done");
  EXPECT_EQ(this->Content("log"), "line");
}

TYPED_TEST(FileSystemContract, ASyncBehindTheCallerIsToldOnceItHasEnded) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("log"), "line")), "done");
  this->files().BeginSync(this->Path("log"));
  EXPECT_EQ(Told(this->files().EndedSync(this->Path("log"))), "done");
  this->files().BeginSync(this->Path("missing"));
  EXPECT_EQ(Told(this->files().EndedSync(this->Path("log"))), "done") << "that of another file";
  std::string told = "done";
  for (int looks = 0; looks < 1000 && told == "done"; ++looks) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    this->files().BeginSync(this->Path("missing"));  // as long as the first one goes on, that one
    told = Told(this->files().EndedSync(this->Path("missing")));
  }
  EXPECT_EQ(told, "cannot sync " + this->Path("missing") + ": No such file or directory");
  EXPECT_EQ(this->Content("log"), "line");
}

TYPED_TEST(FileSystemContract, RenamingKeepsTheContent) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "content")), "done");
  EXPECT_EQ(Told(this->files().Rename(this->Path("a"), this->Path("b"))), "done");
  EXPECT_EQ(this->Content("b"), "content");
  EXPECT_FALSE(this->files().Exists(this->Path("a")));
}

TYPED_TEST(FileSystemContract, ATakenNameIsNotGivenAgain) {
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "a's")), "done");
  ASSERT_EQ(Told(this->files().Replace(this->Path("b"), "b's")), "done");
  this->disk.MakeFolder(this->Path("folder"));
  const std::string beginning = "cannot rename " + this->Path("a") + " to ";
  EXPECT_EQ(Told(this->files().Rename(this->Path("a"), this->Path("b"))),
            beginning + this->Path("b") + ": File exists");
  EXPECT_EQ(Told(this->files().Rename(this->Path("a"), this->Path("folder"))),
            beginning + this->Path("folder") + ": File exists");
  EXPECT_EQ(this->Content("a"), "a's");
  EXPECT_EQ(this->Content("b"), "b's");
}

TYPED_TEST(FileSystemContract, AMissingFileCannotBeRenamed) {
  EXPECT_EQ(Told(this->files().Rename(this->Path("a"), this->Path("b"))),
            "cannot rename " + this->Path("a") + " to " + this->Path("b") + ": No such file or directory");
  EXPECT_FALSE(this->files().Exists(this->Path("b")));
}

TYPED_TEST(FileSystemContract, AFileKnowsWhenItWasChanged) {
  const std::int64_t before = this->disk.Now();
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "x")), "done");
  const Result<std::int64_t> time = this->files().ModifiedAt(this->Path("a"));
  ASSERT_TRUE(time.ok());
  EXPECT_GE(time.value(), before - 1) << "file times follow the clock with a small delay";
  EXPECT_LE(time.value(), this->disk.Now());
}

TYPED_TEST(FileSystemContract, AFileThatGrowsStaysTheSameAndAReplacedOneIsAnother) {
  EXPECT_TRUE(NotFound(this->files().State(this->Path("a"))));
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "one")), "done");
  const auto first = this->files().State(this->Path("a"));
  ASSERT_TRUE(first.ok());
  EXPECT_EQ(first.value().size, 3U);
  EXPECT_FALSE(first.value().leads_out);

  ASSERT_EQ(Told(this->files().Append(this->Path("a"), "two")), "done");
  FileState grown = first.value();
  grown.size = 6;
  EXPECT_EQ(this->files().State(this->Path("a")).value(), grown);

  const std::string kept = this->Path("b");  // its number is not free for the next one
  ASSERT_EQ(Told(this->files().Rename(this->Path("a"), kept)), "done");
  ASSERT_EQ(Told(this->files().Replace(this->Path("a"), "onetwo")), "done");
  EXPECT_NE(this->files().State(this->Path("a")).value(), grown);
  EXPECT_EQ(this->files().State(kept).value(), grown);
}

TYPED_TEST(FileSystemContract, ALockHasOneHolderUntilItIsGone) {
  auto lock = this->files().Lock(this->Path("a.lock"));
  ASSERT_TRUE(lock);
  EXPECT_FALSE(this->files().Lock(this->Path("a.lock")));
  EXPECT_TRUE(this->files().Lock(this->Path("b.lock"))) << "another lock is free";
  lock.reset();
  EXPECT_TRUE(this->files().Lock(this->Path("a.lock")));
}

}  // namespace
}  // namespace quenlor::platform
