// SPDX-License-Identifier: MIT
#include "data/text_number.h"

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

constexpr double kHuge = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct TextAndNumber {
  std::string_view text;
  double number;
};

void ExpectC_Val(std::initializer_list<TextAndNumber> table) {
  for (const auto& [text, number] : table) EXPECT_EQ(C_Val(text), number) << '"' << text << '"';
}

TEST(C_Val, APointAndACommaBothMarkTheDecimals) {
  ExpectC_Val({{"12.5", 12.5}, {"12,5", 12.5}, {"0,001", 0.001}, {"1234.5", 1234.5}});
}

TEST(C_Val, LeadingBlanksAreSkipped) { ExpectC_Val({{"  7", 7}, {"\t7", 7}, {" \t -7", -7}, {" ,5", 0.5}}); }

TEST(C_Val, TextWithoutANumberAtItsStartIsZero) {
  ExpectC_Val({{"", 0}, {" ", 0}, {"\t", 0}, {"abc", 0}, {"x12", 0}, {":5", 0}, {"E5", 0}, {"mPa.s", 0}});
}

TEST(C_Val, OneSignMayStandBeforeTheDigits) {
  ExpectC_Val({{"-3", -3}, {"+3", 3}, {"-.5", -0.5}, {"+,5", 0.5}});
  ExpectC_Val({{"- 3", 0}, {"+-3", 0}, {"-+3", 0}, {"--3", 0}, {"++3", 0}, {"+", 0}, {"-", 0}});
}

TEST(C_Val, AnExponentCountsWhenItHasDigits) {
  ExpectC_Val({{"1E3", 1000}, {"1e3", 1000}, {"1E+3", 1000}, {"1E-3", 0.001}, {"1,5E2", 150}, {"1.E2", 100}});
  ExpectC_Val({{"2E", 2}, {"2E+", 2}, {"2E-", 2}, {"2Ex", 2}, {"2E 3", 2}, {"2E1,5", 20}});
}

TEST(C_Val, TheLongestNumberAtTheStartCounts) {
  ExpectC_Val(
      {{"25.1 C", 25.1}, {"1234.5 mPa.s", 1234.5}, {"12abc", 12}, {"1 000", 1}, {"1:30", 1}, {"007", 7}});
}

TEST(C_Val, ANumberHasOnePointOnly) {
  ExpectC_Val({{"1.2.3", 1.2}, {"1,234,5", 1.234}, {"1.5,7", 1.5}, {"1,5.7", 1.5}, {"1..5", 1}});
}

TEST(C_Val, DigitsMayBeMissingOnOneSideOfThePointOnly) {
  ExpectC_Val({{".5", 0.5}, {",5", 0.5}, {"5.", 5}, {"5,", 5}});
  ExpectC_Val({{".", 0}, {",", 0}, {"-.", 0}, {".E5", 0}, {",x", 0}});
}

TEST(C_Val, WordsForInfinityAndNotANumberAreZero) {
  ExpectC_Val({{"inf", 0}, {"-inf", 0}, {"INF", 0}, {"infinity", 0}, {"nan", 0}, {"NaN", 0}, {"nan(1)", 0}});
}

TEST(C_Val, OnlyDecimalDigitsAreRead) { ExpectC_Val({{"0x10", 0}, {"1_000", 1}, {"1'000", 1}, {"0b11", 0}}); }

TEST(C_Val, ANulEndsTheNumberLikeAnyOtherCharacter) {
  EXPECT_EQ(C_Val(std::string_view("12\0"
                                   "34",
                                   5)),
            12);
  EXPECT_EQ(C_Val(std::string_view("\0"
                                   "34",
                                   3)),
            0);
}

TEST(C_Val, NothingBehindTheViewIsRead) { EXPECT_EQ(C_Val(std::string_view("12345").substr(0, 2)), 12); }

TEST(C_Val, NumbersTooLargeBecomeTheLargest) {
  ExpectC_Val({{"1E400", kHuge}, {"-1E400", -kHuge}, {"1E99999999999999999999", kHuge}, {"1,8E308", kHuge}});
  EXPECT_EQ(C_Val("1" + std::string(400, '0')), kHuge);
  EXPECT_EQ(C_Val("-1" + std::string(400, '0') + ",5"), -kHuge);
  EXPECT_EQ(C_Val("1" + std::string(400, '0') + "E-5"), kHuge);
}

