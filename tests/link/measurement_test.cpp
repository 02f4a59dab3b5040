// SPDX-License-Identifier: MIT
// How a measurement begins, and the commands sent within it.

#include "link/measurement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Start.

TEST(Measurement, IsRunningExactlyWhileThePortIsOpen) {
  Bench bench;
  EXPECT_FALSE(bench.measurement.Running());

  bench.Start();
  EXPECT_TRUE(bench.measurement.Running());
  EXPECT_TRUE(bench.port.PortOpen());

  bench.measurement.Stop();
  EXPECT_FALSE(bench.measurement.Running());
  EXPECT_FALSE(bench.port.PortOpen());
}

TEST(Measurement, StartOpensThePortOfTheMenu) {
  Bench bench;
  bench.settings.Set(setting::kPort, 12);

  bench.Start();

  EXPECT_EQ(bench.port.CommPort(), 12);
  EXPECT_EQ(bench.port.Settings(), "9600N81");
}

TEST(Measurement, StartOpensThenRaisesRtsThenWritesTheRawLogThenSends) {
  Bench bench;
  bench.Visco();
  Texts when_painting, when_writing;
  bench.while_painting = [&] { when_painting = bench.port.Calls(); };
  bench.while_writing_the_raw_log = [&] { when_writing = bench.port.Calls(); };

  bench.Start();

  EXPECT_THAT(when_painting, ElementsAre("Open 1 9600N81"));
  EXPECT_THAT(when_writing, ElementsAre("Open 1 9600N81", "RTSEnable 1"));
  EXPECT_THAT(bench.port.Calls(),
              ElementsAre("Open 1 9600N81", "RTSEnable 1", "ClearOutBuffer", "Output QUENLOR\r\n"));
  EXPECT_EQ(bench.loop.paints, 1);
  EXPECT_THAT(bench.loop.waits, IsEmpty());
}

TEST(Measurement, TheStateIsToldBeforeItIsPainted) {
  Bench bench;
  bool running_when_told = false;
  int told_when_painting = 0;
  bench.on_state_change = [&] { running_when_told = bench.measurement.Running(); };
  bench.while_painting = [&] { told_when_painting = bench.state_changes; };

  bench.Start();

  EXPECT_TRUE(running_when_told);
  EXPECT_EQ(told_when_painting, 1);
}

TEST(Measurement, WhatIsSentAtStartFollowsTheOptions) {
  struct Case {
    bool visco, repeat;
    int term;
    const char* sent;
  };
  for (const Case& example : {Case{true, false, 0, "QUENLOR\r\n"},
                              {true, false, 1, "QUENLOR\r"},
                              {true, true, 0, "QUENLOR\r\n"},
                              {true, true, 1, "QUENLOR\r"},
                              {false, true, 0, "QM\r\n"},
                              {false, true, 1, "QM\r"},
                              {false, false, 0, ""},
                              {false, false, 1, ""}}) {
    Bench bench;
    bench.measurement.SetCommandData("QM");
    if (example.visco) bench.Visco();
    if (example.repeat) bench.Repeat("5", "QM");
    bench.settings.Set(setting::kTerm, example.term);

    bench.Start();

    EXPECT_EQ(bench.TakeSent(), example.sent)
        << "visco " << example.visco << " repeat " << example.repeat << " terminator " << example.term;
  }
}

TEST(Measurement, ACommandIsOneLineWhateverLineEndsItHolds) {
  Bench bench;
  bench.Repeat("5", "\nSP\rEED\r\n 10\r");

  bench.Start();

  EXPECT_EQ(bench.TakeSent(), "SPEED 10\r\n");
}

TEST(Measurement, WithAnEmptyCommandAndRepeatOnlyTheTerminatorIsSent) {
  Bench bench;
  bench.Repeat("5", "");

  bench.Start();

  EXPECT_EQ(bench.TakeSent(), "\r\n");
}

TEST(Measurement, StartNeedsNoAnswer) {
  Bench bench;
  bench.Repeat("100", "QM");
  bench.Start();

  bench.Advance(60);

  EXPECT_FALSE(bench.Timer2.Enabled());
  EXPECT_TRUE(bench.measurement.Running());
}

