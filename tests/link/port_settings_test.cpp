// SPDX-License-Identifier: MIT
#include "link/port_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/line_settings.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
namespace setting = data::setting;

data::SettingsList Choices(int bps, int parity, int length, int bit) {
  data::SettingsList settings;
  settings.Set(setting::kBPS, bps);
  settings.Set(setting::kParity, parity);
  settings.Set(setting::kLength, length);
  settings.Set(setting::kBit, bit);
  return settings;
}

std::string SettingsText(const data::SettingsList& settings) {
  const auto port = ApplyPortSettings(settings);
  return port ? port->Settings : "no settings";
}

TEST(PortSettings, TheMenusOfferTheseCaptions) {
  EXPECT_THAT(BPS, ElementsAre("600", "1200", "2400", "4800", "9600", "14400", "19200", "28800"));
  EXPECT_THAT(Parity, ElementsAre("E", "O", "N"));
  EXPECT_THAT(Length, ElementsAre("7", "8"));
  EXPECT_THAT(Bit, ElementsAre("1", "1.5", "2"));
  EXPECT_THAT(Term, ElementsAre("CR/LF", "CR"));
}

TEST(PortSettings, CaptionsAreJoinedWithoutSeparator) {
  EXPECT_EQ(SettingsText(Choices(4, 2, 1, 0)), "9600N81");
  EXPECT_EQ(SettingsText(Choices(0, 0, 0, 0)), "600E71");
  EXPECT_EQ(SettingsText(Choices(7, 1, 1, 2)), "28800O82");
}

TEST(PortSettings, OneAndAHalfStopBitsAreThreeCharacters) {
  EXPECT_EQ(SettingsText(Choices(2, 0, 0, 1)), "2400E71.5");
}

TEST(PortSettings, EveryChoiceOfTheMenusIsUnderstoodByThePort) {
  for (std::size_t bps = 0; bps < BPS.size(); ++bps) {
    for (std::size_t parity = 0; parity < Parity.size(); ++parity) {
      for (std::size_t length = 0; length < Length.size(); ++length) {
        for (std::size_t bit = 0; bit < Bit.size(); ++bit) {
          const std::string text = SettingsText(Choices(static_cast<int>(bps), static_cast<int>(parity),
                                                        static_cast<int>(length), static_cast<int>(bit)));
          const auto line = platform::ParseLineSettings(text);

          ASSERT_TRUE(line) << text;
          EXPECT_EQ(std::to_string(line->speed), BPS[bps]);
          EXPECT_EQ(std::string(1, line->parity), Parity[parity]);
          EXPECT_EQ(std::to_string(line->data_bits), Length[length]);
          EXPECT_EQ(line->stop_bits, platform::StopBits{static_cast<int>(bit)});
        }
      }
    }
  }
}

TEST(PortSettings, TheDefaultsArePort1At2400E71) {
  const auto port = ApplyPortSettings(data::SettingsList{});

  ASSERT_TRUE(port);
  EXPECT_EQ(port->CommPort, 1);
  EXPECT_EQ(port->Settings, "2400E71");
}

TEST(PortSettings, EveryPortUpToThePortCountCanBeChosen) {
  data::SettingsList settings;
  settings.Set(setting::kPortCount, 9);
  for (int number = 1; number <= 9; ++number) {
    settings.Set(setting::kPort, number);

    const auto port = ApplyPortSettings(settings);

    ASSERT_TRUE(port) << number;
    EXPECT_EQ(port->CommPort, number);
  }
}

TEST(PortSettings, AnIndexWithoutAnItemGivesNoSettings) {
  struct Case {
    int element;
    const char* text;
  };
  for (const Case& wrong : {Case{setting::kPort, "0"},
                            {setting::kPort, "17"},
                            {setting::kPort, "-1"},
                            {setting::kPort, ""},
                            {setting::kPort, "COM1"},
                            {setting::kBPS, "8"},
                            {setting::kBPS, "-1"},
                            {setting::kBPS, "9600"},
                            {setting::kParity, "3"},
                            {setting::kParity, "N"},
                            {setting::kLength, "2"},
                            {setting::kLength, "1.0"},
                            {setting::kBit, "3"},
                            {setting::kBit, ""},
                            {setting::kPort, "4294967297"},
                            {setting::kBPS, "99999999"},
                            {setting::kBit, " 0"}}) {
    data::SettingsList settings;
    settings.Set(wrong.element, std::string(wrong.text));

    EXPECT_FALSE(ApplyPortSettings(settings)) << "element " << wrong.element << " is " << wrong.text;
  }
}

TEST(PortSettings, ThePortCountIsAtLeastFourAndAtMost256) {
  struct Case {
    const char* text;
    int count;
  };
  for (const Case& example : {Case{"16", 16},
                              {"4", 4},
                              {"5", 5},
                              {"3", 4},
                              {"0", 4},
                              {"-7", 4},
                              {"", 4},
                              {"many", 4},
                              {"256", 256},
                              {"257", 256},
                              {"1E300", 256},
                              {"-1E300", 4}}) {
    data::SettingsList settings;
    settings.Set(setting::kPortCount, std::string(example.text));

    EXPECT_EQ(PortCount(settings), example.count) << example.text;
  }
}

TEST(PortSettings, ASmallPortCountStillHasPort4) {
  data::SettingsList settings;
  settings.Set(setting::kPortCount, 1);
  settings.Set(setting::kPort, 4);

  EXPECT_TRUE(ApplyPortSettings(settings));
}

TEST(PortSettings, TheTerminatorFollowsItsMenu) {
  data::SettingsList settings;

  settings.Set(setting::kTerm, 0);
  EXPECT_EQ(Terminator(settings), "\r\n");

  settings.Set(setting::kTerm, 1);
  EXPECT_EQ(Terminator(settings), "\r");
}

TEST(PortSettings, ATerminatorWithoutAnItemOpensNothing) {
  data::SettingsList settings;
  for (const char* text : {"2", "", "CR/LF", "-1"}) {
    settings.Set(setting::kTerm, std::string(text));

    EXPECT_FALSE(ApplyPortSettings(settings)) << text;
  }
}

}  // namespace
}  // namespace quenlor::link
