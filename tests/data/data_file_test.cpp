// SPDX-License-Identifier: MIT
#include "data/data_file.h"

#include <algorithm>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/data/naive_table.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Rows = std::vector<Texts>;

// The readings of a file; row 0, the titles, left out.
Rows Readings(const DataFileContents& contents) {
  Rows rows = AllTexts(contents.table);
  rows.erase(rows.begin());
  return rows;
}

Texts Titles(const DataFileContents& contents) { return RowTexts(contents.table, 0); }

TEST(DataFile, TheTitleRowNamesTheColumns) {
  EXPECT_THAT(Titles(ParseDataFile("No.,Time,Viscosity,Unit1,Temp\r\n")),
              ElementsAre("No.", "Time", "Viscosity", "Unit1", "Temp"));
}

TEST(DataFile, AnyOtherLineIsAReading) {
  const auto contents = ParseDataFile("No.,Time,a,b\r\n1,00:00:00,12.5, x \r\n1,00:00:05,13,\r\n");
  EXPECT_THAT(Readings(contents),
              ElementsAre(Texts{"1", "00:00:00", "12.5", " x "}, Texts{"1", "00:00:05", "13", ""}));
}

TEST(DataFile, ATitleRowDividedBySemicolonsDividesTheWholeFile) {
  const auto contents = ParseDataFile(
      "No.;Time;a\r\n1;00:00:00;1,5\r\nInfo;x;y\r\nInfo;No.1;Oil,new\r\nAxis;2;3;0,5\r\nDate;2002/03/"
      "20\r\nMemo;a;b,c\r\n");
  EXPECT_EQ(contents.separator, ';');
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "00:00:00", "1,5"}));
  EXPECT_EQ(contents.runs.TextMatrix(1, 1), "Oil,new");
  EXPECT_EQ(contents.axis.ViscoColumn, 2);
  EXPECT_EQ(contents.axis.TempColumn, 3);
  EXPECT_EQ(contents.axis.TimeMin, 0.5);
  EXPECT_EQ(contents.date, "2002/03/20");
  EXPECT_EQ(contents.remarks, "a b,c");
}

TEST(DataFile, ATitleRowDividedByCommasLeavesSemicolonsInTheCells) {
  const auto contents = ParseDataFile("No.,Time,a\r\n1,0,x;y\r\n");
  EXPECT_EQ(contents.separator, ',');
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "0", "x;y"}));
}

TEST(DataFile, AnEmptyFileIsAnEmptyDocument) {
  for (const std::string_view bytes :
       {"", "\r\n", "\n\n\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF\r\n", "  \r\n\t\n", " "}) {
    const auto contents = ParseDataFile(std::string(bytes));
    EXPECT_THAT(AllTexts(contents.table), ElementsAre(Texts{"No.", "Time"})) << testing::PrintToString(bytes);
    EXPECT_EQ(contents.runs.Rows(), 1);
    EXPECT_EQ(contents.run_count, 0);
    EXPECT_EQ(contents.separator, ',');
    EXPECT_EQ(contents.date, std::nullopt);
    EXPECT_EQ(contents.remarks, std::nullopt);
    EXPECT_EQ(contents.axis.ViscoColumn, std::nullopt);
    EXPECT_THAT(contents.List2, IsEmpty());
  }
}

TEST(DataFile, LinesEndByCrLfOrLfOrCr) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string bytes;
    for (const char* line :
         {"No.,Time,a", "1,0,5", "1,1,6", "Info,t", "Info,No.1,Oil", "Date,d", "Memo,r", "m1", "", "m2"}) {
      bytes += line + end;
    }
    const auto contents = ParseDataFile(bytes);
    EXPECT_THAT(AllTexts(contents.table),
                ElementsAre(Texts{"No.", "Time", "a"}, Texts{"1", "0", "5"}, Texts{"1", "1", "6"}));
    EXPECT_EQ(contents.runs.TextMatrix(1, 1), "Oil");
    EXPECT_EQ(contents.date, "d");
    EXPECT_EQ(contents.remarks, "r");
    EXPECT_THAT(contents.List2, ElementsAre("m1", "", "m2"));
  }
}

