// SPDX-License-Identifier: MIT
// What stands in the way of a measurement, and what is left when it has come.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// Starts that fail.

TEST(MeasurementFailures, ARefusedPortIsToldInThePortsOwnWords) {
  Bench bench;
  bench.Visco();
  bench.Repeat("0");
  bench.port.RefuseOpen({"/dev/ttyUSB0", "Permission denied", "sudo adduser you dialout"});

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->device, "/dev/ttyUSB0");
  EXPECT_EQ(failure->reason, "Permission denied");
  EXPECT_EQ(failure->advice, "sudo adduser you dialout");
}

TEST(MeasurementFailures, ARefusedPortLeavesEverythingStopped) {
  Bench bench;
  bench.Visco();
  bench.Repeat("0");
  bench.port.RefuseOpen({"/dev/ttyUSB0", "Device or resource busy", ""});

  bench.measurement.Start();
  bench.Advance(10);

  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.TakeSent(), "");
  EXPECT_THAT(bench.files.Paths(), IsEmpty()) << "no raw log";
  EXPECT_THAT(bench.errors, IsEmpty());
}

TEST(MeasurementFailures, ARefusedPortMayWorkTheNextTime) {
  Bench bench;
  bench.Visco();
  bench.port.RefuseOpen({"", "No such file or directory", ""});
  bench.measurement.Start();
  bench.port.AllowOpen();

  bench.Start();
  bench.Line("1");

  EXPECT_EQ(bench.TakeSent(), "QUENLOR\r\n");
  EXPECT_EQ(bench.document.RunCount(), 1);
}

TEST(MeasurementFailures, AnIndexWithoutAnItemOpensNothing) {
  for (const int element :
       {setting::kPort, setting::kBPS, setting::kParity, setting::kLength, setting::kBit}) {
    Bench bench;
    bench.Visco();
    bench.settings.Set(element, 99);

    const auto failure = bench.measurement.Start();

    ASSERT_TRUE(failure) << element;
    EXPECT_FALSE(failure->reason.empty()) << element;
    EXPECT_TRUE(bench.Stopped()) << element;
    EXPECT_THAT(bench.port.Calls(), IsEmpty()) << element;
    EXPECT_THAT(bench.files.Paths(), IsEmpty()) << element;
  }
}

TEST(MeasurementFailures, WithoutARawLogTheMeasurementDoesNotStart) {
  Bench bench;
  bench.Visco();
  bench.Repeat("0");
  bench.files.Refuse("/lab/Com_1.txt", "Permission denied");

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->Text(), HasSubstr("/lab/Com_1.txt"));
  EXPECT_THAT(failure->reason, HasSubstr("Permission denied"));
  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.port.RTS(), false);
  bench.Advance(10);
  EXPECT_EQ(bench.TakeSent(), "");
}

TEST(MeasurementFailures, WithoutARawLogTheStateIsToldBack) {
  Bench bench;
  bench.files.Refuse("/lab", "Read-only file system");
  std::vector<bool> told;
  bench.on_state_change = [&] { told.push_back(bench.measurement.Running()); };

  bench.measurement.Start();

  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST(MeasurementFailures, ARawLogThatWorksAgainLetsTheMeasurementStart) {
  Bench bench;
  bench.files.Refuse("/lab", "Read-only file system");
  bench.measurement.Start();
  bench.files.Allow("/lab");

  bench.Measure({"1"});

  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,1,,,\r\n");
}

// A device that disappears.

TEST(MeasurementFailures, ADeviceThatDisappearsEndsTheMeasurementWithOneErrorLine) {
  Bench bench;
  bench.Visco();
  bench.Repeat("1", "QM");
  bench.Start();
  bench.Line("1");
  bench.measurement.SendCommand("QM");
  const int told = bench.state_changes;

  bench.port.VanishDevice();

  EXPECT_THAT(bench.errors, ElementsAre("Communication Error 1012"));
  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.state_changes, told + 1);
}

