// SPDX-License-Identifier: MIT
#include "data/settings_list.h"

#include <random>

#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

constexpr std::string_view kDefaultFile =
    "16\r\n6\r\n1\r\n2\r\n0\r\n0\r\n0\r\n0\r\n0\r\n5\r\n2\r\n1\r\n0\r\n1\r\n1\r\n0\r\n0\r\n0\r\n0\r\n";

SettingsList Parsed(std::string_view text) {
  SettingsList settings;
  settings.Parse(text, false);
  return settings;
}

SettingsList With(int element, std::string text) {
  SettingsList settings;
  settings.Set(element, std::move(text));
  return settings;
}

TEST(SettingsList, TheDefaultsAreAsTheMenusStandOnTheFirstDay) {
  const std::pair<int, std::string_view> table[] = {{setting::kPortCount, "16"},
                                                    {setting::kFieldCount, "6"},
                                                    {setting::kPort, "1"},
                                                    {setting::kBPS, "2"},
                                                    {setting::kParity, "0"},
                                                    {setting::kLength, "0"},
                                                    {setting::kBit, "0"},
                                                    {setting::kTerm, "0"},
                                                    {setting::kNum, "0"},
                                                    {setting::kRepeatSeconds, "5"},
                                                    {setting::kLW, "2"},
                                                    {setting::kVisco, "1"},
                                                    {setting::kLog, "0"},
                                                    {setting::kRepeat, "1"},
                                                    {setting::kTimeS, "1"},
                                                    {setting::kDP, "0"},
                                                    {setting::kMK, "0"},
                                                    {setting::kAutoStop, "0"},
                                                    {setting::kAutoStopMinutes, "0"}};
  ASSERT_EQ(std::size(table), static_cast<std::size_t>(setting::kElements));
  const SettingsList settings;
  for (const auto& [element, text] : table) EXPECT_EQ(settings[element], text) << "element " << element;
}

TEST(SettingsList, TheDecimalPointIsCommaByDefaultWhereTheSystemWritesOne) {
  SettingsList settings;
  settings.SetDefaults(true);
  EXPECT_EQ(settings[setting::kDP], "1");
  EXPECT_TRUE(settings.DecimalComma());
  settings.SetDefaults(false);
  EXPECT_EQ(settings[setting::kDP], "0");
  EXPECT_FALSE(settings.DecimalComma());
}

TEST(SettingsList, SettingTheDefaultsForgetsEveryChange) {
  SettingsList settings;
  for (int element = 0; element < setting::kElements; ++element) settings.Set(element, "changed");
  settings.SetDefaults(false);
  EXPECT_EQ(settings.Text(), kDefaultFile);
}

TEST(SettingsList, TheFileIsNineteenLinesEndedByCrLf) { EXPECT_EQ(SettingsList().Text(), kDefaultFile); }

TEST(SettingsList, ElementsAreReadInTheOrderInWhichTheyAreWritten) {
  SettingsList written;
  for (int element = 0; element < setting::kElements; ++element) written.Set(element, 100 + element);
  const SettingsList read = Parsed(written.Text());
  for (int element = 0; element < setting::kElements; ++element) {
    EXPECT_EQ(read[element], std::to_string(100 + element));
  }
}

TEST(SettingsList, AnyLineEndDividesTheElements) {
  EXPECT_EQ(Parsed("8\n7\n3\n").Text().substr(0, 9), "8\r\n7\r\n3\r\n");
  EXPECT_EQ(Parsed("8\r7\r3\r").Text().substr(0, 9), "8\r\n7\r\n3\r\n");
  EXPECT_EQ(Parsed("\xEF\xBB\xBF"
                   "8\r\n7\r\n3")
                .Text()
                .substr(0, 9),
            "8\r\n7\r\n3\r\n");
}

TEST(SettingsList, MissingElementsTakeTheirDefaults) {
  SettingsList settings = Parsed("4\r\n12\r\n3\r\n");
  EXPECT_EQ(settings[setting::kPort], "3");
  EXPECT_EQ(settings[setting::kBPS], "2");
  EXPECT_EQ(settings[setting::kAutoStopMinutes], "0");
}

TEST(SettingsList, AMissingDecimalPointFollowsTheSystem) {
  SettingsList settings;
  settings.Parse("4\r\n12\r\n3\r\n", true);
  EXPECT_TRUE(settings.DecimalComma());
}