TEST(DataFile, LineEndsMayBeMixed) {
  const auto contents = ParseDataFile("No.,Time\n1,0\r2,1\r\n3,2\n\r4,3\n");
  EXPECT_THAT(Readings(contents),
              ElementsAre(Texts{"1", "0"}, Texts{"2", "1"}, Texts{"3", "2"}, Texts{"4", "3"}));
}

// Lines are read eight bytes at a time: here, every line end and separator stands at every place of eight.
TEST(DataFile, CellsOfAnyLengthAreDividedWhereverTheyStand) {
  const std::string lines_before = "No.,Time\n";
  for (std::size_t pushed = 0; pushed < 8; ++pushed) {
    for (std::size_t length = 0; length < 20; ++length) {
      const Texts cells = {"1" + std::string(pushed, '0'), std::string(length, 'x'), "", "\xC3\xBF", "7"};
      const std::string line = Joined(cells, ',');
      for (const std::string_view end : {"\n", "\r", "\r\n"}) {
        const auto contents = ParseDataFile(lines_before + line + std::string(end) + "2,y" +
                                            std::string(end) + "Date,a,b" + std::string(end));
        ASSERT_EQ(contents.table.EntryRow(), 3) << line;
        ASSERT_EQ(RowTexts(contents.table, 1), cells);
        ASSERT_EQ(contents.table.TextMatrix(2, 1), "y");
        ASSERT_EQ(contents.date, "a,b");
      }
    }
  }
}

TEST(DataFile, ALastLineWithoutAnEndIsRead) {
  EXPECT_THAT(Readings(ParseDataFile("No.,Time\r\n1,0\r\n1,5")),
              ElementsAre(Texts{"1", "0"}, Texts{"1", "5"}));
  EXPECT_THAT(Titles(ParseDataFile("No.,Time,a")), ElementsAre("No.", "Time", "a"));
  EXPECT_EQ(ParseDataFile("No.,Time\r\nDate,2002/03/20").date, "2002/03/20");
  EXPECT_EQ(ParseDataFile("No.,Time\r\nMemo,a,b").remarks, "a b");
  EXPECT_THAT(ParseDataFile("Memo,\r\nfirst\r\n2,last").List2, ElementsAre("first", "2,last"));
}

TEST(DataFile, AByteOrderMarkIsSkipped) {
  const std::string mark = "\xEF\xBB\xBF";
  EXPECT_EQ(ParseDataFile(mark + "No.;Time;a\r\n1;0;5\r\n").separator, ';');
  EXPECT_THAT(Titles(ParseDataFile(mark + "No.;Time;a")), ElementsAre("No.", "Time", "a"));
  EXPECT_THAT(Readings(ParseDataFile(mark + "1,0\r\n")), ElementsAre(Texts{"1", "0"}));
  EXPECT_THAT(Readings(ParseDataFile(mark + "1,0")), ElementsAre(Texts{"1", "0"}));
}

TEST(DataFile, TextIsUtf8AndOtherBytesAreLatin1) {
  const auto contents =
      ParseDataFile("No.,Time,\xB0 C,\xC2\xB0 C\r\n1,0,\xFE\xFF,\xE2\x82\xAC\r\nMemo,\xFC\r\n\xC3\r\n");
  EXPECT_THAT(Titles(contents), ElementsAre("No.", "Time", "\xC2\xB0 C", "\xC2\xB0 C"));
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "0", "\xC3\xBE\xC3\xBF", "\xE2\x82\xAC"}));
  EXPECT_EQ(contents.remarks, "\xC3\xBC");
  EXPECT_THAT(contents.List2, ElementsAre("\xC3")) << "memo lines are bytes";
}

