// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/document.h"
#include "data/text_number.h"
#include "tests/data/document_builder.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kFile =
    "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n"
    "1,00:00:00,10,P,20,C\r\n"
    "2,00:00:00,11,P,21,C\r\n"
    "Axis,4,2,1,2,3,4,5,6,-7,8,0,1,1,3\r\n"
    "Date,2001/01/01 00:00:00\r\n"
    "Memo,Oil,new\r\n"
    "first memo line\r\n";

struct DocumentLoad : testing::Test {
  Laboratory lab;
  Document& document = lab.document;

  // The columns shown as viscosity and as temperature after a file of that title row was read.
  std::pair<int, int> ColumnsAfter(const std::string& titles) {
    lab.Open(titles + "\r\n");
    return {document.ViscoColumn(), document.TempColumn()};
  }

  void ReadAxis(std::string_view fields) {
    lab.Open("No.,Time,Viscosity,Unit1,Temp,Unit2\r\nAxis," + std::string(fields) + "\r\n");
  }

  Texts Ranges() const {
    const AxisRanges& ranges = document.Ranges();
    return {GeneralText(ranges.TimeMin),        GeneralText(ranges.TimeMax),
            GeneralText(ranges.ViscoMin),       GeneralText(ranges.ViscoMax),
            GeneralText(ranges.TempMin),        GeneralText(ranges.TempMax),
            std::to_string(ranges.ViscoLogMin), std::to_string(ranges.ViscoLogMax)};
  }
};

TEST_F(DocumentLoad, AFileBecomesTheDocument) {
  lab.Open(std::string(kFile));
  EXPECT_THAT(lab.Row(0), ElementsAre("No.", "Time", "Viscosity", "Unit1", "Temp", "Unit2"));
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "10", "P", "20", "C"));
  EXPECT_THAT(lab.Row(2), ElementsAre("2", "00:00:00", "11", "P", "21", "C"));
  EXPECT_EQ(document.RunCount(), 2);
  EXPECT_TRUE(document.MultiRun());
  EXPECT_EQ(document.ViscoColumn(), 4);
  EXPECT_EQ(document.TempColumn(), 2);
  EXPECT_THAT(Ranges(), ElementsAre("1", "2", "3", "4", "5", "6", "-7", "8"));
  EXPECT_EQ(document.FileName(), "file.csv");
  EXPECT_EQ(document.Date(), "2001/01/01 00:00:00");
  EXPECT_EQ(document.Remarks(), "Oil new");
  EXPECT_THAT(document.List2(), ElementsAre("first memo line"));
}

TEST_F(DocumentLoad, NothingIsUnsavedAndNoRunIsBegun) {
  lab.Append({"1"}, 0);
  ASSERT_TRUE(document.DataChanged());
  lab.Open(std::string(kFile));
  EXPECT_FALSE(document.DataChanged());
  EXPECT_EQ(document.StartTime(), 0);
}

TEST_F(DocumentLoad, TheNextReadingBeginsANewRun) {
  lab.Append({"1"}, 0);
  lab.Open(std::string(kFile));
  lab.Append({"12"}, 100);
  EXPECT_THAT(lab.Row(3), ElementsAre("3", "00:00:00", "12", "", "", ""));
}

TEST_F(DocumentLoad, NothingOfTheFormerDocumentIsLeft) {
  lab.AppendRun({"1", "2", "3", "4", "5", "6"});
  lab.AppendRun();
  lab.Open(std::string(kFile));
  lab.Open("No.,Time,a,b\r\n");
  EXPECT_THAT(lab.Row(0), ElementsAre("No.", "Time", "a", "b"));
  EXPECT_EQ(document.Grid1().Rows(), 2);
  EXPECT_EQ(document.Grid4().Rows(), 1);
  EXPECT_EQ(document.RunCount(), 0);
  EXPECT_FALSE(document.MultiRun());
  EXPECT_THAT(document.List2(), IsEmpty());
}

TEST_F(DocumentLoad, ASingleRunIsNotSeveral) {
  lab.Open("No.,Time,a\r\n1,0,5\r\n");
  EXPECT_EQ(document.RunCount(), 1);
  EXPECT_FALSE(document.MultiRun());
}

TEST_F(DocumentLoad, TheFilesDateStandsInWhereTheFileHasNone) {
  lab.Open("No.,Time,a\r\n");
  EXPECT_EQ(document.Date(), "2002/03/20 12:00:00");
}

TEST_F(DocumentLoad, TheRemarksAreEmptyWhereTheFileHasNone) {
  document.SetRemarks("Oil");
  lab.Open("No.,Time,a\r\n");
  EXPECT_EQ(document.Remarks(), "Remarks:          ");
}

