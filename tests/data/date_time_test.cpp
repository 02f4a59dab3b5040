// SPDX-License-Identifier: MIT
#include "data/date_time.h"

#include <limits>

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kLeapDay = 1709208000;  // 2024-02-29 12:00:00

TEST(DateTime, TheEpochIsTheFirstOfJanuary1970) { EXPECT_EQ(DateTimeText(0), "1970/01/01 00:00:00"); }

TEST(DateTime, EveryFieldHasItsLeadingZeros) {
  EXPECT_EQ(DateText(kDay), "1970/01/02");
  EXPECT_EQ(TimeText(3600 + 2 * 60 + 3), "01:02:03");
}

TEST(DateTime, DateAndTimeStandTogetherWithOneBlank) {
  EXPECT_EQ(DateTimeText(kLeapDay), DateText(kLeapDay) + " " + TimeText(kLeapDay));
  EXPECT_EQ(DateTimeText(kLeapDay), "2024/02/29 12:00:00");
}

TEST(DateTime, TheLastSecondOfADayBelongsToIt) {
  EXPECT_EQ(DateTimeText(kDay - 1), "1970/01/01 23:59:59");
  EXPECT_EQ(DateTimeText(kDay), "1970/01/02 00:00:00");
}

TEST(DateTime, TheCenturyRuleOfLeapYearsIsKept) {
  EXPECT_EQ(DateText(951782400), "2000/02/29");
  EXPECT_EQ(DateText(4107456000), "2100/02/28");
  EXPECT_EQ(DateText(4107456000 + kDay), "2100/03/01");
}

TEST(DateTime, TimesBefore1970CountBackwards) {
  EXPECT_EQ(DateTimeText(-1), "1969/12/31 23:59:59");
  EXPECT_EQ(DateTimeText(-kDay), "1969/12/31 00:00:00");
  EXPECT_EQ(DateTimeText(-kDay - 1), "1969/12/30 23:59:59");
}

TEST(DateTime, YearsBeforeAThousandHaveFourPlaces) { EXPECT_EQ(DateText(-61536067200), "0020/01/01"); }

TEST(DateTime, TimesOutOfFourPlacesShowAsTheNearestThatFits) {
  using Limits = std::numeric_limits<std::int64_t>;
  EXPECT_EQ(DateTimeText(253402300799), "9999/12/31 23:59:59");
  EXPECT_EQ(DateTimeText(253402300800), "9999/12/31 23:59:59");
  EXPECT_EQ(DateTimeText(Limits::max()), "9999/12/31 23:59:59");
  EXPECT_EQ(DateTimeText(-62167219200), "0000/01/01 00:00:00");
  EXPECT_EQ(DateTimeText(-62167219201), "0000/01/01 00:00:00");
  EXPECT_EQ(DateTimeText(Limits::min()), "0000/01/01 00:00:00");
}

}  // namespace
}  // namespace quenlor::data