TEST(DataFile, TellsHowItsTextIsEncoded) {
  const auto encoding = [](const char* bytes) { return ParseDataFile(bytes).encoding; };
  EXPECT_EQ(encoding("No.,Time\r\n1,0\r\n"), TextEncoding::kUtf8);
  EXPECT_EQ(encoding("No.,Time,\xC2\xB0\r\n"), TextEncoding::kUtf8);
  EXPECT_EQ(encoding("\xEF\xBB\xBFNo.,Time\r\n"), TextEncoding::kUtf8WithMark);
  EXPECT_EQ(encoding("No.,Time,\xB0\r\n"), TextEncoding::kLatin1);
  EXPECT_EQ(encoding("No.,Time,\xB0,\xC2\xB0\r\n"), TextEncoding::kUtf8) << "damaged, but no Latin-1";
  EXPECT_EQ(encoding("No.,Time\r\nMemo,a\r\n\xB0\r\n"), TextEncoding::kUtf8) << "memo lines do not count";
}

TEST(DataFile, AReadingWhoseNumberIsFollowedByTheOtherSeparatorIsDividedByThat) {
  const auto contents = ParseDataFile("No.,Time,a\r\n1,0,x;y\r\n1;5;1,5\r\n12;6;7\r\n;1,2\r\n");
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "0", "x;y"}, Texts{"1", "5", "1,5"},
                                              Texts{"12", "6", "7"}, Texts{";1", "2", ""}));
  EXPECT_EQ(contents.separator, ',');
  EXPECT_EQ(contents.run_count, 12);
  EXPECT_THAT(Readings(ParseDataFile("No.;Time\r\n1,0\r\n")), ElementsAre(Texts{"1", "0"}));
}

TEST(DataFile, NulsBelongToTheirCell) {
  using namespace std::string_literals;
  const auto contents = ParseDataFile("No.,Time\r\n1,\0x\0\r\n\0,2\r\n"s);
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "\0x\0"s}, Texts{"\0"s, "2"}));
}

TEST(DataFile, BlankLinesAreSkippedBeforeTheMemo) {
  const auto contents =
      ParseDataFile("\r\n \r\nNo.,Time\r\n\r\n1,0\r\n\r\n \t \r\n1,1\r\n\r\nDate,d\r\n\r\nMemo,r\r\n");
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "0"}, Texts{"1", "1"}));
  EXPECT_EQ(contents.date, "d");
  EXPECT_EQ(contents.remarks, "r");
}

TEST(DataFile, ARowLongerThanTheTitleRowAddsColumns) {
  const auto contents = ParseDataFile("No.,Time,a\r\n1,0,5\r\n1,1,6,7,8\r\n");
  EXPECT_THAT(AllTexts(contents.table),
              ElementsAre(Texts{"No.", "Time", "a", "Data2", "Data3"}, Texts{"1", "0", "5", "", ""},
                          Texts{"1", "1", "6", "7", "8"}));
}

TEST(DataFile, ARowShorterThanTheTitleRowHasEmptyCells) {
  const auto contents = ParseDataFile("No.,Time,a,b\r\n1\r\n1,1\r\n,,,\r\n");
  EXPECT_THAT(Readings(contents),
              ElementsAre(Texts{"1", "", "", ""}, Texts{"1", "1", "", ""}, Texts{"", "", "", ""}));
}

TEST(DataFile, WithoutATitleRowTheColumnsAreNumbered) {
  const auto contents = ParseDataFile("1,00:00:00,12.5,25.1\r\n1,00:00:05,13,25\r\n");
  EXPECT_THAT(Titles(contents), ElementsAre("No.", "Time", "Data1", "Data2"));
  EXPECT_THAT(Readings(contents), SizeIs(2));
}

TEST(DataFile, WithoutATitleRowTheFirstSeparatorOfTheFileShowsWhichOneItHas) {
  EXPECT_THAT(Readings(ParseDataFile("1;0;1,5\r\n")), ElementsAre(Texts{"1", "0", "1,5"}));
  EXPECT_THAT(Readings(ParseDataFile("noise\r\n1;0;1,5\r\n")),
              ElementsAre(Texts{"noise", "", ""}, Texts{"1", "0", "1,5"}));
  EXPECT_EQ(ParseDataFile("Date;2002/03/20, noon\r\n1;0\r\n").separator, ';');
  EXPECT_EQ(ParseDataFile("Date,2002;03\r\n1,0\r\n").separator, ',');
  EXPECT_EQ(ParseDataFile("Info;No.1;a,b\r\n").separator, ';');
}

