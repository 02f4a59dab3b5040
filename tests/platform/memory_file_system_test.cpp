// SPDX-License-Identifier: MIT
// What a test can tell the files in memory to do.

#include "platform/memory/memory_file_system.h"

#include <gtest/gtest.h>

#include "platform/memory/test_clock.h"
#include "tests/platform/disks.h"

namespace quenlor::platform {
namespace {

TEST(MemoryFileSystem, TheDiskTakesExactlyTheBytesThatAreLeft) {
  memory::MemoryFileSystem files;
  files.Put("log", "");
  files.FailAfter(10);
  EXPECT_EQ(Told(files.Append("log", "12345678")), "done");
  EXPECT_EQ(Told(files.Append("log", "abc")), "cannot append to log: No space left on device");
  EXPECT_EQ(Told(files.Append("log", "ab")), "done");
  EXPECT_EQ(Told(files.Append("log", "!")), "cannot append to log: No space left on device");
  EXPECT_EQ(files.Content("log"), "12345678ab");
  files.MakeRoom();
  EXPECT_EQ(Told(files.Append("log", "!")), "done");
}

TEST(MemoryFileSystem, AReplacementNeedsRoomBesideTheOldContentAndThenFreesIt) {
  memory::MemoryFileSystem files;
  files.Put("a", "12345");
  files.FailAfter(4);
  EXPECT_EQ(Told(files.Replace("a", "abcde")), "cannot replace a: No space left on device");
  EXPECT_EQ(files.Content("a"), "12345");
  EXPECT_EQ(Told(files.Replace("a", "abcd")), "done");
  EXPECT_EQ(Told(files.Append("a", "12345")), "done");
  EXPECT_EQ(Told(files.Append("a", "6")), "cannot append to a: No space left on device");
}

TEST(MemoryFileSystem, ARefusedPlaceCannotBeChanged) {
  memory::MemoryFileSystem files;
  files.Put("/ro/a", "kept");
  files.Put("/rw/b", "kept");
  files.Refuse("/ro/", "Read-only file system");
  bool asked = false;
  EXPECT_EQ(Told(files.Replace("/ro/a", [&asked](ByteSink&) { asked = true; })),
            "cannot replace /ro/a: Read-only file system");
  EXPECT_FALSE(asked);
  EXPECT_EQ(Told(files.Append("/ro/a", "x")), "cannot append to /ro/a: Read-only file system");
  EXPECT_EQ(Told(files.Rename("/ro/a", "/rw/a")), "cannot rename /ro/a to /rw/a: Read-only file system");
  EXPECT_EQ(Told(files.Rename("/rw/b", "/ro/b")), "cannot rename /rw/b to /ro/b: Read-only file system");
  EXPECT_EQ(Told(files.Sync("/ro/a")), "cannot sync /ro/a: Read-only file system");
  EXPECT_EQ(files.Content("/ro/a"), "kept");
  EXPECT_TRUE(files.Read("/ro/a").ok());
  const auto lock = files.Lock("/ro/a.lock");
  EXPECT_TRUE(lock);
  EXPECT_TRUE(files.Lock("/ro/a.lock")) << "granted, because nothing can be damaged there";
  files.Allow("/ro/");
  EXPECT_EQ(Told(files.Append("/ro/a", "!")), "done");
}

TEST(MemoryFileSystem, AnUnreadableFileExists) {
  memory::MemoryFileSystem files;
  files.Put("a", "secret");
  files.Unreadable("a");
  EXPECT_TRUE(files.Exists("a"));
  ASSERT_FALSE(files.Read("a").ok());
  EXPECT_EQ(files.Read("a").failure().text, "cannot read a: Permission denied");
  files.Readable("a");
  EXPECT_TRUE(files.Read("a").ok());
}

TEST(MemoryFileSystem, FilesAreDatedByTheClock) {
  memory::TestClock clock;
  memory::MemoryFileSystem files(&clock);
  files.Put("a", "x");
  const std::int64_t made = clock.Now().local_second;
  clock.Advance(90.0);
  EXPECT_EQ(files.ModifiedAt("a").value(), made);
  files.Append("a", "y");
  EXPECT_EQ(files.ModifiedAt("a").value(), made + 90);
  files.SetModifiedAt("a", 7);
  EXPECT_EQ(files.ModifiedAt("a").value(), 7);
}

TEST(MemoryFileSystem, CountsWhatItIsAskedFor) {
  memory::MemoryFileSystem files;
  files.Put("a", "");
  files.Append("a", "x");
  files.Append("a", "x");
  files.Append("a", "x");
  files.Sync("a");
  files.Sync("a");
  files.Replace("a", "y");
  files.Rename("missing", "b");
  files.Lock("l");
  EXPECT_TRUE(files.Read("a").ok());
  EXPECT_EQ(files.Calls().appends, 3);
  EXPECT_EQ(files.Calls().syncs, 2);
  EXPECT_EQ(files.Calls().replaces, 1);
  EXPECT_EQ(files.Calls().renames, 1);
  EXPECT_EQ(files.Calls().locks, 1);
  EXPECT_EQ(files.Calls().reads, 1);
}

TEST(MemoryFileSystem, ALockMayOutliveIt) {
  std::unique_ptr<FileLock> lock;
  {
    memory::MemoryFileSystem files;
    lock = files.Lock("a");
  }
  EXPECT_TRUE(lock);
  lock.reset();
}

}  // namespace
}  // namespace quenlor::platform