TEST(SettingsList, ADecimalPointInTheFileWinsOverTheSystem) {
  SettingsList settings;
  settings.Parse(kDefaultFile, true);
  EXPECT_FALSE(settings.DecimalComma());
}

TEST(SettingsList, AnEmptyFileMeansTheDefaults) { EXPECT_EQ(Parsed("").Text(), kDefaultFile); }

TEST(SettingsList, ReadingStartsFromTheDefaultsNotFromWhatStoodBefore) {
  SettingsList settings = With(setting::kMK, "4");
  settings.Parse("16\r\n", false);
  EXPECT_EQ(settings.Text(), kDefaultFile);
}

TEST(SettingsList, LinesBehindTheNineteenthAreLeftOut) {
  EXPECT_EQ(Parsed(std::string(kDefaultFile) + "more\r\nand more\r\n").Text(), kDefaultFile);
}

TEST(SettingsList, SenselessElementsAreWrittenBackAsTheyStood) {
  std::string text;
  for (const std::string_view line :
       {"", "  ", "abc", "1;2", "-7", "1E99", "True", "\xC3\xA4", "\"0\"", "x\ty"}) {
    text += std::string(line) + "\r\n";
  }
  for (int element = 10; element < setting::kElements; ++element) text += "noise\r\n";
  EXPECT_EQ(Parsed(text).Text(), text);
}

TEST(SettingsList, NoiseIsReadWithoutHarm) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 500; ++i) {
    std::string noise(random() % 300, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    const SettingsList settings = Parsed(noise);
    for (int element = 0; element < setting::kElements; ++element) {
      const int index = settings.Index(element);
      ASSERT_TRUE(index >= -1 && index <= 99999) << index;
      settings.IsOn(element);
    }
    ASSERT_EQ(Parsed(settings.Text()).Text(), settings.Text());
  }
}

TEST(SettingsList, AnOptionIsOnForANonZeroNumberOrTheWordTrue) {
  for (const char* text : {"1", "True", "-1", "2", "0.5", "0,5", " 1", "1x"}) {
    EXPECT_TRUE(With(setting::kVisco, text).IsOn(setting::kVisco)) << text;
  }
}

TEST(SettingsList, AnOptionIsOffForZeroAndAnyOtherWord) {
  for (const char* text : {"0", "False", "", " ", "0.0", "true", "TRUE", "Trueish", "on", "-0", "x1"}) {
    EXPECT_FALSE(With(setting::kVisco, text).IsOn(setting::kVisco)) << text;
  }
}

TEST(SettingsList, AnIndexIsAWholeNumberOfAtMostFiveDigits) {
  const std::pair<const char*, int> table[] = {{"0", 0},   {"1", 1},     {"16", 16},
                                               {"007", 7}, {"00001", 1}, {"99999", 99999}};
  for (const auto& [text, index] : table)
    EXPECT_EQ(With(setting::kPort, text).Index(setting::kPort), index) << text;
}

TEST(SettingsList, ASenselessIndexIsMinusOne) {
  for (const char* text : {"", " ", "x", "-1", "-7", "+1", "1.0", "1,0", " 1", "1 ", "1x", "True", "100000",
                           "000001", "99999999999999999999", "-0x"}) {
    EXPECT_EQ(With(setting::kPort, text).Index(setting::kPort), -1) << text;
  }
}

TEST(SettingsList, ANumberIsReadLikeAnyText) {
  EXPECT_EQ(With(setting::kRepeatSeconds, "2,5").Number(setting::kRepeatSeconds), 2.5);
  EXPECT_EQ(With(setting::kRepeatSeconds, "five").Number(setting::kRepeatSeconds), 0);
}

TEST(SettingsList, NumbersAreStoredAsTheirDecimalText) {
  SettingsList settings;
  settings.Set(setting::kLW, 1);
  settings.Set(setting::kAutoStopMinutes, -20);
  EXPECT_EQ(settings[setting::kLW], "1");
  EXPECT_EQ(settings[setting::kAutoStopMinutes], "-20");
}

TEST(SettingsList, ADecimalCommaDividesFieldsBySemicolons) {
  EXPECT_EQ(With(setting::kDP, "1").FieldSeparator(), ';');
  EXPECT_EQ(With(setting::kDP, "0").FieldSeparator(), ',');
  EXPECT_EQ(With(setting::kDP, "noise").FieldSeparator(), ',');
}

}  // namespace
}  // namespace quenlor::data