TEST(DataFile, ATitleRowInTheMiddleNamesTheColumnsAllTheSame) {
  const auto contents = ParseDataFile("1,0,5\r\nNo.,Time,Viscosity,Temp\r\n1,1,6,7\r\n");
  EXPECT_THAT(AllTexts(contents.table), ElementsAre(Texts{"No.", "Time", "Viscosity", "Temp"},
                                                    Texts{"1", "0", "5", ""}, Texts{"1", "1", "6", "7"}));
}

TEST(DataFile, ATitleRowInTheMiddleBringsItsSeparator) {
  const auto contents = ParseDataFile("No.,Time,a\r\n1,0,5\r\nNo.;Time;b\r\n2;0;1,5\r\n");
  EXPECT_EQ(contents.separator, ';');
  EXPECT_THAT(AllTexts(contents.table),
              ElementsAre(Texts{"No.", "Time", "b"}, Texts{"1", "0", "5"}, Texts{"2", "0", "1,5"}));
}

TEST(DataFile, OfTwoTitleRowsTheShorterLeavesTheOtherTitles) {
  EXPECT_THAT(Titles(ParseDataFile("No.,Time,a,b\r\nNo.,t\r\n")), ElementsAre("No.", "t", "a", "b"));
}

TEST(DataFile, TitlesMayBeEmpty) {
  EXPECT_THAT(Titles(ParseDataFile("No.,,a,\r\n")), ElementsAre("No.", "", "a", ""));
}

TEST(DataFile, ATitleRowMayHaveOneColumn) {
  const auto contents = ParseDataFile("No.\r\n1\r\n2\r\n");
  EXPECT_THAT(AllTexts(contents.table), ElementsAre(Texts{"No.", "Time"}, Texts{"1", ""}, Texts{"2", ""}));
}

TEST(DataFile, ALineThatMerelyBeginsLikeATitleRowIsAReading) {
  EXPECT_THAT(Readings(ParseDataFile("No.1,0\r\n No.,1\r\nno.,2\r\n")),
              ElementsAre(Texts{"No.1", "0"}, Texts{" No.", "1"}, Texts{"no.", "2"}));
}

TEST(DataFile, ATempLineIsNotAReading) {
  const auto contents = ParseDataFile("No.,Time\r\nTemp,25\r\n1,0\r\nTemp\r\nTemperature,1,2,3\r\n");
  EXPECT_THAT(AllTexts(contents.table), ElementsAre(Texts{"No.", "Time"}, Texts{"1", "0"}));
}

TEST(DataFile, KeyLinesMayStandAnywhere) {
  const auto contents =
      ParseDataFile("Date,d\r\nAxis,2,3\r\nInfo,t\r\nNo.,Time\r\n1,0\r\nInfo,No.1,Oil\r\n1,1\r\n");
  EXPECT_THAT(Readings(contents), ElementsAre(Texts{"1", "0"}, Texts{"1", "1"}));
  EXPECT_EQ(contents.date, "d");
  EXPECT_EQ(contents.axis.ViscoColumn, 2);
  EXPECT_EQ(contents.axis.TempColumn, 3);
  EXPECT_EQ(contents.runs.TextMatrix(1, 1), "Oil");
}

TEST(DataFile, KeysAreTheFirstFourCharactersWhateverFollows) {
  const auto contents = ParseDataFile("No.,Time\r\nDates,d\r\nAxis\r\nInfo\r\n");
  EXPECT_EQ(contents.date, ",d");
  EXPECT_EQ(contents.axis.TempColumn, std::nullopt);
  EXPECT_THAT(Readings(contents), IsEmpty());
}

