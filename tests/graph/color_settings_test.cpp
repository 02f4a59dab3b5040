// SPDX-License-Identifier: MIT
#include "graph/color_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace quenlor::graph {
namespace {

using platform::memory::MemoryFileSystem;

constexpr char kPath[] = "/lab/Color.txt";
constexpr char kDefaultText[] =
    "&h0000FF\r\n&h00BB00\r\n&hFF9900\r\n&hFF00CC\r\n&h00BBFF\r\n"
    "&h0000CC\r\n&hFFFF00\r\n&h00FF99\r\n&h00EEEE\r\n&hFFCCFF\r\nWhite\r\n";

// A whole file of which the first value, that of entry 1, is given.
std::string WithFirstValue(const std::string& value) {
  return value + std::string(kDefaultText).substr(std::string(kDefaultText).find("\r\n"));
}

std::string WithScheme(const std::string& word) {
  std::string text = kDefaultText;
  return text.replace(text.find("White"), 5, word);
}

ColorTable Blacks() { return {}; }

std::string Levels(Color color) {
  return std::to_string(color.Red()) + " " + std::to_string(color.Green()) + " " +
         std::to_string(color.Blue());
}

TEST(DefaultColors, AreTheseRedsGreensAndBlues) {
  constexpr std::array kLevels = {"255 204 255", "255 0 0", "0 187 0",   "0 153 255", "204 0 255",
                                  "255 187 0",   "204 0 0", "0 255 255", "153 255 0", "238 238 0"};
  for (int entry = 0; entry < 10; ++entry) {
    EXPECT_EQ(Levels(RunColor(kDefaultColors, entry)), kLevels[static_cast<std::size_t>(entry)]) << entry;
  }
}

TEST(RunColor, RepeatsAfterTenRuns) {
  EXPECT_EQ(RunColor(kDefaultColors, 11), RunColor(kDefaultColors, 1));
  EXPECT_EQ(RunColor(kDefaultColors, 10), kDefaultColors[0]);
  EXPECT_EQ(RunColor(kDefaultColors, 9'000'000'000'003), kDefaultColors[3]);
}

TEST(RunColor, HasAnEntryForNumbersBelowZeroToo) {
  EXPECT_EQ(RunColor(kDefaultColors, -1), kDefaultColors[9]);
  EXPECT_EQ(RunColor(kDefaultColors, -10), kDefaultColors[0]);
}

TEST(ReadableOn, IsBlackOnLightAndWhiteOnDark) {
  EXPECT_EQ(ReadableOn(kWhite), kBlack);
  EXPECT_EQ(ReadableOn(kBlack), kWhite);
  EXPECT_EQ(ReadableOn({0x0000CC}), kWhite);  // dark red
  EXPECT_EQ(ReadableOn({0xFF0000}), kWhite);  // blue
  EXPECT_EQ(ReadableOn({0x00BB00}), kBlack);  // green
  EXPECT_EQ(ReadableOn({0x00EEEE}), kBlack);  // yellow
}

TEST(ColorSettings, WhiteSchemeIsAWhiteBackgroundWithABlackGrid) {
  const ColorSettings settings(kDefaultColors, Scheme::White);

  EXPECT_EQ(settings.BackColor(), Color{0xFFFFFF});
  EXPECT_EQ(settings.GridColor(), Color{0x000000});
}

TEST(ColorSettings, BlackSchemeIsABlackBackgroundWithAWhiteGrid) {
  const ColorSettings settings(kDefaultColors, Scheme::Black);

  EXPECT_EQ(settings.BackColor(), Color{0x000000});
  EXPECT_EQ(settings.GridColor(), Color{0xFFFFFF});
}

TEST(ColorText, DefaultsAreElevenLinesFromEntryOneToEntryZero) {
  EXPECT_EQ(ColorSettings().Text(), kDefaultText);
}

TEST(ColorText, PureRedHasItsLeadingZeros) {
  ColorTable colors = Blacks();
  colors[1] = {255};

  EXPECT_THAT(ColorSettings(colors, Scheme::White).Text(), testing::StartsWith("&h0000FF\r\n&h000000\r\n"));
}

TEST(ColorText, ZeroIsSixZeros) {
  EXPECT_THAT(ColorSettings(Blacks(), Scheme::White).Text(), testing::StartsWith("&h000000\r\n"));
}

TEST(ColorText, DigitsAreUpperCaseAndOnlyTheLastSix) {
  ColorTable colors = Blacks();
  colors[1] = {0x12abcdef};

  EXPECT_THAT(ColorSettings(colors, Scheme::White).Text(), testing::StartsWith("&hABCDEF\r\n"));
}

TEST(ColorText, EntryZeroStandsOnTheTenthLine) {
  ColorTable colors = Blacks();
  colors[0] = {0xFFFFFF};

  EXPECT_THAT(ColorSettings(colors, Scheme::Black).Text(),
              testing::EndsWith("&h000000\r\n&hFFFFFF\r\nBlack\r\n"));
}

TEST(ColorText, IsReadBackAsItWasWritten) {
  ColorTable colors;
  for (std::uint32_t i = 0; i < 10; ++i) colors[i] = {0x10203 * (i + 1)};
  for (const Scheme scheme : {Scheme::White, Scheme::Black}) {
    const ColorSettings settings(colors, scheme);

    EXPECT_EQ(ColorSettings::FromText(settings.Text()), settings);
  }
}

TEST(ColorFromText, TakesEveryFormOfANumber) {
  const std::pair<const char*, std::uint32_t> kForms[] = {
      {"&h0000FF", 0x0000FF},
      {"&H0000ff", 0x0000FF},
      {"&hff", 0xFF},
      {"&h0", 0},
      {"&hFF9900&", 0xFF9900},
      {"  &hFF\t", 0xFF},
      {"16711935", 0xFF00FF},
      {"0", 0},
      {"&h00000000FF", 0xFF},
      {"&hFFFF", 0xFFFF},
      {"007", 7},
  };
  for (const auto& [text, value] : kForms) {
    const auto read = ColorSettings::FromText(WithFirstValue(text));

    ASSERT_TRUE(read) << text;
    EXPECT_EQ(read->Colors()[1].value, value) << text;
  }
}

TEST(ColorFromText, OnlyTheLowerTwentyFourBitsAreAColour) {
  for (const char* text : {"&hFFABCDEF", "&h01abcdef", "4289449455"}) {
    const auto read = ColorSettings::FromText(WithFirstValue(text));

    ASSERT_TRUE(read) << text;
    EXPECT_EQ(read->Colors()[1].value, 0xABCDEFU) << text;
  }
}

TEST(ColorFromText, WhatIsNoNumberSpoilsAllOfIt) {
  for (const char* text :
       {"",           " ",       "&h",          "&h&",        "&",   "h00FF",    "&hGG",
        "&h00FF00 x", "&h12 34", "red",         "0x00FF",     "-1",  "&h-1",     "+1",
        "1.5",        "1,2",     "&h100000000", "4294967296", "12&", "\"&hFF\"", "White"}) {
    EXPECT_FALSE(ColorSettings::FromText(WithFirstValue(text))) << "'" << text << "'";
  }
}

TEST(ColorFromText, LinesMayEndAsOnAnySystemAndTheLastNotAtAll) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string text;
    for (int line = 1; line <= 10; ++line) text += "&h" + std::to_string(line) + end;

