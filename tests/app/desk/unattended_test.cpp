// SPDX-License-Identifier: MIT
#include "app/desk/unattended.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/desk/desk_bench.h"
#include "tests/app/desk/unattended_bench.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class UnattendedTest : public testing::Test, protected UnattendedBench {};

// What the data file holds of readings.
std::string Readings(const std::string& file) {
  const std::size_t first = file.find("\r\n") + 2;
  return file.substr(first, file.find("Info") - first);
}

TEST_F(UnattendedTest, ReadingsEndItAndTheFileIsThatOfTheWindow) {
  order.options.readings = 3;
  Begin();
  for (const char* text : {"1.5 mPa.s,25.0 C", "2.5 mPa.s,25.1 C", "3.5 mPa.s,25.2 C"}) Reading(text);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_FALSE(MSComm1.PortOpen());

  DeskBench desk;  // the window's own commands, at the same clock
  desk.session.List().Set(setting::kVisco, 0);
  desk.session.List().Set(setting::kRepeat, 0);
  desk.commands.New();
  desk.measurement.Start();
  for (const char* text : {"1.5 mPa.s,25.0 C", "2.5 mPa.s,25.1 C", "3.5 mPa.s,25.2 C"}) {
    desk.MSComm1.Feed(std::string(text) + "\r");
    desk.clock.Advance(1.0);
  }
  desk.measurement.Stop();
  desk.dialogs.Path("/data/out.csv");
  desk.commands.Save();
  EXPECT_EQ(Saved(), desk.files.Content("/data/out.csv"));
  EXPECT_EQ(Log(), desk.files.Content("/lab/Com_1.txt"));
  EXPECT_EQ(files.Content("/lab/Saved.txt"), desk.files.Content("/lab/Saved.txt"));
}

TEST_F(UnattendedTest, TheFolderStaysAsItIsButForTheLogs) {
  files.Put("/lab/quenlor.ini", data::SettingsList().Text());
  order.options.readings = 1;
  Choose(setting::kBPS, "4");
  Begin();
  Reading("1");
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(files.Content("/lab/quenlor.ini"), data::SettingsList().Text());
  EXPECT_THAT(files.Paths(),
              ElementsAre("/data/out.csv", "/lab/Com_1.txt", "/lab/Saved.txt", "/lab/quenlor.ini"));
  EXPECT_EQ(MSComm1.Settings(), "9600E71");
}

TEST_F(UnattendedTest, ReadsSettingsTemplateAndCommandsOfTheFolder) {
  data::SettingsList list;
  list.Set(setting::kPort, 2);
  list.Set(setting::kParity, 2);
  list.Set(setting::kTerm, 1);
  list.Set(setting::kRepeatSeconds, 2);
  files.Put("/lab/quenlor.ini", list.Text());
  files.Put("/lab/Command_V.txt", "A\r\nB\r\n");
  files.Put("/lab/New.txt", "No.,Time,Torque\r\n");
  order.options.choices.clear();
  order.options.choices.emplace_back(setting::kVisco, "0");
  order.options.readings = 1;
  Begin();
  EXPECT_THAT(MSComm1.Calls(), Contains("Open 2 2400N71"));
  EXPECT_EQ(MSComm1.TakeSent(), "B\r");
  clock.Advance(2.0);
  EXPECT_EQ(MSComm1.TakeSent(), "B\r");
  Reading("7");
  EXPECT_THAT(Saved(), StartsWith("No.,Time,Torque\r\n1,00:00:00,7\r\n"));
}

TEST_F(UnattendedTest, SettingsMayComeFromAnotherFileAndACommandFromTheCommandLine) {
  data::SettingsList list;
  list.Set(setting::kBPS, 7);
  files.Put("/other.ini", list.Text());
  order.options.settings_file = "/other.ini";
  order.options.command = "GO";
  Choose(setting::kRepeat, "1");
  Begin();
  EXPECT_EQ(MSComm1.Settings(), "28800E71");
  EXPECT_EQ(MSComm1.TakeSent(), "GO\r\n");
  unattended->Stop("terminated");
}