TEST(MeasurementFailures, AfterADeviceDisappearedNothingMoreIsTold) {
  Bench bench;
  bench.Repeat("0", "QM");
  bench.Start();
  bench.Line("1");
  bench.port.VanishDevice();
  const int told = bench.state_changes;

  bench.Line("2");
  bench.port.Raise(1009);
  bench.measurement.SendCommand("QM");
  bench.measurement.Stop();
  bench.Advance(60);

  EXPECT_THAT(bench.errors, ElementsAre("Communication Error 1012"));
  EXPECT_EQ(bench.state_changes, told);
}

TEST(MeasurementFailures, WhatADeviceSentBeforeItDisappearedIsKept) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.port.Feed("2\r3\rhalf");

  bench.port.VanishDevice();

  EXPECT_THAT(Column(bench.document.Grid1(), 2), ElementsAre("1", "2", "3"));
  EXPECT_TRUE(bench.document.DataChanged());
  EXPECT_EQ(bench.RawLogText(),
            "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,1,,,\r\n1,00.0,2,,,\r\n1,00.0,3,,,\r\n");
  EXPECT_EQ(bench.files.Calls().syncs, 1);
}

TEST(MeasurementFailures, ADeviceThatComesBackCanBeMeasuredAgain) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.port.VanishDevice();

  bench.Measure({"2"});

  EXPECT_THAT(Column(bench.document.Grid1(), 0), ElementsAre("1", "2"));
}

TEST(MeasurementFailures, ADeviceMayDisappearWhileStopWaits) {
  Bench bench;
  bench.Visco();
  bench.Repeat("0.5", "QM");
  bench.Start();
  bench.Line("1");
  bool start_worked_in_the_wait = false;
  bench.loop.during_wait = [&] {
    bench.port.VanishDevice();
    bench.Start();
    start_worked_in_the_wait = bench.measurement.Running();
  };

  bench.measurement.Stop();

  EXPECT_FALSE(start_worked_in_the_wait);
  EXPECT_THAT(bench.errors, ElementsAre("Communication Error 1012"));
  EXPECT_TRUE(bench.Stopped());
  EXPECT_THAT(Column(bench.document.Grid1(), 2), ElementsAre("1"));
}

TEST(MeasurementFailures, ADeviceMayDisappearWhileALineIsProcessed) {
  Bench bench;
  bench.Start();
  bench.on_line = [&] {
    bench.on_line = {};
    bench.port.Feed("3\r");
    bench.port.VanishDevice();
  };

  bench.port.Feed("1\r2\r");

  EXPECT_THAT(Column(bench.document.Grid1(), 2), ElementsAre("1", "2", "3"));
  EXPECT_THAT(bench.errors, ElementsAre("Communication Error 1012"));
  EXPECT_TRUE(bench.Stopped());
}

// Why it ended.

TEST(MeasurementFailures, EveryEndIsToldOnceWithItsReason) {
  Bench by_hand;
  by_hand.Visco();
  by_hand.Start();
  by_hand.measurement.Stop();
  EXPECT_THAT(by_hand.endings, ElementsAre(Ending::kByHand));

  Bench silent;
  silent.Repeat("1", "QM");
  silent.Start();
  silent.Line("1");
  silent.Advance(7);
  EXPECT_THAT(silent.endings, ElementsAre(Ending::kNoReply));

  Bench timed;
  timed.Repeat("30", "Q");
  timed.AutoStop("1");
  timed.Start();
  timed.Line("1");
  timed.Advance(70);
  EXPECT_THAT(timed.endings, ElementsAre(Ending::kAutoStop));

  Bench pulled;
  pulled.Start();
  pulled.port.VanishDevice();
  EXPECT_THAT(pulled.endings, ElementsAre(Ending::kDeviceGone));
}

TEST(MeasurementFailures, ADeviceThatGoesDuringStopIsOneEnd) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.loop.during_wait = [&] { bench.port.VanishDevice(); };
  bench.measurement.Stop();
  EXPECT_THAT(bench.endings, SizeIs(1));
}

TEST(MeasurementFailures, AStartThatFailedIsNoEnd) {
  Bench bench;
  bench.files.FailAfter(0);
  EXPECT_TRUE(bench.measurement.Start());
  EXPECT_THAT(bench.endings, IsEmpty());
}