TEST(DataFile, TheOneCharacterBehindAKeyIsLeftOutWhole) {
  const auto contents = ParseDataFile("No.,Time\r\nDate\xC3\xA4x\r\nMemo\xE2\x82\xACy\r\n");
  EXPECT_EQ(contents.date, "x");
  EXPECT_EQ(contents.remarks, "y");
}

TEST(DataFile, KeysAreReadAsTheyAreWritten) {
  EXPECT_THAT(Readings(ParseDataFile("No.,Time\r\ndate,d\r\nMEMO,r\r\n Axis,2\r\n")), SizeIs(3));
}

TEST(DataFile, TheRestOfADateLineIsTheDate) {
  EXPECT_EQ(ParseDataFile("No.,Time\r\nDate,2002/03/20 12:00:00\r\n").date, "2002/03/20 12:00:00");
  EXPECT_EQ(ParseDataFile("No.,Time\r\nDate,a,b;c\r\n").date, "a,b;c");
  EXPECT_EQ(ParseDataFile("No.,Time\r\nDate\r\n").date, "");
}

TEST(DataFile, TheLastAxisLineCounts) {
  const AxisValues axis = ParseDataFile("Axis,1,2,3\r\nAxis,2, 4 ,,x,7\r\n").axis;
  EXPECT_EQ(axis.ViscoColumn, 2);
  EXPECT_EQ(axis.TempColumn, 4);
  EXPECT_EQ(axis.TimeMin, 0) << "what is no number counts as 0";
  EXPECT_EQ(axis.TimeMax, 0);
  EXPECT_EQ(axis.ViscoMin, 7);
  EXPECT_EQ(axis.ViscoMax, std::nullopt);
}

TEST(DataFile, AnAxisLineTellsColumnsRangesAndMenuItemsInThisOrder) {
  const AxisValues axis = ParseDataFile("Axis,1,2,3,4,5,6,7,8,9,10,a,b,c,d,e\r\n").axis;
  const std::optional<double> numbers[] = {axis.ViscoColumn, axis.TempColumn, axis.TimeMin, axis.TimeMax,
                                           axis.ViscoMin,    axis.ViscoMax,   axis.TempMin, axis.TempMax,
                                           axis.ViscoLogMin, axis.ViscoLogMax};
  EXPECT_THAT(numbers, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
  EXPECT_EQ(axis.TimeS, "a");
  EXPECT_EQ(axis.mLog, "b");
  EXPECT_EQ(axis.LW, "c");
  EXPECT_EQ(axis.MK, "d");
}

TEST(DataFile, EverySeparatorOfTheRemarksIsABlank) {
  EXPECT_EQ(ParseDataFile("No.,Time\r\nMemo,Remarks:,,,,,,,,,,\r\n").remarks, "Remarks:          ");
  EXPECT_EQ(ParseDataFile("No.;Time\r\nMemo;Oil;3,5\r\n").remarks, "Oil 3,5");
  EXPECT_EQ(ParseDataFile("No.,Time\r\nMemo,a b\r\n").remarks, "a b");
  EXPECT_EQ(ParseDataFile("No.,Time\r\nMemo\r\n").remarks, "");
}

TEST(DataFile, EveryLineBehindTheMemoLineIsAMemoLineWhateverItBeginsWith) {
  const Texts lines = {"",         "No.;Time;x", "No.,Time,x", "1,0,5",      "Info,No.9,x",
                       "Axis,5,5", "Date,no",    "Memo,no",    "Temp,1",     "  blanks  ",
                       "\t",       "",           ";;;",        "\xC2\xB0 C", ""};
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    std::string bytes = "No.,Time\r\nDate,yes\r\nMemo,yes" + end;
    for (const std::string& line : lines) bytes += line + end;
    const auto contents = ParseDataFile(bytes);
    EXPECT_EQ(contents.List2, lines);
    EXPECT_EQ(contents.remarks, "yes");
    EXPECT_EQ(contents.date, "yes");
    EXPECT_EQ(contents.separator, ',');
    EXPECT_EQ(contents.run_count, 0);
    EXPECT_EQ(contents.axis.ViscoColumn, std::nullopt);
    EXPECT_THAT(AllTexts(contents.table), ElementsAre(Texts{"No.", "Time"}));
  }
}

