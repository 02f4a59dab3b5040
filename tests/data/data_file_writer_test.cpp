// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/data/document_builder.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::string_view kTitles = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";

// Two runs, one setting of every kind and two memo lines.
void Fill(Laboratory& lab) {
  lab.Open(std::string(kTitles) + "Axis,2,4,0,12.5,-3,1E+20,0.1,99,-2,3\r\nMemo,x\r\nfirst line\r\n\r\n");
  lab.settings.Set(setting::kTimeS, 2);
  lab.settings.Set(setting::kLog, 1);
  lab.settings.Set(setting::kMK, 4);
  lab.AppendRun({"1234.5", "mPa.s", "25.1", "C"}, 0);
  lab.Append({"1230", "mPa.s", "25.2", "C"}, 5.2);
  lab.AppendRun({"999", "mPa.s"}, 75);
  lab.document.SetSampleName(2, "Oil new");
  lab.document.SetRemarks("Old and  new");
}

TEST(DataFileWriting, LinesComeInTheirOrderWithEveryFieldAsItIsShown) {
  Laboratory lab;
  Fill(lab);
  EXPECT_EQ(lab.Bytes(),
            "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n"
            "1,00:00:00,1234.5,mPa.s,25.1,C\r\n"
            "1,00:00:05,1230,mPa.s,25.2,C\r\n"
            "2,00:00:00,999,mPa.s,,\r\n"
            "Info,Sample No.,Sample Name,Analysis Time,Date,Time\r\n"
            "Info,No.1,No.1,00:00:05,2024/02/29,23:59:35\r\n"
            "Info,No.2,Oil new,00:00:00,2024/03/01,00:00:45\r\n"
            "Axis,2,4,0,12.5,-3,1E+20,0.1,99,-2,3,2,1,2,4\r\n"
            "Date,2024/03/01 00:00:45\r\n"
            "Memo,Old,and,,new\r\n"
            "first line\r\n"
            "\r\n");
}

TEST(DataFileWriting, UnderTheDecimalCommaEveryLineIsDividedBySemicolons) {
  Laboratory lab;
  lab.settings.Set(setting::kDP, 1);
  Fill(lab);
  EXPECT_EQ(lab.Bytes(),
            "No.;Time;Viscosity;Unit1;Temp;Unit2\r\n"
            "1;00:00:00;1234.5;mPa.s;25.1;C\r\n"
            "1;00:00:05;1230;mPa.s;25.2;C\r\n"
            "2;00:00:00;999;mPa.s;;\r\n"
            "Info;Sample No.;Sample Name;Analysis Time;Date;Time\r\n"
            "Info;No.1;No.1;00:00:05;2024/02/29;23:59:35\r\n"
            "Info;No.2;Oil new;00:00:00;2024/03/01;00:00:45\r\n"
            "Axis;2;4;0;12.5;-3;1E+20;0.1;99;-2;3;2;1;2;4\r\n"
            "Date;2024/03/01 00:00:45\r\n"
            "Memo;Old;and;;new\r\n"
            "first line\r\n"
            "\r\n");
}

TEST(DataFileWriting, ADocumentThatWasNeverTouchedIsWrittenToo) {
  const Laboratory lab;
  EXPECT_EQ(lab.Bytes(),
            "No.,Time\r\n"
            "Axis,2,3,0,180,0,100,0,100,0,2,1,0,2,0\r\n"
            "Date,\r\n"
            "Memo,Remarks:,,,,,,,,,,\r\n");
}

TEST(DataFileWriting, ADocumentWithoutRunsHasNoInfoLines) {
  Laboratory lab;
  lab.Open(std::string(kTitles));
  EXPECT_THAT(lab.Bytes(), Not(HasSubstr("Info")));
  lab.AppendRun();
  EXPECT_THAT(lab.Bytes(), HasSubstr("Info"));
}

TEST(DataFileWriting, TheEntryRowIsNeverWritten) {
  Laboratory lab;
  lab.Open(std::string(kTitles));
  EXPECT_THAT(lab.Bytes(), StartsWith(std::string(kTitles) + "Axis"));
  lab.AppendRun({"1", "2", "3", "4"});
  EXPECT_THAT(lab.Bytes(), StartsWith(std::string(kTitles) + "1,00:00:00,1,2,3,4\r\nInfo"));
  lab.document.RemoveRows(1, 1);
  EXPECT_THAT(lab.Bytes(), StartsWith(std::string(kTitles) + "Info"));
}

TEST(DataFileWriting, ADocumentWithSemicolonsReadsBackWithThemWhateverTheCurrentSetting) {
  Laboratory comma;
  comma.settings.Set(setting::kDP, 1);
  comma.Open(std::string(kTitles));
  comma.AppendRun({"1,5", "P", "20,5", "C"});
  const std::string bytes = comma.Bytes();
  ASSERT_THAT(bytes, StartsWith("No.;"));
  for (const int decimal_point : {0, 1}) {
    Laboratory lab;
    lab.settings.Set(setting::kDP, decimal_point);
    lab.Open(bytes);
    EXPECT_EQ(lab.document.FieldSeparator(), ';');
    EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "1,5", "P", "20,5", "C"));
    EXPECT_EQ(lab.Bytes(), bytes);
  }
}

