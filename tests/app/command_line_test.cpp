// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

CommandLine Parse(const std::vector<std::string>& arguments) { return ParseCommandLine(arguments); }

TEST(CommandLine, NothingMeansANewDocument) {
  const CommandLine line = Parse({});
  EXPECT_EQ(line.error, "");
  EXPECT_EQ(line.file, "");
  EXPECT_EQ(line.folder, "");
}

TEST(CommandLine, TakesEveryOptionInBothSpellings) {
  const CommandLine line =
      Parse({"--folder", "/lab", "--port", "3=/dev/ttyUSB0", "--port=4=/dev/x=y", "--virtual", "1",
             "--virtual=2", "--instrument", "--interval 0.5", "run.csv"});
  EXPECT_EQ(line.error, "");
  EXPECT_EQ(line.folder, "/lab");
  EXPECT_THAT(line.ports, ElementsAre(Pair(3, "/dev/ttyUSB0"), Pair(4, "/dev/x=y")));
  EXPECT_THAT(line.virtual_ports, ElementsAre(1, 2));
  EXPECT_THAT(line.instrument, ElementsAre("--interval", "0.5"));
  EXPECT_EQ(line.file, "run.csv");
}

TEST(CommandLine, AFileMayBeginWithADashAfterTheDashes) {
  EXPECT_EQ(Parse({"--", "-odd.csv"}).file, "-odd.csv");
}

TEST(CommandLine, RefusesWrongUsageInWords) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
      {{"--colour"}, "unknown option --colour"},
      {{"-x"}, "unknown option -x"},
      {{"--folder"}, "--folder needs a value"},
      {{"--port"}, "--port needs a value"},
      {{"--port", "x"}, "n=DEVICE"},
      {{"--port", "0=/dev/x"}, "n=DEVICE"},
      {{"--port", "1="}, "n=DEVICE"},
      {{"--port", "-1=/dev/x"}, "n=DEVICE"},
      {{"--virtual", "one"}, "port number"},
      {{"--virtual", "99999999999"}, "port number"},
      {{"a.csv", "b.csv"}, "more than one file"},
      {{""}, "empty"},
      {{"--help=now"}, "takes no value"}};
  for (const auto& [arguments, words] : wrong)
    EXPECT_THAT(Parse(arguments).error, HasSubstr(words)) << arguments[0];
}

TEST(CommandLine, HelpNamesEveryOption) {
  for (const char* option :
       {"--folder", "--port", "--virtual", "--instrument", "--help", "--version", "FILE"}) {
    EXPECT_THAT(HelpText(), HasSubstr(option));
  }
}

}  // namespace
}  // namespace quenlor::app