TEST(C_Val, NumbersTooSmallBecomeZero) {
  ExpectC_Val({{"1E-400", 0}, {"-1E-400", 0}, {"1E-99999999999999999999", 0}});
  EXPECT_EQ(C_Val("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(C_Val("0," + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(C_Val("." + std::string(400, '0') + "1E+5"), 0);
}

TEST(C_Val, TheSmallestNumberIsStillRead) {
  EXPECT_EQ(C_Val("5E-324"), std::numeric_limits<double>::denorm_min());
}

TEST(C_Val, ZeroStaysZeroWhateverItsExponent) { ExpectC_Val({{"0E999999", 0}, {"0,000E-999999", 0}}); }

TEST(C_Val, TenThousandDigitsAreReadToTheLast) {
  EXPECT_EQ(C_Val(std::string(10000, '9')), kHuge);
  EXPECT_EQ(C_Val(std::string(10000, '0') + "7"), 7);
  EXPECT_DOUBLE_EQ(C_Val("0," + std::string(10000, '3')), 1.0 / 3);
  EXPECT_EQ(C_Val("1" + std::string(9999, '0') + "E-9999"), 1);
  EXPECT_EQ(C_Val("0." + std::string(9999, '0') + "1E10000"), 1);
}

// Texts of digits with a sign, a point or a comma here and there, from an empty one to more digits than a
// double holds.
std::string DigitText(std::mt19937_64& random) {
  static constexpr std::string_view kSigns = "-+.,:E";
  std::string text(random() % 3 == 0 ? "-" : "");
  const std::size_t length = random() % 22;
  const std::size_t point = random() % 22;
  for (std::size_t at = 0; at < length; ++at) {
    if (at == point) text += random() % 2 == 0 ? '.' : ',';
    text += random() % 100 == 0 ? kSigns[random() % kSigns.size()] : static_cast<char>('0' + random() % 10);
  }
  return text;
}

// Whether the same double, the sign of a zero included.
void ExpectSame(double number, double other, const std::string& text) {
  ASSERT_EQ(number, other) << '"' << text << '"';
  ASSERT_EQ(std::signbit(number), std::signbit(other)) << '"' << text << '"';
}

TEST(LeadingNumber, OfAPlainTextIsThatOfTheSameTextWithMoreBehindIt) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 200'000; ++i) {
    const std::string text = DigitText(random);
    ASSERT_EQ(LeadingNumber(text).has_value(), LeadingNumber(text + " mPa.s").has_value()) << text;
    ExpectSame(C_Val(text), C_Val(text + " mPa.s"), text);
  }
}

