// SPDX-License-Identifier: MIT
#include "app/desk/vigil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/test_desktop.h"
#include "tests/app/desk/desk_bench.h"

namespace quenlor::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class VigilTest : public testing::Test, protected DeskBench {
 protected:
  VigilTest() { session.List().Set(data::setting::kVisco, 0); }

  bool in_front = false;
  platform::memory::TestDesktop desktop;
  Status status{session, measurement, clock, [](int) { return std::string("/dev/ttyUSB0"); }};
  Vigil vigil{measurement, status, desktop, [this] { return in_front; }};
};

TEST_F(VigilTest, TheMachineStaysAwakeWhileAMeasurementRuns) {
  EXPECT_FALSE(desktop.awake);
  measurement.Start();
  EXPECT_TRUE(desktop.awake);
  measurement.Stop();
  EXPECT_FALSE(desktop.awake);
  files.FailAfter(0);
  EXPECT_TRUE(measurement.Start());
  EXPECT_FALSE(desktop.awake) << "it did not start";
}

TEST_F(VigilTest, AnEndByItselfIsToldToWhoeverLooksElsewhere) {
  measurement.Start();
  MSComm1.VanishDevice();
  EXPECT_THAT(desktop.notifications, ElementsAre(HasSubstr("port 1 is gone")));
  EXPECT_FALSE(desktop.awake);
}

TEST_F(VigilTest, NobodyIsToldWhatTheyDidOrSee) {
  measurement.Start();
  measurement.Stop();
  in_front = true;
  measurement.Start();
  MSComm1.VanishDevice();
  EXPECT_THAT(desktop.notifications, IsEmpty());
}

}  // namespace
}  // namespace quenlor::app