TEST_F(UnattendedTest, ASettingsFileThatIsNotThereIsWrongUsage) {
  order.options.settings_file = "/other.ini";
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kWrongUsage);
  EXPECT_THAT(errors, ElementsAre(HasSubstr("/other.ini")));
  EXPECT_THAT(files.Paths(), IsEmpty());
}

TEST_F(UnattendedTest, SettingsThatCannotBeReadAreNotTakenForTheDefaults) {
  files.Put("/lab/quenlor.ini", data::SettingsList().Text());
  files.Unreadable("/lab/quenlor.ini");
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kWrongUsage);
  EXPECT_THAT(errors, ElementsAre(HasSubstr("cannot read /lab/quenlor.ini")));
  EXPECT_THAT(MSComm1.Calls(), IsEmpty());
}

TEST_F(UnattendedTest, WhatCannotBeIsRefusedBeforeThePortIsOpened) {
  order.options.runs = 2;
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kWrongUsage);
  EXPECT_THAT(errors, ElementsAre(HasSubstr("--runs needs what ends a run")));
  EXPECT_THAT(MSComm1.Calls(), IsEmpty());
}

TEST_F(UnattendedTest, AnOutputThatCouldNotBeWrittenIsToldBeforeThePortIsOpened) {
  why_not_written = platform::Failure{"cannot write /data/out.csv: it is there already"};
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kCannotWrite);
  EXPECT_THAT(errors, ElementsAre("cannot write /data/out.csv: it is there already"));
  EXPECT_THAT(MSComm1.Calls(), IsEmpty());
}

TEST_F(UnattendedTest, StopSendsStopAndTakesLinesForTwoSeconds) {
  Choose(setting::kVisco, "1");
  Begin();
  Reading("1");
  EXPECT_EQ(MSComm1.TakeSent(), "QUENLOR\r\n");
  loop.during_wait = [this] {
    EXPECT_EQ(MSComm1.TakeSent(), "STOP\r\n");
    Line("2");
    unattended->Stop("terminated");  // an impatient second one changes nothing
  };
  unattended->Stop("interrupted");
  EXPECT_FALSE(status) << "a line is perhaps being taken; it is done in a turn";
  clock.Advance(0.5);
  clock.Advance(0.5);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_THAT(loop.waits, ElementsAre(2.0));
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n1,00:00:01,2,,,\r\n");
  EXPECT_THAT(errors, ElementsAre("2026/11/21 09:30:00 Measuring: Port 1 ttyV1 · 2400 E71 CR/LF",
                                  "2026/11/21 09:30:01 Stopping: interrupted",
                                  StartsWith("2026/11/21 09:30:03 The measurement has ended at 09:30:03: "),
                                  "2026/11/21 09:30:03 Saved /data/out.csv"));
}

TEST_F(UnattendedTest, ReadingsThatComeWhileItStopsAreKept) {
  Choose(setting::kVisco, "1");
  order.options.readings = 2;
  loop.during_wait = [this] { Line("3"); };
  Begin();
  Reading("1");
  Reading("2");
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n1,00:00:01,2,,,\r\n1,00:00:01,3,,,\r\n");
}

TEST_F(UnattendedTest, AutoStopEndsItAsAsked) {
  Choose(setting::kRepeat, "1");
  Choose(setting::kRepeatSeconds, "1");
  Choose(setting::kAutoStop, "1");
  Choose(setting::kAutoStopMinutes, "1");
  order.options.command = "QM";
  Begin();
  for (int second = 0; second < 120 && !status; ++second) {
    clock.Advance(1.0);
    if (MSComm1.TakeSent().find("QM") != std::string::npos) Line("5");
  }
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_THAT(errors, Contains(HasSubstr("Auto Stop after 1 min")));
  EXPECT_THAT(Saved(), HasSubstr("1,00:00:58,5,,,\r\n"));
}