TEST(LeadingNumber, IsTheNearestDouble) {
  std::mt19937_64 random(4);
  for (int i = 0; i < 100'000; ++i) {
    std::string text = std::to_string(random() % 1'000'000'000'000'000);
    text.insert(random() % (text.size() + 1), ".");
    text.resize(1 + random() % text.size());
    if (text == ".") continue;
    ExpectSame(C_Val(text), std::stod(text), text);
  }
}

// A locale that writes one and a half as "1,5" and a thousand as "1.000", for streams and, where the system
// has such a locale, for the functions of C.
class CommaLocale {
 public:
  CommaLocale() : c_locale_(std::setlocale(LC_ALL, nullptr)) {
    std::locale::global(std::locale(std::locale::classic(), new Punctuation));
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  ~CommaLocale() {
    std::locale::global(locale_);
    std::setlocale(LC_ALL, c_locale_.c_str());
  }

 private:
  struct Punctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::string c_locale_;
  std::locale locale_;
};

TEST(TextNumber, TheLocaleIsNotLookedAt) {
  const CommaLocale locale;
  EXPECT_EQ(C_Val("1.5"), 1.5);
  EXPECT_EQ(C_Val("1,5"), 1.5);
  EXPECT_EQ(GeneralText(123456.5), "123456.5");
  EXPECT_EQ(TenthsText(12345.5), "12345.5");
  EXPECT_EQ(SecondsToTime(3600.0 * 12345), "12345:00:00");
}

TEST(LeadingNumber, TellsZeroFromNoNumber) {
  EXPECT_EQ(LeadingNumber("0"), 0.0);
  EXPECT_EQ(LeadingNumber("-0,0 C"), 0.0);
  for (const std::string_view text : {"", " ", ".", "-", "+", "E1", "x0", "nan"}) {
    EXPECT_EQ(LeadingNumber(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(GeneralText, IsAsShortAsTheNumberAllows) {
  const std::pair<double, std::string_view> table[] = {
      {0, "0"},         {-0.0, "0"},           {12.5, "12.5"},     {-3, "-3"},
      {180, "180"},     {0.1, "0.1"},          {0.1 + 0.2, "0.3"}, {100000, "100000"},
      {-0.25, "-0.25"}, {0.0001, "0.0001"},    {1e20, "1E+20"},    {-1e20, "-1E+20"},
      {1e-5, "1E-05"},  {1.5e300, "1.5E+300"},
  };
  for (const auto& [number, text] : table) EXPECT_EQ(GeneralText(number), text) << number;
}

TEST(GeneralText, HasUpToFifteenSignificantDigits) {
  EXPECT_EQ(GeneralText(123456789012345), "123456789012345");
  EXPECT_EQ(GeneralText(1234567890123456), "1.23456789012346E+15");
  EXPECT_EQ(GeneralText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(GeneralText(2000.0 / 3), "666.666666666667");
}

TEST(GeneralText, TheLargestNumberComesBack) {
  EXPECT_EQ(C_Val(GeneralText(kHuge)), kHuge);
  EXPECT_EQ(C_Val(GeneralText(-kHuge)), -kHuge);
}

TEST(GeneralText, NumbersOfFifteenDigitsComeBackAsTheyWere) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto digits = static_cast<double>(random() % 1'000'000'000'000'000);
    const int exponent = static_cast<int>(random() % 40) - 20;
    const double number =
        C_Val(std::to_string(static_cast<long long>(digits)) + "E" + std::to_string(exponent));
    ASSERT_EQ(C_Val(GeneralText(number)), number) << GeneralText(number);
  }
}

TEST(TenthsText, HasOneDecimalAndTwoDigitsBeforeIt) {
  EXPECT_EQ(TenthsText(0), "00.0");
  EXPECT_EQ(TenthsText(7.46), "07.5");
  EXPECT_EQ(TenthsText(7.44), "07.4");
  EXPECT_EQ(TenthsText(59.96), "60.0");
  EXPECT_EQ(TenthsText(123.4), "123.4");
  EXPECT_EQ(TenthsText(86400), "86400.0");
}

TEST(TenthsText, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(TenthsText(7.25), "07.3");
  EXPECT_EQ(TenthsText(7.75), "07.8");
  EXPECT_EQ(TenthsText(-7.25), "-07.3");
}

TEST(TenthsText, ANegativeNumberKeepsItsDigitsAndGetsASign) {
  EXPECT_EQ(TenthsText(-1), "-01.0");
  EXPECT_EQ(TenthsText(-0.06), "-00.1");
}

TEST(TenthsText, NothingIsLeftOfASignThatRoundsToZero) {
  EXPECT_EQ(TenthsText(-0.0), "00.0");
  EXPECT_EQ(TenthsText(-0.04), "00.0");
}

TEST(TenthsText, WhatIsNoTimeGivesAShortTextAllTheSame) {
  EXPECT_EQ(TenthsText(kNan), "00.0");
  EXPECT_EQ(TenthsText(kInfinity), "00.0");
  EXPECT_EQ(TenthsText(1e300), "100000000000000.0");
  EXPECT_EQ(TenthsText(-1e300), "-100000000000000.0");
}

TEST(SecondsToTime, HasTwoDigitsForHoursMinutesAndSeconds) {
  EXPECT_EQ(SecondsToTime(0), "00:00:00");
  EXPECT_EQ(SecondsToTime(59), "00:00:59");
  EXPECT_EQ(SecondsToTime(60), "00:01:00");
  EXPECT_EQ(SecondsToTime(3725), "01:02:05");
}

TEST(SecondsToTime, HoursGrowBeyondTwoDigits) {
  EXPECT_EQ(SecondsToTime(24 * 3600), "24:00:00");
  EXPECT_EQ(SecondsToTime(100 * 3600 - 1), "99:59:59");
  EXPECT_EQ(SecondsToTime(100 * 3600), "100:00:00");
}

TEST(SecondsToTime, RoundsHalvesToEven) {
  EXPECT_EQ(SecondsToTime(0.5), "00:00:00");
  EXPECT_EQ(SecondsToTime(1.5), "00:00:02");
  EXPECT_EQ(SecondsToTime(2.5), "00:00:02");
  EXPECT_EQ(SecondsToTime(2.51), "00:00:03");
  EXPECT_EQ(SecondsToTime(59.5), "00:01:00");
  EXPECT_EQ(SecondsToTime(-1.5), "00:00:-02");
}

TEST(SecondsToTime, EachPartOfANegativeTimeCarriesItsSign) {
  EXPECT_EQ(SecondsToTime(-5), "00:00:-05");
  EXPECT_EQ(SecondsToTime(-3725), "-01:-02:-05");
}

TEST(SecondsToTime, WhatIsNoTimeGivesAShortTextAllTheSame) {
  EXPECT_EQ(SecondsToTime(kNan), "00:00:00");
  EXPECT_EQ(SecondsToTime(kInfinity), "00:00:00");
  EXPECT_EQ(TimeToSeconds(SecondsToTime(1e300)), 1e15);
  EXPECT_EQ(TimeToSeconds(SecondsToTime(-1e300)), -1e15);
}

TEST(SecondsToTime, WholeSecondsComeBackThroughTimeToSeconds) {
  for (int seconds = -200'000; seconds <= 200'000; seconds += 7) {
    ASSERT_EQ(TimeToSeconds(SecondsToTime(seconds)), seconds) << SecondsToTime(seconds);
  }
}

TEST(TimeToSeconds, ATextWithoutColonsIsSeconds) {
  EXPECT_EQ(TimeToSeconds("90"), 90);
  EXPECT_EQ(TimeToSeconds("07.5"), 7.5);
  EXPECT_EQ(TimeToSeconds("07,5"), 7.5);
  EXPECT_EQ(TimeToSeconds("00.0"), 0);
}

TEST(TimeToSeconds, OneColonDividesHoursFromMinutes) {
  EXPECT_EQ(TimeToSeconds("1:30"), 5400);
  EXPECT_EQ(TimeToSeconds("0:0,5"), 30);
}

TEST(TimeToSeconds, TwoColonsDivideHoursMinutesAndSeconds) {
  EXPECT_EQ(TimeToSeconds("0:01:30"), 90);
  EXPECT_EQ(TimeToSeconds("01:02:05"), 3725);
  EXPECT_EQ(TimeToSeconds("0:0:1,5"), 1.5);
  EXPECT_EQ(TimeToSeconds("123:00:00"), 123 * 3600);
  EXPECT_EQ(TimeToSeconds("-01:-02:-05"), -3725);
}

TEST(TimeToSeconds, OfAPlainTimeIsThatOfTheSameTextWithMoreBehindIt) {
  std::mt19937_64 random(5);
  for (int i = 0; i < 200'000; ++i) {
    std::string text;
    const std::size_t most_digits = random() % 20 == 0 ? 20 : 3;
    for (int part = 0; part < 3; ++part) {
      if (part > 0) text += random() % 50 == 0 ? ';' : ':';
      text += std::to_string(random()).substr(0, random() % (most_digits + 1));
    }
    ExpectSame(TimeToSeconds(text), TimeToSeconds(text + " h"), text);
  }
}

TEST(TimeToSeconds, MissingPartsCountAsZero) {
  const std::pair<std::string_view, double> table[] = {
      {"", 0}, {":", 0}, {"::", 0}, {"::5", 5}, {":30", 1800}, {"1:", 3600}, {"abc", 0}, {"a:1:b", 60}};
  for (const auto& [text, seconds] : table) EXPECT_EQ(TimeToSeconds(text), seconds) << '"' << text << '"';
}

TEST(TimeToSeconds, PartsTooLargeGiveTheLargestNumber) {
  EXPECT_EQ(TimeToSeconds("1E400"), kHuge);
  EXPECT_EQ(TimeToSeconds("1E308:0"), kHuge);
  EXPECT_EQ(TimeToSeconds("0:-1E308"), -kHuge);
  EXPECT_EQ(TimeToSeconds("1E308:1E308:1E308"), kHuge);
  EXPECT_EQ(TimeToSeconds("1E308:-1E308"), 0) << "and never something that is no number";
}

TEST(Bounded, GivesTheNearestFiniteNumber) {
  using Double = std::numeric_limits<double>;
  EXPECT_EQ(Bounded(Double::infinity()), Double::max());
  EXPECT_EQ(Bounded(-Double::infinity()), Double::lowest());
  EXPECT_EQ(Bounded(Double::quiet_NaN()), 0);
  EXPECT_EQ(Bounded(-2.5), -2.5);
}

}  // namespace
}  // namespace quenlor::data