    const auto read = ColorSettings::FromText(text + "White");

    ASSERT_TRUE(read);
    EXPECT_EQ(read->Colors()[9].value, 9U);
    EXPECT_EQ(read->Colors()[0].value, 0x10U);
    EXPECT_EQ(read->BackScheme(), Scheme::White);
  }
}

TEST(ColorFromText, OnlyTheExactWordWhiteIsWhite) {
  EXPECT_EQ(ColorSettings::FromText(WithScheme("White"))->BackScheme(), Scheme::White);
  for (const char* word :
       {"white", "WHITE", "Black", "", " White", "White ", "\"White\"", "Whites", "&hFFFFFF"}) {
    const auto read = ColorSettings::FromText(WithScheme(word));

    ASSERT_TRUE(read) << word;
    EXPECT_EQ(read->BackScheme(), Scheme::Black) << word;
    EXPECT_EQ(read->Colors(), kDefaultColors) << word;
  }
}

TEST(ColorFromText, AShortTextIsNone) {
  const std::string text = kDefaultText;
  for (std::size_t end = text.find('\n'); end != std::string::npos && end + 1 < text.size();
       end = text.find('\n', end + 1)) {
    EXPECT_FALSE(ColorSettings::FromText(text.substr(0, end + 1))) << text.substr(0, end + 1);
  }
  EXPECT_FALSE(ColorSettings::FromText(""));
}

TEST(ColorFromText, LinesAfterTheEleventhDoNotMatter) {
  EXPECT_EQ(ColorSettings::FromText(std::string(kDefaultText) + "anything\r\n\r\n"), ColorSettings());
}

class ColorFile : public testing::Test {
 protected:
  ColorSettings Load() { return LoadColor(file); }