TEST_F(UnattendedTest, TheWatchdogEndsItWith5AndTheDataAreWritten) {
  Choose(setting::kRepeat, "1");
  order.options.command = "QM";
  Begin();
  Line("5");
  clock.Advance(11.0);
  EXPECT_EQ(status, ExitStatus::kMeasurementLost);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,5,,,\r\n");
  EXPECT_THAT(errors, Contains(HasSubstr("no reply to QM for 5 s")));
}

TEST_F(UnattendedTest, MinutesEndItFromItsStartWhateverComes) {
  order.options.minutes = 1.5;
  Begin();
  clock.Advance(89.0);
  EXPECT_TRUE(MSComm1.PortOpen());
  Line("5");
  clock.Advance(1.5);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_THAT(errors, Contains("2026/11/21 09:31:30 Stopping: 1.5 min are over"));
}

TEST_F(UnattendedTest, NoReadingIsToldAndTheFileIsThere) {
  order.options.minutes = 1;
  order.options.quiet = true;
  Begin();
  clock.Advance(61.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_THAT(Saved(), StartsWith("No.,Time,"));
  EXPECT_THAT(errors, ElementsAre("2026/11/21 09:31:00 No reading has come"));
}

TEST_F(UnattendedTest, RunsFollowEachOtherInOneDocument) {
  order.options.runs = 3;
  order.options.pause = 10;
  order.options.readings = 2;
  Begin();
  for (int run = 1; run <= 3; ++run) {
    ASSERT_TRUE(MSComm1.PortOpen()) << run;
    Reading("1");
    Reading("2");
    EXPECT_FALSE(MSComm1.PortOpen());
    EXPECT_EQ(Saved().empty(), run < 3) << "the file is written at the end, in one step";
    clock.Advance(8.5);
    EXPECT_FALSE(MSComm1.PortOpen()) << "ten seconds are not over";
    EXPECT_EQ(status.has_value(), run == 3);
    clock.Advance(1.0);
  }
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Readings(Saved()),
            "1,00:00:00,1,,,\r\n1,00:00:01,2,,,\r\n2,00:00:00,1,,,\r\n2,00:00:01,2,,,\r\n"
            "3,00:00:00,1,,,\r\n3,00:00:01,2,,,\r\n");
}

TEST_F(UnattendedTest, RunsWithoutAPauseFollowAtOnceAndASignalEndsThemAll) {
  order.options.runs = 3;
  order.options.readings = 1;
  Begin();
  Reading("1");
  EXPECT_TRUE(MSComm1.PortOpen());
  unattended->Stop("terminated");
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n");
}

TEST_F(UnattendedTest, ASignalInAPauseEndsIt) {
  order.options.runs = 2;
  order.options.pause = 100;
  order.options.readings = 1;
  Begin();
  Reading("1");
  unattended->Stop("terminated");
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n");
}

TEST_F(UnattendedTest, APortThatCannotBeOpenedEndsWith3InTheWordsOfTheWindow) {
  MSComm1.RefuseOpen({"/dev/ttyV1", "No such file or directory", ""});
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kCannotOpen);
  EXPECT_THAT(errors, ElementsAre("2026/11/21 09:30:00 /dev/ttyV1: No such file or directory"));
  EXPECT_FALSE(files.Exists("/data/out.csv")) << "nothing was measured";
}

TEST_F(UnattendedTest, ALockedLogEndsWith3InTheWordsOfTheWindow) {
  const auto lock = files.Lock("/lab/Com_1.lock");
  Begin();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kCannotOpen);
  EXPECT_THAT(errors, ElementsAre(HasSubstr("/lab/Com_1.lock is held by process")));
}

