// SPDX-License-Identifier: MIT
#include "app/desk/status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/desk/desk_bench.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using testing::HasSubstr;
using testing::StartsWith;

// 09:30:00, port 1 with a device, 2400 E71 CR/LF; the instrument is asked for nothing.
class StatusTest : public testing::Test, protected DeskBench {
 protected:
  StatusTest() {
    session.List().Set(setting::kVisco, 0);
    session.List().Set(setting::kRepeat, 0);
    commands.New();
  }

  void Start() { ASSERT_FALSE(measurement.Start()); }
  void Line(const std::string& text) { MSComm1.Feed(text + "\r"); }
  void Repeat(const char* seconds, const std::string& command = "Q") {
    session.List().Set(setting::kRepeat, 1);
    session.List().Set(setting::kRepeatSeconds, seconds);
    measurement.SetCommandData(command);
  }
  StatusFields Fields() const { return status.Fields(); }

  std::map<int, std::string> devices{{1, "/dev/ttyUSB0"}};
  Status status{session, measurement, clock,
                [this](int port) { return devices.count(port) ? devices[port] : std::string(); }};
};

TEST_F(StatusTest, StoppedItTellsWhatStartWouldUse) {
  EXPECT_EQ(Fields().state, "Stopped");
  EXPECT_EQ(Fields().port, "Port 1 ttyUSB0 · 2400 E71 CR/LF");
  EXPECT_EQ(Fields().run, "");
  EXPECT_EQ(Fields().ages, "");
  EXPECT_EQ(Fields().tone, StatusFields::Tone::kIdle);

  session.List().Set(setting::kPort, 3);
  session.List().Set(setting::kBPS, 4);
  session.List().Set(setting::kBit, 1);
  session.List().Set(setting::kTerm, 1);
  EXPECT_EQ(Fields().port, "Port 3 (no device) · 9600 E71.5 CR");
  session.List().Set(setting::kTerm, 9);
  EXPECT_EQ(Fields().port, "A choice of the RS-232C menu is missing");
}

TEST_F(StatusTest, MeasuringItTellsRunReadingsAndAges) {
  Repeat("5");
  Start();
  EXPECT_EQ(Fields().state, "Measuring");
  EXPECT_EQ(Fields().run, "") << "a run begins with its first reading";
  EXPECT_EQ(Fields().ages, "next in 5 s");
  EXPECT_EQ(Fields().tone, StatusFields::Tone::kRunning);
  Line("1.5");
  clock.Advance(5.0);
  Line("2.5");
  clock.Advance(0.75);
  EXPECT_EQ(Fields().run, "Run 1 · 2 readings · 00:00:05");
  EXPECT_EQ(Fields().ages, "last 0.8 s · next in 5 s");
  clock.Advance(0.25);
  EXPECT_EQ(Fields().ages, "last 1.0 s · next in 4 s");
  measurement.Stop();
  Start();
  Line("7");
  EXPECT_EQ(Fields().run, "Run 2 · 1 reading · 00:00:00");
}

TEST_F(StatusTest, AnAgeHasTenthsAsLongAsItRoundsToLessThanTenSeconds) {
  Repeat("60");
  Start();
  Line("1.5");
  clock.Advance(9.9);
  EXPECT_THAT(Fields().ages, StartsWith("last 9.9 s"));
  clock.Advance(0.06);
  EXPECT_THAT(Fields().ages, StartsWith("last 10 s"));
}

TEST_F(StatusTest, AClockThatIsSetKeepsNoMessageAndMakesNoAgeOfIt) {
  for (const double by : {-3600.0, 3600.0}) {
    Repeat("5");
    Start();
    Line("1.5");
    status.Say("Said");
    data::Moment set = clock.Now();
    set.seconds += by;
    clock.SetNow(set);
    clock.Advance(0.05);
    EXPECT_NE(Fields().message, "Said") << by;
    EXPECT_THAT(Fields().ages, HasSubstr("next in 5 s")) << by;
    EXPECT_THAT(Fields().ages, testing::Not(HasSubstr("-"))) << by;
    measurement.Stop();
  }
}

TEST_F(StatusTest, TheDocumentFieldTellsWhatASaveWouldKeep) {
  EXPECT_EQ(Fields().document, "New.csv");
  Measure({"1", "2"});
  EXPECT_EQ(Fields().document, "New.csv · 2 unsaved readings");
  dialogs.Path("/lab/monday.csv");
  commands.Save();
  EXPECT_EQ(Fields().document, "monday.csv");
  session.Document().SetCell(1, 2, "3");
  EXPECT_EQ(Fields().document, "monday.csv · edited since saved");
  Measure({"1"});
  EXPECT_EQ(Fields().document, "monday.csv · 1 unsaved reading");
}