TEST(DataFileWriting, TheSeparatorGivenToTheDocumentDividesItsLines) {
  Laboratory lab;
  lab.Open("No.;Time;a\r\n");
  lab.document.SetFieldSeparator(',');
  EXPECT_THAT(lab.Bytes(), StartsWith("No.,Time,a\r\nAxis,"));
}

TEST(DataFileWriting, BlanksOfTheRemarksAreSeparatorsInTheFileAndComeBackAsBlanks) {
  for (const int decimal_point : {0, 1}) {
    Laboratory lab;
    lab.settings.Set(setting::kDP, decimal_point);
    lab.Open(std::string(kTitles));
    for (const std::string remarks : {"", " ", "Oil", " Oil  5 new ", "Remarks:          ", "\xC2\xB5 Oil"}) {
      lab.document.SetRemarks(remarks);
      const std::string bytes = lab.Bytes();
      EXPECT_THAT(bytes.substr(bytes.find("Memo")), Not(HasSubstr(" ")));
      EXPECT_EQ(ParseDataFile(bytes).remarks, remarks);
    }
  }
}

TEST(DataFileWriting, TheRowsAreThoseOfTheTableAfterEditsAndDeletions) {
  Laboratory lab;
  Fill(lab);
  lab.document.SetCell(3, 5, "F");
  lab.document.SetTitle(2, "Torque");
  lab.document.RemoveRows(1, 2);
  EXPECT_THAT(lab.Bytes(), StartsWith("No.,Time,Torque,Unit1,Temp,Unit2\r\n2,00:00:00,999,mPa.s,,F\r\nInfo"));
}

TEST(DataFileWriting, LimitsComeBackAsTheyWere) {
  Laboratory lab;
  Fill(lab);
  Laboratory other;
  other.Open(lab.Bytes());
  const AxisRanges& ranges = other.document.Ranges();
  EXPECT_EQ(ranges.TimeMin, 0);
  EXPECT_EQ(ranges.TimeMax, 12.5);
  EXPECT_EQ(ranges.ViscoMin, -3);
  EXPECT_EQ(ranges.ViscoMax, 1e20);
  EXPECT_EQ(ranges.TempMin, 0.1);
  EXPECT_EQ(ranges.TempMax, 99);
  EXPECT_EQ(ranges.ViscoLogMin, -2);
  EXPECT_EQ(ranges.ViscoLogMax, 3);
}

TEST(DataFileWriting, TheSettingsOfTheAxisLineComeBack) {
  Laboratory lab;
  Fill(lab);
  SettingsList settings;
  ApplyAxisSettings(ParseDataFile(lab.Bytes()).axis, settings);
  for (const int element : {setting::kTimeS, setting::kLog, setting::kLW, setting::kMK}) {
    EXPECT_EQ(settings[element], lab.settings[element]) << element;
  }
}

