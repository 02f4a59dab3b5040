// SPDX-License-Identifier: MIT
#include "link/command_list.h"

#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/utf8.h"
#include "platform/memory/memory_file_system.h"
#include "tests/link/table_text.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char kPath[] = "/lab/Command_V.txt";

class CommandList : public testing::Test {
 protected:
  Texts Load() { return LoadCommandList(files, kPath); }

  platform::memory::MemoryFileSystem files;
};

TEST_F(CommandList, AMissingFileIsMadeWithTheFourDefaults) {
  const Texts commands = Load();

  EXPECT_THAT(commands, ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_EQ(files.Content(kPath), "STOP\r\nSTART\r\nQ\r\nQM\r\n");
}

TEST_F(CommandList, AnExistingFileIsReadInItsOrderAndLeftAlone) {
  files.Put(kPath, "QM\r\nSPEED 10\r\nQM\r\n");

  EXPECT_THAT(Load(), ElementsAre("QM", "SPEED 10", "QM"));
  EXPECT_EQ(files.Content(kPath), "QM\r\nSPEED 10\r\nQM\r\n");
  EXPECT_EQ(files.Calls().replaces, 0);
}

TEST_F(CommandList, ACommaEndsAnEntry) {
  files.Put(kPath, "Q,QM\r\nA,,B\r\nC,\r\n");

  EXPECT_THAT(Load(), ElementsAre("Q", "QM", "A", "", "B", "C", ""));
}

TEST_F(CommandList, AnEmptyFileGivesAnEmptyList) {
  files.Put(kPath, "");

  EXPECT_THAT(Load(), IsEmpty());
  EXPECT_EQ(files.Content(kPath), "");
}

TEST_F(CommandList, EveryLineEndIsUnderstood) {
  for (const char* text : {"Q\r\nQM\r\n", "Q\nQM\n", "Q\rQM\r", "Q\r\nQM", "\xEF\xBB\xBFQ\nQM"}) {
    EXPECT_THAT(ParseCommandList(text), ElementsAre("Q", "QM")) << text;
  }
}

TEST_F(CommandList, AnEmptyLineIsAnEmptyCommand) {
  EXPECT_THAT(ParseCommandList("Q\r\n\r\nQM\r\n"), ElementsAre("Q", "", "QM"));
}

TEST_F(CommandList, CommandsAreTakenWithoutChange) {
  EXPECT_THAT(ParseCommandList("  q m ;\"1.5\"\t\r\n"), ElementsAre("  q m ;\"1.5\"\t"));
}

TEST_F(CommandList, BytesThatAreNotUtf8AreLatin1) {
  EXPECT_THAT(ParseCommandList("\xE9\n\xC3\xA9\n"), ElementsAre("\xC3\xA9", "\xC3\xA9"));
}

TEST_F(CommandList, OfNoiseAtMostTenThousandEntriesAreTaken) {
  std::mt19937 random(1);
  std::string noise;
  for (int i = 0; i < 1'000'000; ++i) noise.push_back(static_cast<char>(random()));
  files.Put(kPath, noise);

  const Texts commands = Load();

  EXPECT_THAT(commands, SizeIs(10'000));
  for (const std::string& command : commands) ASSERT_TRUE(data::IsUtf8(command));
}

TEST_F(CommandList, WhereTheFileCannotBeMadeTheDefaultsServe) {
  files.Refuse("/lab", "Permission denied");

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_THAT(files.Paths(), IsEmpty());
}

TEST_F(CommandList, OnAFullDiskTheDefaultsServeAndNoHalfFileStays) {
  files.FailAfter(5);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_THAT(files.Paths(), IsEmpty());
}

TEST_F(CommandList, WhereTheFileCannotBeReadTheDefaultsServe) {
  files.Put(kPath, "SPEED\r\n");
  files.Unreadable(kPath);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_EQ(files.Content(kPath), "SPEED\r\n");
}

TEST_F(CommandList, WhereAFolderHasItsNameTheDefaultsServe) {
  files.MakeFolder(kPath);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
}

}  // namespace
}  // namespace quenlor::link