TEST_F(UnattendedTest, APortThatIsGoneForALaterRunEndsWith3WithTheReadingsWritten) {
  order.options.runs = 2;
  order.options.readings = 1;
  order.options.pause = 1;
  Begin();
  Line("1");
  MSComm1.RefuseOpen({"/dev/ttyV1", "No such file or directory", ""});
  clock.Advance(3.0);
  EXPECT_EQ(status, ExitStatus::kCannotOpen);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n");
}

TEST_F(UnattendedTest, AFullDiskEndsWith4AndTellsWhereTheReadingsAre) {
  order.options.readings = 1;
  Begin();
  files.Refuse("/data", "No space left on device", platform::FailureKind::kFull);
  Reading("1");
  EXPECT_EQ(status, ExitStatus::kCannotWrite);
  EXPECT_THAT(errors.back(), HasSubstr("No space left on device; the readings are in /lab/Com_1.txt"));
  EXPECT_THAT(Log(), EndsWith("1,00:00:00,1,,,\r\n"));
  EXPECT_FALSE(files.Exists("/lab/Saved.txt")) << "the next measurement sets that log aside";
}

TEST_F(UnattendedTest, AFileThatHasComeMeanwhileIsNotWrittenOver) {
  order.options.readings = 1;
  Begin();
  files.Put("/data/out.csv", "somebody's");
  files.Put("/data/out-2.csv", "somebody else's");
  Reading("1");
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Saved(), "somebody's");
  EXPECT_EQ(Readings(files.Content("/data/out-3.csv")), "1,00:00:00,1,,,\r\n");
  EXPECT_THAT(errors, Contains(HasSubstr("Saved /data/out-3.csv")));
}

TEST_F(UnattendedTest, WhatStoodThereFromTheBeginningIsAPipeAndWrittenTo) {
  files.Put("/data/out.csv", "");
  order.options.readings = 1;
  Begin();
  Reading("1");
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n");
}

TEST_F(UnattendedTest, ALostDeviceEndsItWith5AndTheDataAreWritten) {
  Begin();
  Reading("1");
  Line("2");
  MSComm1.VanishDevice();
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kMeasurementLost);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n1,00:00:01,2,,,\r\n");
  EXPECT_THAT(errors, Contains(HasSubstr("port 1 is gone; 2 readings are safe in /lab/Com_1.txt")));
}

TEST_F(UnattendedTest, ALostDeviceIsWaitedForIfAskedAndComesBackAsANewRun) {
  order.options.wait_on_loss = true;
  order.options.readings = 3;
  Begin();
  Reading("1");
  MSComm1.RefuseOpen({"/dev/ttyV1", "No such file or directory", ""});
  MSComm1.VanishDevice();
  clock.Advance(3600.0);
  EXPECT_FALSE(status);
  EXPECT_EQ(std::ranges::count_if(errors,
                                  [](const std::string& line) { return line.find("Waiting") != line.npos; }),
            1)
      << "told once";
  MSComm1.AllowOpen();
  clock.Advance(1.0);
  EXPECT_TRUE(MSComm1.PortOpen());
  Reading("2");
  EXPECT_FALSE(status);
  Reading("3");
  EXPECT_EQ(status, ExitStatus::kDone) << "three readings, in both parts together";
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n2,00:00:00,2,,,\r\n2,00:00:01,3,,,\r\n");
}

TEST_F(UnattendedTest, WhileADeviceIsWaitedForMinutesAndSignalsEndIt) {
  for (const bool by_signal : {false, true}) {
    UnattendedBench bench;
    bench.order.options.wait_on_loss = true;
    bench.order.options.minutes = 2;
    bench.Begin();
    bench.Reading("1");
    bench.MSComm1.RefuseOpen({"/dev/ttyV1", "No such file or directory", ""});
    bench.MSComm1.VanishDevice();
    bench.clock.Advance(60.0);
    EXPECT_FALSE(bench.status);
    if (by_signal) bench.unattended->Stop("terminated");
    bench.clock.Advance(by_signal ? 1.0 : 60.0);
    EXPECT_EQ(bench.status, ExitStatus::kDone);
    EXPECT_EQ(Readings(bench.Saved()), "1,00:00:00,1,,,\r\n");
  }
}

