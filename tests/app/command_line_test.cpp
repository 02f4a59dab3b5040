// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <sstream>

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
  EXPECT_THAT(line.files, ElementsAre());
  EXPECT_EQ(line.batch.task, Task::kWindow);
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
  EXPECT_THAT(line.files, ElementsAre("run.csv"));
}

TEST(CommandLine, AFileMayBeginWithADashAfterTheDashes) {
  EXPECT_THAT(Parse({"--", "-odd.csv"}).files, ElementsAre("-odd.csv"));
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
      {{"-"}, "standard input"},
      {{"--help=now"}, "takes no value"}};
  for (const auto& [arguments, words] : wrong)
    EXPECT_THAT(Parse(arguments).error, HasSubstr(words)) << arguments[0];
}

TEST(CommandLine, HelpNamesEveryOption) {
  for (const char* option : {"--folder",    "--port",      "--virtual",       "--instrument", "--help",
                             "--version",   "FILE",        "--report",        "--graph",      "--statistics",
                             "--paper",     "--landscape", "--size",          "--kind",       "--format",
                             "-h,",         "--measure",   "--merge",         "--settings",   "--com-port",
                             "--baud",      "--parity",    "--length",        "--stop-bit",   "--terminator",
                             "--visco",     "--number",    "--decimal-point", "--command",    "--repeat",
                             "--auto-stop", "--readings",  "--minutes",       "--runs",       "--pause",
                             "--on-loss",   "--quiet"}) {
    EXPECT_THAT(HelpText(), HasSubstr(option));
  }
}

TEST(CommandLine, HelpFitsATerminal) {
  std::istringstream help(HelpText());
  for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80U) << line;
}

TEST(CommandLine, TakesTheBatchCommands) {
  const CommandLine report =
      Parse({"--report", "out.pdf", "--paper=Letter", "--landscape", "a.csv", "-", "b.csv"});
  EXPECT_EQ(report.error, "");
  EXPECT_EQ(report.batch.task, Task::kReport);
  EXPECT_EQ(report.batch.output, "out.pdf");
  EXPECT_TRUE(report.batch.letter);
  EXPECT_TRUE(report.batch.landscape);
  EXPECT_THAT(report.files, ElementsAre("a.csv", "-", "b.csv"));

  const CommandLine graph = Parse({"a.csv", "--graph=out.SVG", "--size", "640x480", "--kind", "visco-temp"});
  EXPECT_EQ(graph.error, "");
  EXPECT_EQ(graph.batch.task, Task::kGraph);
  EXPECT_EQ(graph.batch.picture, PictureFormat::kSvg);
  EXPECT_EQ(graph.batch.width, 640);
  EXPECT_EQ(graph.batch.height, 480);
  EXPECT_EQ(graph.batch.kind, graph::GraphKind::ViscoTemp);

  EXPECT_EQ(Parse({"--statistics", "a.csv"}).batch.format, OutputFormat::kText);
  EXPECT_EQ(Parse({"--statistics", "--format", "json", "a.csv"}).batch.format, OutputFormat::kJson);
}

TEST(CommandLine, TakesAMeasurement) {
  const CommandLine line = Parse({"--measure", "out.csv",   "--port",     "2=/dev/ttyV2", "--virtual",
                                  "1",         "--format",  "json",       "--baud=9600",  "--quiet",
                                  "--runs",    "3",         "--readings", "10",           "--pause",
                                  "2.5",       "--minutes", "7",          "--on-loss",    "wait",
                                  "--command", "QM"});
  EXPECT_EQ(line.error, "");
  EXPECT_EQ(line.batch.task, Task::kMeasure);
  EXPECT_EQ(line.batch.output, "out.csv");
  EXPECT_EQ(line.batch.format, OutputFormat::kJson);
  EXPECT_THAT(line.ports, ElementsAre(Pair(2, "/dev/ttyV2")));
  EXPECT_THAT(line.virtual_ports, ElementsAre(1));
  const MeasureOptions& measure = line.batch.measure;
  EXPECT_THAT(measure.choices, ElementsAre(Pair(data::setting::kBPS, "4")));
  EXPECT_EQ(measure.command, "QM");
  EXPECT_EQ(measure.readings, 10);
  EXPECT_EQ(measure.minutes, 7);
  EXPECT_EQ(measure.runs, 3);
  EXPECT_EQ(measure.pause, 2.5);
  EXPECT_TRUE(measure.wait_on_loss);
  EXPECT_TRUE(measure.quiet);
}

TEST(CommandLine, RefusesWrongUsageOfTheBatchCommands) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
      {{"--report"}, "--report needs a value"},
      {{"--report", "x.pdf"}, "--report needs a file"},
      {{"--report", "a.csv", "b.csv"}, ".pdf"},
      {{"--statistics"}, "--statistics needs a file"},
      {{"--graph", "x.bmp", "a.csv"}, ".png, .svg and .pdf"},
      {{"--graph", "png", "a.csv"}, ".png, .svg and .pdf"},
      {{"--graph", "x.png", "a.csv", "b.csv"}, "one file"},
      {{"--graph", "x.png", "--report", "x.pdf", "a.csv"}, "only one of"},
      {{"--graph", "x.png", "--size", "640", "a.csv"}, "WIDTHxHEIGHT"},
      {{"--graph", "x.png", "--size", "0x480", "a.csv"}, "WIDTHxHEIGHT"},
      {{"--graph", "x.png", "--size", "640x99999", "a.csv"}, "WIDTHxHEIGHT"},
      {{"--graph", "x.png", "--size", "640x480x2", "a.csv"}, "WIDTHxHEIGHT"},
      {{"--graph", "x.png", "--kind", "round", "a.csv"}, "visco-time, visco-temp-time, visco-temp"},
      {{"--report", "x.pdf", "--paper", "A3", "a.csv"}, "A4, Letter"},
      {{"--statistics", "--format", "xml", "a.csv"}, "text, csv, json"},
      {{"--statistics", "--size", "1x1", "a.csv"}, "--size belongs to --graph"},
      {{"--landscape", "a.csv"}, "--landscape belongs to --report"},
      {{"--kind", "visco-temp", "a.csv"}, "--kind belongs to --report or --graph"},
      {{"--statistics", "-", "-"}, "only once"},
      {{"--statistics=all", "a.csv"}, "takes no value"},
      {{"--merge", "all.csv"}, "--merge needs a file"},
      {{"--merge", "all.csv"}, "--merge needs a file"},
      {{"--measure"}, "--measure needs a value"},
      {{"--measure", "out.csv", "a.csv"}, "--measure reads no file: a.csv"},
      {{"--measure", "out.csv", "--statistics"}, "only one of"},
      {{"--measure", "out.csv", "--size", "1x1"}, "--size belongs to --graph"},
      {{"--measure", "out.csv", "--quiet=no"}, "takes no value"},
      {{"--measure", "out.csv", "--baud"}, "--baud needs a value"},
      {{"--measure", "out.csv", "--parity", "X"}, "--parity needs one of E, O, N, not X"},
      {{"--baud", "9600", "a.csv"}, "--baud belongs to --measure"},
      {{"--statistics", "--quiet", "a.csv"}, "--quiet belongs to --measure"}};
  for (const auto& [arguments, words] : wrong) {
    EXPECT_THAT(Parse(arguments).error, HasSubstr(words)) << testing::PrintToString(arguments);
  }
}

}  // namespace
}  // namespace quenlor::app
