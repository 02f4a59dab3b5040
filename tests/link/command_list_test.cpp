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

class CommandListTest : public testing::Test {
 protected:
  Texts Load() { return LoadCommandList({files, kPath}).Entries(); }

  platform::memory::MemoryFileSystem files;
};

TEST_F(CommandListTest, AMissingFileIsMadeWithTheFourDefaults) {
  const Texts commands = Load();

  EXPECT_THAT(commands, ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_EQ(files.Content(kPath), "STOP\r\nSTART\r\nQ\r\nQM\r\n");
}

TEST_F(CommandListTest, AnExistingFileIsReadInItsOrderAndLeftAlone) {
  files.Put(kPath, "QM\r\nSPEED 10\r\nQM\r\n");

  EXPECT_THAT(Load(), ElementsAre("QM", "SPEED 10", "QM"));
  EXPECT_EQ(files.Content(kPath), "QM\r\nSPEED 10\r\nQM\r\n");
  EXPECT_EQ(files.Calls().replaces, 0);
}

TEST_F(CommandListTest, ACommaEndsAnEntry) {
  files.Put(kPath, "Q,QM\r\nA,,B\r\nC,\r\n");

  EXPECT_THAT(Load(), ElementsAre("Q", "QM", "A", "", "B", "C", ""));
}

TEST_F(CommandListTest, AnEmptyFileGivesAnEmptyList) {
  files.Put(kPath, "");

  EXPECT_THAT(Load(), IsEmpty());
  EXPECT_EQ(files.Content(kPath), "");
}

TEST_F(CommandListTest, EveryLineEndIsUnderstood) {
  for (const char* text : {"Q\r\nQM\r\n", "Q\nQM\n", "Q\rQM\r", "Q\r\nQM", "\xEF\xBB\xBFQ\nQM"}) {
    EXPECT_THAT(CommandList(text).Entries(), ElementsAre("Q", "QM")) << text;
  }
}

TEST_F(CommandListTest, AnEmptyLineIsAnEmptyCommand) {
  EXPECT_THAT(CommandList("Q\r\n\r\nQM\r\n").Entries(), ElementsAre("Q", "", "QM"));
}

TEST_F(CommandListTest, CommandsAreTakenWithoutChange) {
  EXPECT_THAT(CommandList("  q m ;\"1.5\"\t\r\n").Entries(), ElementsAre("  q m ;\"1.5\"\t"));
}

TEST_F(CommandListTest, BytesThatAreNotUtf8AreLatin1) {
  EXPECT_THAT(CommandList("\xE9\n\xC3\xA9\n").Entries(), ElementsAre("\xC3\xA9", "\xC3\xA9"));
}

TEST_F(CommandListTest, AnEntryIsSentAsItStandsInTheFile) {
  const CommandList list("\xE9\nQ\n\xC3\xA9\n");
  EXPECT_EQ(list.BytesOf("\xC3\xA9"), "\xE9") << "the first that reads so";
  EXPECT_EQ(list.BytesOf("Q"), "Q");
}

TEST_F(CommandListTest, TypedLettersGoOutInTheEncodingOfTheFile) {
  EXPECT_EQ(CommandList("Q\n").BytesOf("20 \xC2\xB0"
                                       "C"),
            "20 \xB0"
            "C")
      << "Latin-1 where the file is plain ASCII";
  EXPECT_EQ(CommandList("\xB0\n").BytesOf("20 \xC2\xB0"
                                          "C"),
            "20 \xB0"
            "C");
  EXPECT_EQ(CommandList("\xC2\xB5\n")
                .BytesOf("20 \xC2\xB0"
                         "C"),
            "20 \xC2\xB0"
            "C");
  EXPECT_EQ(CommandList("Q\n").BytesOf("5 \xE2\x82\xAC"), "5 \xE2\x82\xAC") << "Latin-1 has no such letter";
}

TEST_F(CommandListTest, OfNoiseAtMostTenThousandEntriesAreTaken) {
  std::mt19937 random(1);
  std::string noise;
  for (int i = 0; i < 1'000'000; ++i) noise.push_back(static_cast<char>(random()));
  files.Put(kPath, noise);

  const Texts commands = Load();

  EXPECT_THAT(commands, SizeIs(10'000));
  for (const std::string& command : commands) ASSERT_TRUE(data::IsUtf8(command));
}

TEST_F(CommandListTest, WhereTheFileCannotBeMadeTheDefaultsServe) {
  files.Refuse("/lab", "Permission denied");

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_THAT(files.Paths(), IsEmpty());
}

TEST_F(CommandListTest, OnAFullDiskTheDefaultsServeAndNoHalfFileStays) {
  files.FailAfter(5);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_THAT(files.Paths(), IsEmpty());
}

TEST_F(CommandListTest, WhereTheFileCannotBeReadTheDefaultsServe) {
  files.Put(kPath, "SPEED\r\n");
  files.Unreadable(kPath);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
  EXPECT_EQ(files.Content(kPath), "SPEED\r\n");
}

TEST_F(CommandListTest, WhereAFolderHasItsNameTheDefaultsServe) {
  files.MakeFolder(kPath);

  EXPECT_THAT(Load(), ElementsAre("STOP", "START", "Q", "QM"));
}

}  // namespace
}  // namespace quenlor::link