TEST_F(StatusTest, WaitingIsExplained) {
  Start();
  clock.Advance(3.0);
  EXPECT_EQ(Fields().message, "Waiting for the first reading: nothing received for 3.0 s");
  clock.Advance(9.0);
  EXPECT_EQ(
      Fields().message,
      "Waiting for the first reading: nothing received for 12 s; is the instrument on, and is it port 1?");
  MSComm1.Feed(std::string(312, 'x'));
  EXPECT_EQ(Fields().message, "312 bytes received, no line end: check Baud Rate, Parity, Length");
  Line("1");
  EXPECT_EQ(Fields().message, "Taking what the instrument sends");
}

TEST_F(StatusTest, ADamagedLinePointsToItsSettings) {
  Start();
  MSComm1.Raise(platform::comm_event::kParity);
  EXPECT_THAT(Fields().message, HasSubstr("check Baud Rate, Parity, Length"));
  Line("1");
  EXPECT_EQ(Fields().message, "The line damages characters: check Baud Rate, Parity, Length");
  clock.Advance(60.0);
  MSComm1.Raise(platform::comm_event::kFraming);
  EXPECT_EQ(Fields().errors, "2 line errors, last 09:31:00");
  EXPECT_EQ(Fields().tone, StatusFields::Tone::kWarning);
  measurement.Stop();
  EXPECT_EQ(Fields().errors, "2 line errors, last 09:31:00") << "until the next Start";
  Start();
  EXPECT_EQ(Fields().errors, "");
}

TEST_F(StatusTest, RepeatAndAutoStopAreTold) {
  Repeat("5");
  session.List().Set(setting::kAutoStop, 1);
  session.List().Set(setting::kAutoStopMinutes, "30");
  Start();
  Line("1");
  EXPECT_EQ(Fields().message, "Reading every 5 s, Auto Stop at 00:30:00");
  clock.Advance(16.0);
  EXPECT_EQ(Fields().message, "No reading for 16 s; is the instrument still on?");
}

TEST_F(StatusTest, WhatWasSaidIsSeenBeforeTheWaitingGoesOn) {
  Start();
  status.Say("Saved /lab/a.csv");
  EXPECT_EQ(Fields().message, "Saved /lab/a.csv");
  clock.Advance(8.0);
  EXPECT_EQ(Fields().message, "Saved /lab/a.csv") << "for eight seconds";
  clock.Advance(0.05);
  EXPECT_THAT(Fields().message, HasSubstr("nothing received"));
  measurement.Stop();
  status.Say("Saved /lab/b.csv");
  clock.Advance(1000.0);
  EXPECT_EQ(Fields().message, "Saved /lab/b.csv") << "nothing else is to be told";
}

TEST_F(StatusTest, EveryEndHasItsReasonAndTimeUntilTheNextStart) {
  Start();
  clock.Advance(62.0);
  measurement.Stop();
  EXPECT_EQ(Fields().state, "Stopped by hand 09:31:02");
  EXPECT_EQ(Fields().message, "The measurement has ended at 09:31:02: stopped by hand");
  status.Say("Saved");
  EXPECT_EQ(Fields().state, "Stopped by hand 09:31:02");
  Start();
  EXPECT_EQ(Fields().state, "Measuring");
  EXPECT_EQ(status.LastEnd(), "");
}

TEST_F(StatusTest, ASilentInstrumentIsAReason) {
  Repeat("1", "QM");
  Start();
  Line("1");
  clock.Advance(7.0);
  EXPECT_THAT(Fields().state, HasSubstr("No reply 09:30:0"));
  EXPECT_THAT(Fields().message, HasSubstr("no reply to QM for 5 s"));
}

TEST_F(StatusTest, AutoStopIsAReason) {
  Repeat("30");
  session.List().Set(setting::kAutoStop, 1);
  session.List().Set(setting::kAutoStopMinutes, "1");
  Start();
  Line("1");
  clock.Advance(70.0);
  EXPECT_THAT(Fields().state, HasSubstr("Auto Stop 09:31:"));
  EXPECT_THAT(Fields().message, HasSubstr("Auto Stop after 1 min"));
}