TEST_F(DocumentLoad, ListenersAreToldOnceAndAtTheEnd) {
  struct Looking : WritingListener {
    explicit Looking(Document& seen) : document(seen) {}
    void DocumentReplaced() override {
      heard.push_back("replaced by " + document.FileName() + ", " + document.Remarks());
    }
    Document& document;
  } listener(document);
  document.AddListener(listener);
  lab.Open(std::string(kFile));
  EXPECT_THAT(listener.heard, ElementsAre("replaced by file.csv, Oil new"));
}

TEST_F(DocumentLoad, TheSeparatorIsTheFiles) {
  lab.Open("No.;Time;a\r\n");
  EXPECT_EQ(document.FieldSeparator(), ';');
  lab.Open("No.,Time,a\r\n");
  EXPECT_EQ(document.FieldSeparator(), ',');
}

TEST_F(DocumentLoad, WithTheDecimalCommaTheSeparatorIsASemicolonWhateverTheFiles) {
  lab.settings.Set(setting::kDP, 1);
  lab.Open("No.,Time,a,b\r\n1,00:00:00,1.5,2.5\r\n");
  EXPECT_EQ(document.FieldSeparator(), ';');
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "1.5", "2.5"));
  EXPECT_THAT(lab.Bytes(), testing::StartsWith("No.;Time;a;b\r\n1;00:00:00;1.5;2.5\r\n"));
}

TEST_F(DocumentLoad, ViscosityAndTempAreFoundByTheirTitles) {
  EXPECT_EQ(ColumnsAfter("No.,Time,Viscosity,Unit1,Temp,Unit2"), std::pair(2, 4));
  EXPECT_EQ(ColumnsAfter("No.,Time,Temp,a,b,Viscosity"), std::pair(5, 2));
}

TEST_F(DocumentLoad, ColumnsWithoutTheseTitlesAreTheFirstTwoOfTheData) {
  EXPECT_EQ(ColumnsAfter("No.,Time,Data 1,Data 2,Data 3,Data 4"), std::pair(2, 3));
  EXPECT_EQ(ColumnsAfter("No.,Time,a,b,Viscosity"), std::pair(4, 3));
  EXPECT_EQ(ColumnsAfter("No.,Time,a,b,Temp"), std::pair(2, 4));
  EXPECT_EQ(ColumnsAfter("No.,Time"), std::pair(2, 3));
}

TEST_F(DocumentLoad, OfSeveralColumnsOfOneTitleTheFirstIsShown) {
  EXPECT_EQ(ColumnsAfter("No.,Time,a,Viscosity,Viscosity,Temp,Temp"), std::pair(3, 5));
}

TEST_F(DocumentLoad, TheNumberAndTheTimeAreNeverShownAsData) {
  EXPECT_EQ(ColumnsAfter("No.,Temp,a,b"), std::pair(2, 3));
  EXPECT_EQ(ColumnsAfter("No.,Viscosity,a,b"), std::pair(2, 3));
}

TEST_F(DocumentLoad, ShownColumnsOfTheFormerDocumentAreForgotten) {
  ReadAxis("5,3");
  ASSERT_EQ(document.ViscoColumn(), 5);
  EXPECT_EQ(ColumnsAfter("No.,Time,a,b,c,d"), std::pair(2, 3));
}

TEST_F(DocumentLoad, AxisColumnsThatAreNoDataColumnsAreLeftOut) {
  for (const std::string_view fields :
       {"1,1", "0,0", "-1,-2", "6,6", "40000,99999999999", "x,y", ",", "65538,65540"}) {
    ReadAxis(fields);
    EXPECT_EQ(document.ViscoColumn(), 2) << fields;
    EXPECT_EQ(document.TempColumn(), 4) << fields;
  }
  ReadAxis("x,5");
  EXPECT_EQ(document.ViscoColumn(), 2);
  EXPECT_EQ(document.TempColumn(), 5);
}

TEST_F(DocumentLoad, RangesStayAsTheyAreWhereTheFileHasNoAxis) {
  ReadAxis("2,3,1,2,3,4,5,6,7,8");
  lab.Open("No.,Time,a\r\n");
  EXPECT_THAT(Ranges(), ElementsAre("1", "2", "3", "4", "5", "6", "7", "8"));
}

TEST_F(DocumentLoad, OfAShortAxisWhatIsThereIsRead) {
  ReadAxis("2,3,1,2,3,4,5,6,7,8");
  ReadAxis("2,3,10,20,30");
  EXPECT_THAT(Ranges(), ElementsAre("10", "20", "30", "4", "5", "6", "7", "8"));
}