TEST(DataFileWriting, ALargeDocumentIsHandedOverInFewPieces) {
  Laboratory lab;
  lab.Open(std::string(kTitles));
  for (int i = 0; i < 100'000; ++i) lab.Append({"1234.5", "mPa.s", "25.1", "C"}, i);
  std::string bytes;
  std::size_t pieces = 0;
  WriteDataFile(lab.document, lab.settings, [&](std::string_view piece) {
    bytes += piece;
    ++pieces;
  });
  ASSERT_GT(bytes.size(), 3u << 20);
  EXPECT_LE(pieces, 1 + (bytes.size() >> 20));
  EXPECT_GE(pieces, 3u) << "the whole text is never held at once";
  EXPECT_EQ(AllTexts(ParseDataFile(bytes).table), AllTexts(lab.document.Grid1()));
}

// Everything that a file may hold, as plain values, and the lines that say so.
struct NaiveFile {
  NaiveTable table;
  std::vector<Texts> info;
  Texts axis;
  std::string date;
  std::string remarks;
  Texts memo;

  std::string Text(char separator, std::string_view line_end) const {
    std::string text;
    const auto line = [&](const std::string& content) { (text += content) += line_end; };
    for (const Texts& row : table.rows) line(Joined(row, separator));
    for (const Texts& row : info) line("Info" + (separator + Joined(row, separator)));
    line("Axis" + (separator + Joined(axis, separator)));
    line("Date" + (separator + date));
    std::string dividing = remarks;
    std::replace(dividing.begin(), dividing.end(), ' ', separator);
    line("Memo" + (separator + dividing));
    for (const std::string& content : memo) line(content);
    return text;
  }
};

NaiveFile RandomFile(Random& random) {
  NaiveFile file;
  Texts titles = {"No.", "Time"};
  for (const std::string& title : RandomTexts(random, Below(random, 7))) titles.push_back(title);
  file.table.rows = {titles};
  const std::size_t runs = Below(random, 5);
  for (std::size_t run = 1; run <= runs; ++run) {
    for (std::size_t n = 1 + Below(random, 6); n > 0; --n) {
      Texts cells = {std::to_string(run)};
      for (const std::string& cell : RandomTexts(random, Below(random, 10))) cells.push_back(cell);
      file.table.AppendRow(cells);
    }
  }
  if (runs > 0) file.info = {{"Sample No.", RandomText(random), RandomText(random), "Date", "Time"}};
  for (std::size_t run = 1; run <= runs; ++run) {
    file.info.push_back({"No." + std::to_string(run)});
    for (const std::string& cell : RandomTexts(random, 4)) file.info.back().push_back(cell);
  }
  file.axis = {"2", "3", "0", "12.5", "-3", "1E+20", "0", "100", "-1", "2", "1", "0", "2", "0"};
  file.date = RandomText(random);
  file.remarks = RandomText(random);
  file.memo = RandomTexts(random, Below(random, 5));
  return file;
}

class RandomDocuments : public testing::TestWithParam<char> {};
INSTANTIATE_TEST_SUITE_P(Separators, RandomDocuments, testing::Values(',', ';'),
                         [](const auto& tested) { return tested.param == ',' ? "Comma" : "Semicolon"; });

TEST_P(RandomDocuments, HoldWhatTheFileSaysAndAreWrittenAsItStands) {
  Random random(4);
  for (int round = 0; round < 500; ++round) {
    SCOPED_TRACE(round);
    const NaiveFile file = RandomFile(random);
    Laboratory lab;
    lab.Open(file.Text(GetParam(), "\n"));
    ASSERT_EQ(AllTexts(lab.document.Grid1()), file.table.rows);
    ASSERT_EQ(lab.document.RunCount(), std::max(0, static_cast<int>(file.info.size()) - 1));
    for (std::size_t row = 0; row < file.info.size(); ++row)
      ASSERT_EQ(lab.Run(static_cast<int>(row)), file.info[row]);
    ASSERT_EQ(lab.document.Date(), file.date);
    ASSERT_EQ(lab.document.Remarks(), file.remarks);
    ASSERT_EQ(lab.document.List2(), file.memo);
    NaiveFile shown = file;
    shown.axis[0] = std::to_string(lab.document.ViscoColumn());
    shown.axis[1] = std::to_string(lab.document.TempColumn());
    ASSERT_EQ(lab.Bytes(), shown.Text(GetParam(), "\r\n"));
  }
}

std::string SavedAgain(const std::string& bytes) {
  Laboratory lab;
  lab.Open(bytes);
  return lab.Bytes();
}

TEST(DataFileEncoding, ALatin1FileStaysOneAsLongAsItsTextsFit) {
  const std::string file = SavedAgain(
      "No.,Time,\xB0"
      "C\r\n1,0,\xFC\r\nMemo,Gr\xFC\xDF"
      "e\r\n");
  EXPECT_THAT(file, testing::StartsWith("No.,Time,\xB0"
                                        "C\r\n1,0,\xFC\r\n"));
  EXPECT_THAT(file, testing::HasSubstr("\r\nMemo,Gr\xFC\xDF"
                                       "e\r\n"));
  EXPECT_EQ(SavedAgain(file), file);

  Laboratory lab;
  lab.Open(file);
  lab.document.SetCell(1, 2, "\xE2\x82\xAC");
  EXPECT_THAT(lab.Bytes(), testing::StartsWith("No.,Time,\xC2\xB0"
                                               "C\r\n1,0,\xE2\x82\xAC\r\n"))
      << "UTF-8";
}

TEST(DataFileEncoding, Latin1ThatWouldReadAsUtf8IsWrittenAsUtf8) {
  Laboratory lab;
  lab.Open(
      "No.,Time,\xB0"
      "C\r\n1,0,x\r\n");
  lab.document.SetCell(1, 2, "\xC3\x83\xC2\xBC");  // two letters whose Latin-1 bytes are one in UTF-8
  EXPECT_EQ(ParseDataFile(lab.Bytes()).table.TextMatrix(1, 2), "\xC3\x83\xC2\xBC");
}

TEST(DataFileEncoding, AByteOrderMarkIsKept) {
  const std::string file = SavedAgain("\xEF\xBB\xBFNo.,Time\r\n1,0\r\n");
  EXPECT_THAT(file, testing::StartsWith("\xEF\xBB\xBFNo.,Time\r\n1,0\r\n"));
  EXPECT_EQ(SavedAgain(file), file);
}

TEST(DataFileEncoding, MemoLinesComeBackByteForByte) {
  const std::string memo = "\xC3\x28\r\n\xFF\xFE,;\r\n\xE2\x82\xAC\r\n";
  EXPECT_THAT(SavedAgain("No.,Time\r\n1,0\r\nMemo,a\r\n" + memo), testing::EndsWith("Memo,a\r\n" + memo));
  EXPECT_THAT(SavedAgain("No.,Time,\xB0\r\n1,0\r\nMemo,\xB0\r\n" + memo),
              testing::EndsWith("Memo,\xB0\r\n" + memo));
  EXPECT_THAT(SavedAgain("No.,Time,\xC2\xB0\r\nMemo,\xC2\xB0\r\n" + memo),
              testing::EndsWith("Memo,\xC2\xB0\r\n" + memo));
}

}  // namespace
}  // namespace quenlor::data