TEST_F(StatusTest, RunNumbersThatAreUsedUpAreAReason) {
  files.Put("/lab/full.csv", "No.,Time,Viscosity\r\n32767,0,5\r\n");
  commands.ReadDataFile("/lab/full.csv");
  Start();
  Line("6");
  EXPECT_THAT(Fields().state, StartsWith("Run numbers used up 09:30:"));
  EXPECT_THAT(Fields().message, HasSubstr("all run numbers, 1 to 32767, are used up"));
}

TEST_F(StatusTest, ADeviceThatIsGoneTellsWhereTheReadingsAre) {
  Start();
  Line("1");
  Line("2");
  MSComm1.VanishDevice();
  EXPECT_EQ(Fields().state, "Device gone 09:30:00");
  EXPECT_EQ(Fields().message,
            "The measurement has ended at 09:30:00: port 1 is gone; 2 readings are safe in /lab/Com_1.txt");
}

TEST_F(StatusTest, NothingIsCalledSafeThatTheDiskRefused) {
  Start();
  Line("1");
  files.FailAfter(0);
  Line("2");
  EXPECT_THAT(Fields().message, HasSubstr("Raw Log Not Written"));
  EXPECT_EQ(Fields().tone, StatusFields::Tone::kWarning);
  clock.Advance(30.0);
  EXPECT_THAT(Fields().message, HasSubstr("Raw Log Not Written")) << "as long as it lasts";
  MSComm1.VanishDevice();
  EXPECT_THAT(Fields().message, HasSubstr("2 readings are in the table; Raw Log Not Written"));
}

TEST_F(StatusTest, TroubleThatIsOverIsTold) {
  Start();
  files.FailAfter(0);
  Line("1");
  files.MakeRoom();
  clock.Advance(2.0);
  Line("2");
  EXPECT_EQ(Fields().message, "Raw Log Written Again");
  EXPECT_EQ(Fields().tone, StatusFields::Tone::kRunning);
}

TEST_F(StatusTest, AnotherDocumentReplacesWhatWasSaid) {
  status.Say("Saved /lab/a.csv");
  commands.New();
  EXPECT_EQ(Fields().message, "");
}

TEST_F(StatusTest, ARefusedStartNamesTheDevicesThatAreThere) {
  status.StartRefused({"/dev/ttyUSB0", "Permission denied", "log in again"});
  EXPECT_EQ(Fields().message, "/dev/ttyUSB0: Permission denied: log in again");
  devices = {{2, "/dev/ttyS1"}, {5, "virtual viscometer"}};
  status.StartRefused({"", "there is no device behind this number", ""});
  EXPECT_EQ(Fields().message,
            "Port 1: there is no device behind this number; 2 is ttyS1, 5 is virtual viscometer");
  devices.clear();
  status.StartRefused({"", "gone", ""});
  EXPECT_EQ(Fields().message, "Port 1: gone; no serial device is there");
}

TEST_F(StatusTest, EveryEventIsPassedOnAtOnce) {
  int changes = 0;
  status.OnChange([&] { ++changes; });
  const auto changed = [&] { return std::exchange(changes, 0) > 0; };
  Start();
  EXPECT_TRUE(changed());
  Line("1");
  EXPECT_FALSE(changed()) << "readings cost nothing";
  MSComm1.Raise(platform::comm_event::kOverrun);
  EXPECT_TRUE(changed());
  measurement.Stop();
  EXPECT_TRUE(changed());
  session.Document().RemoveRows(1, 1);
  EXPECT_TRUE(changed());
}

TEST(CountText, GroupsThousands) {
  EXPECT_EQ(CountText(0, "reading", "readings"), "0 readings");
  EXPECT_EQ(CountText(1, "reading", "readings"), "1 reading");
  EXPECT_EQ(CountText(999, "reading", "readings"), "999 readings");
  EXPECT_EQ(CountText(1000, "reading", "readings"), "1,000 readings");
  EXPECT_EQ(CountText(10000000, "reading", "readings"), "10,000,000 readings");
}

TEST(ShortDeviceName, TellsDevicesApart) {
  EXPECT_EQ(ShortDeviceName("/dev/ttyUSB0"), "ttyUSB0");
  EXPECT_EQ(ShortDeviceName("/dev/serial/by-id/usb-lab"), "usb-lab");
  EXPECT_EQ(ShortDeviceName("/dev/pts/12"), "pts/12");
  EXPECT_EQ(ShortDeviceName("COM3"), "COM3");
  EXPECT_EQ(ShortDeviceName("virtual viscometer"), "virtual viscometer");
  EXPECT_EQ(ShortDeviceName("/3"), "/3");
  EXPECT_EQ(ShortDeviceName(""), "");
}

}  // namespace
}  // namespace quenlor::app
