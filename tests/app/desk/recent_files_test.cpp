// SPDX-License-Identifier: MIT
#include "app/desk/recent_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace quenlor::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RecentFilesTest : public testing::Test {
 protected:
  RecentFilesTest() {
    for (const char* name : {"/a.csv", "/b.csv", "/data/c.csv"}) files.Put(name, "No.,Time\r\n");
  }
  RecentFiles Reopened() { return {files, "/lab/Recent.txt"}; }

  platform::memory::MemoryFileSystem files;
  RecentFiles recent{files, "/lab/Recent.txt"};
};

TEST_F(RecentFilesTest, TheLatestStandsFirstAndEachOnce) {
  EXPECT_THAT(recent.Paths(), IsEmpty());
  EXPECT_EQ(recent.Folder(), "");
  for (const char* path : {"/a.csv", "/b.csv", "/a.csv", "/data/c.csv"}) recent.Note(path);
  EXPECT_THAT(recent.Paths(), ElementsAre("/data/c.csv", "/a.csv", "/b.csv"));
  EXPECT_EQ(recent.Folder(), "/data");
}

TEST_F(RecentFilesTest, TheyAreKeptOverRestarts) {
  recent.Note("/a.csv");
  recent.Note("/data/c.csv");
  EXPECT_THAT(Reopened().Paths(), ElementsAre("/data/c.csv", "/a.csv"));
  EXPECT_EQ(Reopened().Folder(), "/data");
}

TEST_F(RecentFilesTest, WhatIsGoneIsLeftOut) {
  recent.Note("/a.csv");
  recent.Note("/gone.csv");
  EXPECT_THAT(recent.Paths(), ElementsAre("/a.csv"));
}

TEST_F(RecentFilesTest, TheListEnds) {
  for (int i = 0; i < 20; ++i) {
    const std::string path = "/" + std::to_string(i) + ".csv";
    files.Put(path, "");
    recent.Note(path);
  }
  EXPECT_THAT(recent.Paths(), SizeIs(RecentFiles::kMost));
  EXPECT_THAT(Reopened().Paths(), SizeIs(RecentFiles::kMost));
  EXPECT_EQ(Reopened().Paths().front(), "/19.csv");
}

TEST_F(RecentFilesTest, ANameOfTwoLinesIsNotTorn) {
  recent.Note("/a\n.csv");
  recent.Note("/a.csv");
  EXPECT_THAT(Reopened().Paths(), ElementsAre("/a.csv"));
}

TEST_F(RecentFilesTest, NoiseInTheFileIsNoTrouble) {
  files.Put("/lab/Recent.txt", std::string("\r\n\r\n\xFF\xFE\0x\r\n/a.csv", 16));
  EXPECT_THAT(Reopened().Paths(), ElementsAre("/a.csv"));
}

}  // namespace
}  // namespace quenlor::app