TEST(MeasurementFailures, WhatHasComeIsCountedFromStartOn) {
  Bench bench;
  bench.Start();
  EXPECT_EQ(bench.measurement.BytesReceived(), 0u);
  EXPECT_EQ(bench.measurement.LastByteAt(), 0);
  bench.Advance(2);
  bench.port.Feed("1,2\r3");
  EXPECT_EQ(bench.measurement.BytesReceived(), 5u);
  EXPECT_EQ(bench.measurement.LinesReceived(), 1u);
  EXPECT_EQ(bench.measurement.LastByteAt(), bench.measurement.StartedAt() + 2);
  EXPECT_FALSE(bench.measurement.NextRequestAt()) << "nothing is asked for";
  bench.measurement.Stop();
  bench.Repeat("4");
  bench.Start();
  EXPECT_EQ(bench.measurement.BytesReceived(), 0u);
  EXPECT_EQ(bench.measurement.NextRequestAt(), bench.measurement.StartedAt() + 4);
}

// Run numbers.

constexpr char kFullDocument[] = "No.,Time,Data1\r\n32767,00.0,5\r\n";

TEST(MeasurementFailures, WithoutARunNumberTheFirstLineStopsTheInstrumentAndIsTold) {
  Bench bench;
  bench.Open(kFullDocument);
  bench.Visco();
  bench.Repeat("1", "QM");
  bench.Start();
  bench.TakeSent();

  bench.Line("6");

  EXPECT_THAT(bench.endings, ElementsAre(Ending::kRunsUsedUp));
  EXPECT_THAT(bench.errors, IsEmpty()) << "it is no error of the line";
  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.TakeSent(), "STOP\r\n");
}

TEST(MeasurementFailures, WithoutARunNumberTheDataStay) {
  Bench bench;
  bench.Open(kFullDocument);
  bench.Start();

  bench.port.Feed("6\r7\r8\r");

  EXPECT_THAT(TableLines(bench.document.Grid1()), ElementsAre("No.|Time|Data1", "32767|00.0|5"));
  EXPECT_EQ(bench.RawLogText(), kFullDocument);
  EXPECT_THAT(bench.endings, SizeIs(1)) << "once for the burst";
}

TEST(MeasurementFailures, WithoutARunNumberAStartThatReceivesNothingIsFine) {
  Bench bench;
  bench.Open(kFullDocument);

  bench.Measure({});

  EXPECT_THAT(bench.errors, IsEmpty());
}

TEST(MeasurementFailures, TheLastRunNumberIsUsed) {
  Bench bench;
  bench.Open("No.,Time,Data1\r\n32766,00.0,5\r\n");

  bench.Measure({"6"});

  EXPECT_THAT(bench.errors, IsEmpty());
  EXPECT_THAT(Column(bench.document.Grid1(), 0), ElementsAre("32766", "32767"));
}

TEST(MeasurementFailures, AfterANewDocumentMeasuringWorksAgain) {
  Bench bench;
  bench.Open(kFullDocument);
  bench.Start();
  bench.Line("6");

  bench.New();
  bench.Measure({"7"});

  EXPECT_THAT(Column(bench.document.Grid1(), 0), ElementsAre("1"));
}

// Line errors.

TEST(MeasurementFailures, LineErrorsLeaveTheMeasurementRunning) {
  Bench bench;
  bench.Start();

  for (const int event : {1001, 1004, 1006, 1008, 1009, 1010, 1011}) bench.port.Raise(event);
  bench.Line("1");

  EXPECT_TRUE(bench.measurement.Running());
  EXPECT_THAT(bench.errors,
              ElementsAre("Communication Error 1001", "Communication Error 1004", "Communication Error 1006",
                          "Input Buffer Overflowed", "Communication Error 1009", "Communication Error 1010",
                          "Communication Error 1011"));
  EXPECT_THAT(bench.received, ElementsAre("1"));
}

}  // namespace
}  // namespace quenlor::link