TEST_F(UnattendedTest, ADeviceThatIsNotThereAtTheBeginningIsNotWaitedFor) {
  order.options.wait_on_loss = true;
  MSComm1.RefuseOpen({"/dev/ttyV1", "No such file or directory", ""});
  Begin();
  clock.Advance(2.0);
  EXPECT_EQ(status, ExitStatus::kCannotOpen);
}

TEST_F(UnattendedTest, ADeviceThatGoesWhileItStopsIsNoLoss) {
  Choose(setting::kVisco, "1");
  order.options.runs = 2;
  order.options.readings = 1;
  loop.during_wait = [this] { MSComm1.VanishDevice(); };
  Begin();
  Reading("1");
  clock.Advance(1.0);
  EXPECT_TRUE(MSComm1.PortOpen()) << "the second run";
  Reading("2");
  clock.Advance(1.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n2,00:00:00,2,,,\r\n");
}

TEST_F(UnattendedTest, AReaderThatGoesAwayCostsNoReading) {
  order.options.readings = 2;
  Begin();
  Reading("1");
  output_fails = platform::Failure{"cannot write to standard output: Broken pipe"};
  Reading("2");
  EXPECT_EQ(status, ExitStatus::kCannotWrite);
  EXPECT_EQ(Readings(Saved()), "1,00:00:00,1,,,\r\n1,00:00:01,2,,,\r\n");
  EXPECT_EQ(output, "1\t00:00:00\t1\t\t\t\n");
  EXPECT_THAT(errors, Contains(HasSubstr("Broken pipe")));
}

TEST_F(UnattendedTest, LogTroubleAndLineErrorsAreTold) {
  order.options.quiet = true;
  Begin();
  files.Refuse("/lab/Com_1.txt", "No space left on device", platform::FailureKind::kFull);
  Reading("1");
  EXPECT_THAT(errors, ElementsAre(HasSubstr("Raw Log Not Written: ")));
  MSComm1.Raise(1009);
  EXPECT_EQ(errors.size(), 1U) << "an error of the line is no failure";
  order.options.quiet = false;
  Begin();
  MSComm1.Raise(1009);
  EXPECT_THAT(errors, Contains(HasSubstr("Communication Error 1009")));
}

TEST_F(UnattendedTest, ADayOfReadingsASecondApartLosesNothing) {
  constexpr int kSeconds = 24 * 60 * 60;
  Choose(setting::kRepeat, "1");
  Choose(setting::kRepeatSeconds, "1");
  Choose(setting::kTimeS, "0");
  order.options.command = "QM";
  order.options.minutes = 24 * 60;
  order.format = OutputFormat::kJson;
  Begin();
  int asked = 0;
  for (int tick = 0; tick < kSeconds * 20 && !status; ++tick) {
    if (!MSComm1.TakeSent().empty()) Line(std::to_string(++asked));
    clock.Advance(0.05);
  }
  clock.Advance(5.0);
  EXPECT_EQ(status, ExitStatus::kDone);
  // Noon of the clock is passed once, midnight too; the grid of requests has not drifted by a tick.
  const data::MeasurementTable& table = unattended->Document().Grid1();
  ASSERT_EQ(table.EntryRow() - 1, kSeconds);
  for (const int row : {1, 2, 3600, kSeconds / 2, kSeconds}) {
    EXPECT_EQ(table.TextMatrix(row, 1), data::TenthsText(row - 1)) << row;
    EXPECT_EQ(table.TextMatrix(row, 2), std::to_string(row));
  }
  EXPECT_EQ(std::ranges::count(output, '\n'), kSeconds);
  const std::string saved = Saved();
  EXPECT_EQ(saved.substr(0, Log().size()), Log());
  EXPECT_THAT(errors.back(), HasSubstr("Saved /data/out.csv"));
}

}  // namespace
}  // namespace quenlor::app