TEST(DataFile, ALineOfFourThousandSeparatorsIsAReadingOfEmptyCells) {
  const auto contents = ParseDataFile("No.,Time\r\n" + std::string(4000, ',') + "\r\n1,0\r\n");
  ASSERT_EQ(contents.table.Cols(), 4001);
  EXPECT_EQ(contents.table.TextMatrix(0, 4000), "Data3999");
  EXPECT_THAT(Readings(contents)[0], testing::Each(""));
  EXPECT_EQ(contents.table.TextMatrix(2, 1), "0");
}

TEST(DataFile, OfAHundredThousandSeparatorsThePossibleColumnsAreRead) {
  for (const std::string start : {"", "No.,Time\r\n1", "No."}) {
    const auto contents = ParseDataFile(start + std::string(100'000, ',') + "x\r\n7,8\r\n");
    EXPECT_EQ(contents.table.Cols(), 32767);
    EXPECT_EQ(contents.table.TextMatrix(contents.table.EntryRow() - 1, 1), "8");
    EXPECT_EQ(contents.run_count, 7);
    std::string line;
    contents.table.AppendLine(1, ',', line);
    EXPECT_EQ(std::ranges::count(line, ','), 32766) << "and no more of them are kept";
    EXPECT_EQ(line.back(), ',');
  }
}

TEST(DataFile, ALineOfAMillionCharactersIsOneCell) {
  const std::string cell(1'000'000, 'x');
  const auto contents = ParseDataFile("No.,Time\r\n1," + cell + "\r\n");
  EXPECT_EQ(contents.table.TextMatrix(1, 1), cell);
}

TEST(NewTemplate, HasTheTitlesOfTheViscosityView) {
  EXPECT_EQ(NewTemplate(true, 6), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
}

TEST(NewTemplate, HasNumberedTitlesWithoutTheViscosityView) {
  EXPECT_EQ(NewTemplate(false, 6), "No.,Time,Data 1,Data 2,Data 3,Data 4\r\n");
}

TEST(NewTemplate, FieldsFromTheSeventhOnAreNumberedWithoutABlank) {
  EXPECT_EQ(NewTemplate(true, 7), "No.,Time,Viscosity,Unit1,Temp,Unit2,Data5\r\n");
  EXPECT_EQ(NewTemplate(true, 8), "No.,Time,Viscosity,Unit1,Temp,Unit2,Data5,Data6\r\n");
  EXPECT_EQ(NewTemplate(false, 8), "No.,Time,Data 1,Data 2,Data 3,Data 4,Data5,Data6\r\n");
}

TEST(NewTemplate, HasAtLeastSixTitles) {
  for (const int count : {5, 1, 0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(NewTemplate(true, count), NewTemplate(true, 6)) << count;
    EXPECT_EQ(NewTemplate(false, count), NewTemplate(false, 6)) << count;
  }
}

TEST(NewTemplate, HasAsManyTitlesAsThereAreColumnsAtMost) {
  for (const int count : {32767, 32768, std::numeric_limits<int>::max()}) {
    const auto contents = ParseDataFile(NewTemplate(true, count));
    EXPECT_EQ(contents.table.Cols(), 32767) << count;
    EXPECT_EQ(contents.table.TextMatrix(0, 32766), "Data32765") << count;
  }
}

TEST(NewTemplate, ReadsAsADocumentWithoutReadings) {
  const auto contents = ParseDataFile(NewTemplate(false, 8));
  EXPECT_THAT(AllTexts(contents.table),
              ElementsAre(Texts{"No.", "Time", "Data 1", "Data 2", "Data 3", "Data 4", "Data5", "Data6"}));
  EXPECT_EQ(contents.separator, ',');
}

}  // namespace
}  // namespace quenlor::data
