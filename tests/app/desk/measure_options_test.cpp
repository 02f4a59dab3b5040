// SPDX-License-Identifier: MIT
#include "app/desk/measure_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using testing::HasSubstr;

struct Taken {
  MeasureOptions options;
  data::SettingsList settings;
  std::string wrong;
};

// Takes pairs of option and value, and applies them to the default settings.
Taken Take(const std::vector<std::pair<std::string, std::string>>& words) {
  Taken taken;
  for (const auto& [option, value] : words) {
    EXPECT_TRUE(IsMeasureOption(option)) << option;
    taken.wrong = TakeMeasureOption(option, value, taken.options);
    if (!taken.wrong.empty()) return taken;
  }
  taken.wrong = ApplyMeasureOptions(taken.options, taken.settings);
  return taken;
}

std::string Wrong(const std::string& option, const std::string& value) {
  return Take({{option, value}}).wrong;
}

TEST(MeasureOptions, WordsOfTheMenusAreTheirItems) {
  const Taken taken = Take({{"--com-port", "3"},
                            {"--baud", "9600"},
                            {"--parity", "N"},
                            {"--length", "8"},
                            {"--stop-bit", "1.5"},
                            {"--terminator", "CR"},
                            {"--visco", "off"},
                            {"--number", "on"},
                            {"--decimal-point", "Comma"}});
  EXPECT_EQ(taken.wrong, "");
  const std::vector<std::pair<int, int>> items = {
      {setting::kPort, 3},   {setting::kBPS, 4}, {setting::kParity, 2},
      {setting::kLength, 1}, {setting::kBit, 1}, {setting::kTerm, 1},
      {setting::kVisco, 0},  {setting::kNum, 1}, {setting::kDP, 1}};
  for (const auto& [element, item] : items) EXPECT_EQ(taken.settings.Index(element), item) << element;
}

TEST(MeasureOptions, BoxesAreTickedByTheirNumberAndClearedByOff) {
  Taken taken = Take({{"--repeat", "0.5"}, {"--auto-stop", "30"}});
  EXPECT_EQ(taken.wrong, "");
  EXPECT_EQ(taken.settings.Index(setting::kRepeat), 1);
  EXPECT_EQ(taken.settings[setting::kRepeatSeconds], "0.5");
  EXPECT_EQ(taken.settings.Index(setting::kAutoStop), 1);
  EXPECT_EQ(taken.settings[setting::kAutoStopMinutes], "30");
  taken = Take({{"--repeat", "off"}});
  EXPECT_EQ(taken.settings.Index(setting::kRepeat), 0);
  EXPECT_EQ(taken.settings[setting::kRepeatSeconds], "5") << "the interval stays for whoever ticks it again";
}

TEST(MeasureOptions, WhatIsNotGivenStaysAsTheSettingsHaveIt) {
  EXPECT_EQ(Take({}).settings.Text(), data::SettingsList().Text());
}

TEST(MeasureOptions, AWrongWordIsRefusedWithTheChoicesNamed) {
  EXPECT_EQ(Wrong("--baud", "42"),
            "--baud needs one of 600, 1200, 2400, 4800, 9600, 14400, 19200, 28800, not 42");
  EXPECT_EQ(Wrong("--parity", "n"), "--parity needs one of E, O, N, not n");
  EXPECT_EQ(Wrong("--length", "9"), "--length needs one of 7, 8, not 9");
  EXPECT_EQ(Wrong("--stop-bit", "3"), "--stop-bit needs one of 1, 1.5, 2, not 3");
  EXPECT_EQ(Wrong("--terminator", "LF"), "--terminator needs one of CR/LF, CR, not LF");
  EXPECT_EQ(Wrong("--visco", "yes"), "--visco needs one of off, on, not yes");
  EXPECT_EQ(Wrong("--number", "1"), "--number needs one of off, on, not 1");
  EXPECT_EQ(Wrong("--decimal-point", ","), "--decimal-point needs one of Dot, Comma, not ,");
  EXPECT_EQ(Wrong("--on-loss", "stay"), "--on-loss needs one of end, wait, not stay");
  EXPECT_EQ(Wrong("--com-port", "17"), "--com-port needs a number from 1 to 16, not 17");
}

TEST(MeasureOptions, ANumberThatIsNoneIsRefused) {
  for (const char* text : {"", "x", "5s", "-1", "1e3", "nan", "inf", "1,5", "0x10", " 5", "99999999999"}) {
    EXPECT_THAT(Wrong("--repeat", text), HasSubstr("--repeat needs a number of seconds, or off")) << text;
    EXPECT_THAT(Wrong("--auto-stop", text), HasSubstr("--auto-stop needs a number of minutes, or off"))
        << text;
    EXPECT_THAT(Wrong("--pause", text), HasSubstr("--pause needs a number of seconds")) << text;
    EXPECT_THAT(Wrong("--minutes", text), HasSubstr("--minutes needs a number of minutes")) << text;
  }
  for (const char* text : {"", "0", "-1", "1.5", "x", "99999999999999999999"}) {
    EXPECT_THAT(Wrong("--readings", text), HasSubstr("--readings needs a number from 1")) << text;
    EXPECT_THAT(Wrong("--runs", text), HasSubstr("--runs needs a number from 1 to 32767")) << text;
    EXPECT_THAT(Wrong("--com-port", text), HasSubstr("--com-port needs a port number")) << text;
  }
  EXPECT_THAT(Wrong("--minutes", "0"), HasSubstr("--minutes needs a number of minutes"));
}

TEST(MeasureOptions, RunsNeedWhatEndsEachOfThem) {
  EXPECT_EQ(Wrong("--runs", "2"), "--runs needs what ends a run: --readings, --minutes, or --auto-stop");
  EXPECT_EQ(Wrong("--runs", "1"), "");
  EXPECT_EQ(Take({{"--runs", "2"}, {"--readings", "5"}}).wrong, "");
  EXPECT_EQ(Take({{"--runs", "2"}, {"--minutes", "5"}}).wrong, "");
  EXPECT_EQ(Take({{"--runs", "2"}, {"--auto-stop", "5"}}).wrong, "");
  EXPECT_NE(Take({{"--runs", "2"}, {"--auto-stop", "0"}}).wrong, "");
}

TEST(MeasureOptions, AutoStopThatWouldNeverComeIsRefused) {
  EXPECT_EQ(Take({{"--auto-stop", "5"}, {"--repeat", "off"}}).wrong,
            "--auto-stop works together with Repeat: --repeat SECONDS");
  EXPECT_EQ(Take({{"--auto-stop", "off"}, {"--repeat", "off"}}).wrong, "");
}

}  // namespace
}  // namespace quenlor::app
