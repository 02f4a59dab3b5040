// SPDX-License-Identifier: MIT
// How a measurement is ended by hand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(MeasurementStop, StopWithoutViscoClosesAtOnce) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.TakeSent();

  bench.measurement.Stop();

  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.TakeSent(), "");
  EXPECT_THAT(bench.loop.waits, IsEmpty());
}

TEST(MeasurementStop, StopLowersRtsThenCloses) {
  Bench bench;
  bench.Start();

  bench.measurement.Stop();

  EXPECT_THAT(bench.port.Calls(), ElementsAre("Open 1 9600N81", "RTSEnable 1", "RTSEnable 0", "Close"));
  EXPECT_EQ(bench.state_changes, 2);
}

TEST(MeasurementStop, StopWithViscoSendsStopAndClosesTwoSecondsLater) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.TakeSent();
  std::string sent_before_the_wait;
  bool running_in_the_wait = false;
  bool stopping_in_the_wait = false;
  bench.loop.during_wait = [&] {
    sent_before_the_wait = bench.TakeSent();
    running_in_the_wait = bench.measurement.Running();
    stopping_in_the_wait = bench.measurement.Stopping();
  };

  bench.measurement.Stop();

  EXPECT_THAT(bench.loop.waits, ElementsAre(2.0));
  EXPECT_EQ(sent_before_the_wait, "STOP\r\n");
  EXPECT_TRUE(running_in_the_wait);
  EXPECT_TRUE(stopping_in_the_wait);
  EXPECT_EQ(bench.TakeSent(), "");
  EXPECT_TRUE(bench.Stopped());
}

TEST(MeasurementStop, StoppingIsTold) {
  Bench bench;
  bench.Visco();
  bench.Start();
  std::vector<std::pair<bool, bool>> told;
  bench.on_state_change = [&] {
    told.emplace_back(bench.measurement.Running(), bench.measurement.Stopping());
  };

  bench.measurement.Stop();

  EXPECT_THAT(told, ElementsAre(std::pair(true, true), std::pair(false, false)));
}

TEST(MeasurementStop, LinesAreReceivedWhileStopWaits) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.Line("1");
  bench.loop.during_wait = [&] { bench.Line("2"); };

  bench.measurement.Stop();

  EXPECT_THAT(Column(bench.document.Grid1(), 2), ElementsAre("1", "2"));
  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,1,,,\r\n1,00.0,2,,,\r\n");
}

TEST(MeasurementStop, RequestsGoOnWhileStopWaits) {
  Bench bench;
  bench.Visco();
  bench.Repeat("0.5", "QM");
  bench.Start();
  bench.Line("1");
  bench.TakeSent();

  bench.measurement.Stop();

  EXPECT_EQ(bench.TakeSent(), "STOP\r\nQM\r\nQM\r\nQM\r\nQM\r\n");
  EXPECT_TRUE(bench.Stopped()) << "a request of the last seconds leaves no watchdog behind";
}

TEST(MeasurementStop, NeitherStopNorStartDoesAnythingWhileStopWaits) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.TakeSent();
  bench.loop.during_wait = [&] {
    bench.measurement.Stop();
    bench.Start();
  };

  bench.measurement.Stop();

  EXPECT_EQ(bench.TakeSent(), "STOP\r\n");
  EXPECT_THAT(bench.loop.waits, ElementsAre(2.0));
  EXPECT_TRUE(bench.Stopped());
}

TEST(MeasurementStop, StopDisarmsTheWatchdogBeforeItWaits) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.Line("1");
  bench.measurement.SendCommand("QM");
  bench.Advance(4);
  bool armed_in_the_wait = true;
  bench.loop.during_wait = [&] { armed_in_the_wait = bench.Timer2.Enabled(); };

  bench.measurement.Stop();

  EXPECT_FALSE(armed_in_the_wait);
}

TEST(MeasurementStop, StopWhileStoppedDoesNothing) {
  Bench bench;
  bench.Visco();

  bench.measurement.Stop();
  bench.measurement.StopWithoutWait();

  EXPECT_THAT(bench.port.Calls(), IsEmpty());
  EXPECT_THAT(bench.loop.waits, IsEmpty());
  EXPECT_EQ(bench.state_changes, 0);
}

TEST(MeasurementStop, AfterAStopTheNextStartWorks) {
  Bench bench;
  bench.Visco();
  bench.Measure({"1"});
  bench.TakeSent();

  bench.Start();

  EXPECT_TRUE(bench.measurement.Running());
  EXPECT_EQ(bench.TakeSent(), "QUENLOR\r\n");
}

TEST(MeasurementStop, StopWithoutWaitSendsStopOnlyWithVisco) {
  for (const bool visco : {false, true}) {
    Bench bench;
    if (visco) bench.Visco();
    bench.Repeat("5");
    bench.Start();
    bench.TakeSent();

    bench.measurement.StopWithoutWait();

    EXPECT_EQ(bench.TakeSent(), visco ? "STOP\r\n" : "");
    EXPECT_THAT(bench.loop.waits, IsEmpty());
    EXPECT_TRUE(bench.Stopped());
  }
}

TEST(MeasurementStop, TheStopOfStopWithoutWaitLeavesBeforeThePortCloses) {
  Bench bench;
  bench.Visco();
  bench.Start();
  bench.TakeSent();
  bench.port.HoldOutput(true);

  bench.measurement.StopWithoutWait();

  EXPECT_EQ(bench.TakeSent(), "STOP\r\n");
}

TEST(MeasurementStop, StopWithoutWaitDisarmsTheWatchdog) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.measurement.SendCommand("QM");

  bench.measurement.StopWithoutWait();

  EXPECT_TRUE(bench.Stopped());
}

TEST(MeasurementStop, NothingIsToldAfterItsEnd) {
  // The port and the timers live longer than this measurement.
  Bench bench;
  class Quiet : public MeasurementListener {
    void StateChanged() override {}
    void LineReceived(const std::string&) override { ADD_FAILURE() << "told"; }
    void ErrorLine(const std::string&) override { ADD_FAILURE() << "told"; }
  } listener;
  {
    const MeasurementPorts ports{bench.port,   bench.clock, bench.Timer1,
                                 bench.Timer2, bench.loop,  bench.files};
    bench.Repeat("0");
    Measurement measurement(ports, bench.document, bench.settings, "/lab");
    measurement.AddListener(listener);
    ASSERT_FALSE(measurement.Start());
  }
  bench.TakeSent();

  bench.Line("1");
  bench.Advance(10);

  EXPECT_EQ(bench.TakeSent(), "");
}

TEST(MeasurementStop, CharactersThatHadArrivedAreReadings) {
  for (const bool at_the_end_of_the_program : {false, true}) {
    Bench bench;
    bench.Start();
    bench.port.Arrive("1\r2\r");
    if (at_the_end_of_the_program)
      bench.measurement.StopWithoutWait();
    else
      bench.measurement.Stop();
    EXPECT_TRUE(bench.Stopped());
    EXPECT_EQ(bench.document.Grid1().Rows(), 4);
  }
}

TEST(MeasurementStop, CharactersOfADeviceThatVanishedAreReadings) {
  Bench bench;
  bench.Start();
  bench.port.Arrive("1\r");
  bench.port.VanishDevice();
  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.document.Grid1().Rows(), 3);
}

}  // namespace
}  // namespace quenlor::link