  void ExpectReplacedByDefaults(const std::string& content) {
    files.Put(kPath, content);
    EXPECT_EQ(Load(), ColorSettings()) << content;
    EXPECT_EQ(files.Content(kPath), kDefaultText) << content;
  }

  MemoryFileSystem files;
  platform::KeptFile file{files, kPath};
};

TEST_F(ColorFile, MissingOneIsMadeWithTheDefaults) {
  EXPECT_EQ(Load(), ColorSettings());
  EXPECT_EQ(Load().BackScheme(), Scheme::White);
  EXPECT_EQ(files.Content(kPath), kDefaultText);
}

TEST_F(ColorFile, SoundOneIsReadAndNotTouched) {
  const std::string text = "&h1\r\n&h2\r\n&h3\r\n&h4\r\n&h5\r\n&h6\r\n&h7\r\n&h8\r\n&h9\r\n&ha\r\nwhite\r\n";
  files.Put(kPath, text);

  const ColorSettings settings = Load();

  EXPECT_EQ(settings.Colors(), (ColorTable{{{10}, {1}, {2}, {3}, {4}, {5}, {6}, {7}, {8}, {9}}}));
  EXPECT_EQ(settings.BackScheme(), Scheme::Black);
  EXPECT_EQ(files.Content(kPath), text);
  EXPECT_EQ(files.Calls().replaces, 0);
}

TEST_F(ColorFile, DamagedOneIsReplacedByTheDefaults) {
  ExpectReplacedByDefaults("");
  ExpectReplacedByDefaults("&h0000FF\r\n&h0000FF\r\n");
  ExpectReplacedByDefaults(WithFirstValue("red"));
  ExpectReplacedByDefaults(std::string(100'000, '\0'));
  ExpectReplacedByDefaults(std::string("\xFF\xFE&\0h\0", 6));
}

TEST_F(ColorFile, ElevenWrongLinesAreReplacedByTheDefaults) {
  std::string text;
  for (int line = 1; line <= 11; ++line) text += "wrong " + std::to_string(line) + "\r\n";
  ExpectReplacedByDefaults(text);
}

TEST_F(ColorFile, OneWrongLineAtTheEndLeavesNoneOfTheOthersBehind) {
  std::string text;
  for (int line = 1; line <= 9; ++line) text += "&h123456\r\n";
  ExpectReplacedByDefaults(text + "wrong\r\nBlack\r\n");
}

TEST_F(ColorFile, UnreadableOneIsSetAsideAndMadeAnew) {
  files.Put(kPath, WithScheme("Black"));
  files.Unreadable(kPath);

  EXPECT_EQ(Load(), ColorSettings());

  EXPECT_EQ(files.Content(kPath), kDefaultText);
  EXPECT_EQ(files.Content("/lab/Color_19700101-000000.txt"), WithScheme("Black"));
}

TEST_F(ColorFile, DefaultsServeWhereItCannotBeMadeAndAreTriedOnce) {
  files.Refuse("/lab", "Read-only file system");

  EXPECT_EQ(Load(), ColorSettings());
  EXPECT_FALSE(files.Exists(kPath));
  EXPECT_EQ(files.Calls().replaces, 1);
  EXPECT_LE(files.Calls().reads, 2);
}

TEST_F(ColorFile, DefaultsServeWhereADamagedOneCannotBeReplaced) {
  files.Put(kPath, "wrong");
  files.FailAfter(0);

  EXPECT_EQ(Load(), ColorSettings());
  EXPECT_EQ(files.Content(kPath), "wrong");
  EXPECT_EQ(files.Calls().replaces, 1);
}

TEST_F(ColorFile, DefaultsServeWhereAFolderHasItsName) {
  files.MakeFolder(kPath);

  EXPECT_EQ(Load(), ColorSettings());
}

TEST_F(ColorFile, WhatIsSavedIsLoaded) {
  const ColorSettings settings(Blacks(), Scheme::Black);

  EXPECT_FALSE(file.Replace(settings.Text()));

  EXPECT_EQ(Load(), settings);
}

TEST_F(ColorFile, SavingTellsWhatFailedAndLeavesTheOldOne) {
  files.Put(kPath, WithScheme("Black"));
  files.FailAfter(50);

  const platform::Done done = file.Replace(ColorSettings().Text());

  ASSERT_TRUE(done);
  EXPECT_THAT(done->text, testing::HasSubstr("No space left on device"));
  EXPECT_EQ(files.Content(kPath), WithScheme("Black"));
}

}  // namespace
}  // namespace quenlor::graph