TEST(Measurement, AHalfLineOfTheMeasurementBeforeIsForgotten) {
  Bench bench;
  bench.Start();
  bench.port.Feed("half a li");
  bench.measurement.Stop();

  bench.Start();
  bench.Line("12.3");

  EXPECT_THAT(bench.received, ElementsAre("12.3"));
}

TEST(Measurement, StartWhileRunningDoesNothing) {
  Bench bench;
  bench.Visco();
  bench.Start();
  const Texts calls = bench.port.Calls();

  bench.Start();

  EXPECT_EQ(bench.port.Calls(), calls);
}

TEST(Measurement, EachStartThatReceivesALineIsANewRun) {
  Bench bench;

  bench.Measure({"1", "2"});
  bench.Measure({"3"});
  bench.Measure({"4"});

  EXPECT_THAT(Column(bench.document.Grid1(), 0), ElementsAre("1", "1", "2", "3"));
}

TEST(Measurement, AStartThatReceivesNothingIsNoRun) {
  Bench bench;

  bench.Measure({"1"});
  bench.Measure({});
  bench.Measure({"2"});

  EXPECT_EQ(bench.document.RunCount(), 2);
  EXPECT_THAT(Column(bench.document.Grid1(), 0), ElementsAre("1", "2"));
}

TEST(Measurement, TheClockOfARunBeginsWithItsFirstLine) {
  Bench bench;
  bench.Start();
  bench.Advance(40);
  EXPECT_EQ(bench.document.StartTime(), 0);

  bench.Line("1");
  bench.Advance(2.5);
  bench.Line("2");

  EXPECT_THAT(Column(bench.document.Grid1(), 1), ElementsAre("00.0", "02.5"));
}

TEST(Measurement, ASecondRunCountsFromItsOwnFirstLine) {
  Bench bench;
  bench.Measure({"1"});
  bench.Advance(100);
  bench.Start();
  EXPECT_EQ(bench.document.StartTime(), 0);

  bench.Advance(3);
  bench.Line("2");

  EXPECT_THAT(Column(bench.document.Grid1(), 1), ElementsAre("00.0", "00.0"));
}

// Commands.

TEST(Measurement, ACommandIsSentWithItsTerminator) {
  Bench bench;
  bench.Start();

  bench.measurement.SendCommand("SPEED 10");
  EXPECT_EQ(bench.TakeSent(), "SPEED 10\r\n");

  bench.settings.Set(setting::kTerm, 1);
  bench.measurement.SendCommand("SPEED 10");
  EXPECT_EQ(bench.TakeSent(), "SPEED 10\r");
}

TEST(Measurement, AnEmptyCommandIsItsTerminator) {
  Bench bench;
  bench.Start();

  bench.measurement.SendCommand("");

  EXPECT_EQ(bench.TakeSent(), "\r\n");
}

TEST(Measurement, ACommandReplacesWhatHasNotLeftYet) {
  Bench bench;
  bench.Start();
  bench.port.HoldOutput(true);

  bench.measurement.SendCommand("FIRST");
  bench.measurement.SendCommand("SECOND");
  bench.port.HoldOutput(false);

  EXPECT_EQ(bench.TakeSent(), "SECOND\r\n");
}

TEST(Measurement, OnAClosedPortACommandDoesNothing) {
  Bench bench;
  bench.measurement.SendCommand("QM");
  EXPECT_THAT(bench.port.Calls(), IsEmpty());

  bench.Measure({"1"});
  const Texts calls = bench.port.Calls();
  bench.measurement.SendCommand("QM");

  EXPECT_EQ(bench.port.Calls(), calls);
  EXPECT_FALSE(bench.Timer2.Enabled());
}

TEST(Measurement, WhatArrivesWhileTheRawLogIsWrittenFollowsInTableAndLog) {
  Bench bench;
  bench.New();
  bench.while_writing_the_raw_log = [&] {
    bench.Line("7001");
    bench.measurement.Timer1_Timer();
    EXPECT_EQ(bench.document.Grid1().EntryRow(), 1) << "no log could take it yet";
  };
  bench.Start();
  bench.while_writing_the_raw_log = {};
  bench.Line("7002");
  EXPECT_EQ(Column(bench.document.Grid1(), 2), (Texts{"7001", "7002"}));
  EXPECT_EQ(Column(data::ParseDataFile(bench.RawLogText()).table, 2), (Texts{"7001", "7002"}));
}

}  // namespace
}  // namespace quenlor::link
