// SPDX-License-Identifier: MIT
#include "platform/qt/qt_clock.h"

#include <QDateTime>
#include <cmath>
#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

namespace quenlor::platform {
namespace {

using namespace std::chrono_literals;

using Utc = std::chrono::system_clock::time_point;

TEST(QtClock, BothTimesCountLocalSecondsAndOneHasTheFraction) {
  const data::Moment moment = qt::MomentOf(Utc(1700000000s + 250ms), 3600, 3600);
  EXPECT_DOUBLE_EQ(moment.seconds, 1700003600.25);
  EXPECT_EQ(moment.local_second, 1700003600);
}

TEST(QtClock, ElapsedTimesDoNotJumpWhenSummerTimeBegins) {
  const data::Moment before = qt::MomentOf(Utc(1711846799s), 3600, 3600);
  const data::Moment after = qt::MomentOf(Utc(1711846800s), 3600, 7200);
  EXPECT_EQ(after.seconds - before.seconds, 1.0);
  EXPECT_EQ(data::DateTimeText(before.local_second), "2024/03/31 01:59:59");
  EXPECT_EQ(data::DateTimeText(after.local_second), "2024/03/31 03:00:00");
}

TEST(QtClock, WestOfGreenwichTheDayBeginsLater) {
  const data::Moment moment = qt::MomentOf(Utc(1711929600s), -18000, -18000);
  EXPECT_EQ(data::DateTimeText(moment.local_second), "2024/03/31 19:00:00");
}

TEST(QtClock, TimesBefore1970KeepTheirFraction) {
  const data::Moment moment = qt::MomentOf(Utc(-1s - 750ms), 0, 0);
  EXPECT_DOUBLE_EQ(moment.seconds, -1.75);
  EXPECT_EQ(moment.local_second, -2);
}

class QtClockInAZone : public testing::Test {
 protected:
  void UseZone(const char* zone) {
    qputenv("TZ", zone);
    tzset();
  }
  ~QtClockInAZone() override {
    if (before_.isNull()) {
      qunsetenv("TZ");
    } else {
      qputenv("TZ", before_);
    }
    tzset();
  }

 private:
  QByteArray before_ = qgetenv("TZ");
};

TEST_F(QtClockInAZone, ShowsTheTimeOfDayOfItsZone) {
  UseZone("XXX-5:30");
  const qt::QtClock clock;
  const std::int64_t earliest = QDateTime::currentSecsSinceEpoch() + 19800;
  const data::Moment now = clock.Now();
  const std::int64_t latest = QDateTime::currentSecsSinceEpoch() + 19800;
  EXPECT_LE(earliest, now.local_second);
  EXPECT_LE(now.local_second, latest);
  EXPECT_EQ(std::floor(now.seconds), static_cast<double>(now.local_second));
}

TEST_F(QtClockInAZone, KeepsCountingElapsedTimeAsAtItsStartWhenTheOffsetChanges) {
  UseZone("XXX-1");
  const qt::QtClock clock;
  const data::Moment before = clock.Now();
  UseZone("XXX-2");
  data::Moment after = clock.Now();
  // The new offset shows from the next second on.
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  while (after.local_second - before.local_second < 3600 && std::chrono::steady_clock::now() < deadline)
    after = clock.Now();
  EXPECT_LT(after.seconds - before.seconds, 60);
  EXPECT_GE(after.local_second - before.local_second, 3600);
}

}  // namespace
}  // namespace quenlor::platform