TEST_F(DocumentLoad, FieldsOfAnAxisThatAreNoNumbersAreZero) {
  ReadAxis("2,3,1,2,3,4,5,6,7,8");
  ReadAxis("2,3,x,,30,-,.,60 s,nan,inf");
  EXPECT_THAT(Ranges(), ElementsAre("0", "0", "30", "0", "0", "60", "0", "0"));
}

TEST_F(DocumentLoad, ExponentsBeyondSixteenBitsAreLeftOut) {
  ReadAxis("2,3,1,2,3,4,5,6,-32768,32767");
  ReadAxis("2,3,1,2,3,4,5,6,-32769,32768");
  EXPECT_THAT(Ranges(), ElementsAre("1", "2", "3", "4", "5", "6", "-32768", "32767"));
  ReadAxis("2,3,1,2,3,4,5,6,-1E300,1E300");
  EXPECT_THAT(Ranges(), ElementsAre("1", "2", "3", "4", "5", "6", "-32768", "32767"));
}

TEST_F(DocumentLoad, AxisNumbersMayHaveADecimalComma) {
  lab.Open("No.;Time;a;b\r\nAxis;2;3;0;1,5;-2,5;3\r\n");
  EXPECT_EQ(document.Ranges().TimeMax, 1.5);
  EXPECT_EQ(document.Ranges().ViscoMin, -2.5);
}

TEST_F(DocumentLoad, ExtraFieldsOfAnAxisAreLeftOut) {
  ReadAxis("2,3,1,2,3,4,5,6,7,8,0,0,1,0,99,98,97");
  EXPECT_THAT(Ranges(), ElementsAre("1", "2", "3", "4", "5", "6", "7", "8"));
}

// The elements 14, 12, 10 and 16 after an Axis line whose fields 11 to 14 are these; "1", "0", "2"
// and "0" before.
Texts SettingsAfter(std::string_view fields) {
  SettingsList settings;
  ApplyAxisSettings(ParseDataFile("Axis,2,3,0,180,0,100,0,100,0,2," + std::string(fields)).axis, settings);
  return {settings[setting::kTimeS], settings[setting::kLog], settings[setting::kLW], settings[setting::kMK]};
}

TEST(AxisSettings, FieldsElevenToFourteenAreTimeScaleViscoAxisLineAndMarker) {
  EXPECT_THAT(SettingsAfter("2,1,1,4"), ElementsAre("2", "1", "1", "4"));
  EXPECT_THAT(SettingsAfter("0,0,2,0"), ElementsAre("0", "0", "2", "0"));
}

TEST(AxisSettings, EveryOtherSettingStaysAsItIs) {
  SettingsList settings;
  ApplyAxisSettings(ParseDataFile("Axis,2,3,0,180,0,100,0,100,0,2,0,1,1,4").axis, settings);
  SettingsList expected;
  for (const auto& [element, text] :
       {std::pair(setting::kTimeS, "0"), {setting::kLog, "1"}, {setting::kLW, "1"}, {setting::kMK, "4"}}) {
    expected.Set(element, text);
  }
  EXPECT_EQ(settings.Text(), expected.Text());
}

TEST(AxisSettings, MissingFieldsLeaveTheirSettingAlone) {
  EXPECT_THAT(SettingsAfter("2"), ElementsAre("2", "0", "2", "0"));
  SettingsList settings;
  ApplyAxisSettings({}, settings);
  EXPECT_EQ(settings.Text(), SettingsList().Text());
}

TEST(AxisSettings, FieldsThatNameNoMenuItemStandInTheSettingsAsTheyAre) {
  EXPECT_THAT(SettingsAfter("3,2,3,5"), ElementsAre("3", "2", "3", "5"));
  EXPECT_THAT(SettingsAfter("-1,-1,0,-1"), ElementsAre("-1", "-1", "0", "-1"));
  EXPECT_THAT(SettingsAfter("x,,-,True"), ElementsAre("x", "", "-", "True"));
  EXPECT_THAT(SettingsAfter("0.5,0.5,1.5,2.5"), ElementsAre("0.5", "0.5", "1.5", "2.5"));
  EXPECT_THAT(SettingsAfter("3.0,2.0,3.0,5.0"), ElementsAre("3.0", "2.0", "3.0", "5.0"));
  EXPECT_THAT(SettingsAfter("-1.0,-1.0,0.0,-1.0"), ElementsAre("-1.0", "-1.0", "0.0", "-1.0"));
}

TEST(AxisSettings, ASettingBecomesTheIndexOfItsItemHoweverTheNumberIsWritten) {
  EXPECT_THAT(SettingsAfter(" 2,01,1.0,4 "), ElementsAre("2", "1", "1", "4"));
}

}  // namespace
}  // namespace quenlor::data
