// SPDX-License-Identifier: MIT
// The values around the graph, edited by hand: range ends, file name, remarks and sample names.

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/change_editor.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using testing::HasSubstr;
namespace setting = data::setting;

class ChangeWindowTest : public WindowTest {
 protected:
  bool Ticked(const char* box) { return Find<QAbstractButton>(box)->isChecked(); }
  const data::AxisRanges& Ranges() { return window->Document().Ranges(); }

  void EditByDoubleClick(const char* caption, const char* typed) {
    EXPECT_TRUE(Edit([&] { DoubleClick(caption); }, Enter(typed))) << caption;
  }
  void EditByMenu(const char* item, const char* typed) {
    EXPECT_TRUE(Edit([&] { Pick("mScale", item); }, Enter(typed))) << item;
  }
};

TEST_F(ChangeWindowTest, DoubleClickOnARangeEndOpensItsEditorWithItsTextSelected) {
  Open();
  Tick("Option1[1]");
  ASSERT_TRUE(WaitFor([&] { return Shown("Label5[5]"); }));
  const std::array<Editor, 6> expected = {{{"Time mini", "0", "0"},
                                           {"Time max", "3", "3"},
                                           {"Visco mini", "0", "0"},
                                           {"Visco max", "100", "100"},
                                           {"Temp mini", "0", "0"},
                                           {"Temp max", "100", "100"}}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string caption = "Label5[" + std::to_string(i) + "]";
    EXPECT_EQ(Edit([&] { DoubleClick(caption.c_str()); }, Cancel("")), expected[i]);
  }
}

TEST_F(ChangeWindowTest, ScaleMenuOpensTheSameEditorsAlsoForLabelsThatAreHidden) {
  Open();
  const std::array<Editor, 6> expected = {{{"Time mini", "0", "0"},
                                           {"Time max", "3", "3"},
                                           {"Visco mini", "0", "0"},
                                           {"Visco max", "100", "100"},
                                           {"Temp mini", "0", "0"},
                                           {"Temp max", "100", "100"}}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string item = "Range[" + std::to_string(i) + "]";
    EXPECT_EQ(Edit([&] { Pick("mScale", item.c_str()); }, Cancel("")), expected[i]);
    EXPECT_FALSE(Find<QAction>(item.c_str())->isChecked());
  }
}

TEST_F(ChangeWindowTest, EditorShowsItsButtonsAndItsTextOnly) {
  Open();
  EXPECT_TRUE(Edit([&] { DoubleClick("Label5[1]"); },
                   [](QDialog& form) {
                     const auto caption = [&form](const char* button) {
                       return form.findChild<QPushButton*>(button)->text().remove('&').toStdString();
                     };
                     EXPECT_EQ(caption("Command1"), "Enter");
                     EXPECT_EQ(caption("Command2"), "Cancel");
                     EXPECT_TRUE(form.isModal());
                     form.reject();
                   }));
}

TEST_F(ChangeWindowTest, SingleAndRightClicksOpenNothing) {
  Open();
  EXPECT_FALSE(Edit([&] { QTest::mouseClick(Find<graph::Caption>("Label5[1]"), Qt::LeftButton); }, Cancel(""))
                   .has_value());
  EXPECT_FALSE(
      Edit([&] { QTest::mouseDClick(Find<graph::Caption>("Label5[1]"), Qt::RightButton); }, Cancel(""))
          .has_value());
}

TEST_F(ChangeWindowTest, TimesAreTypedInTheUnitThatIsShownAndKeptInSeconds) {
  Open();
  EditByDoubleClick("Label5[1]", "2");
  EXPECT_EQ(Ranges().TimeMax, 120);
  EXPECT_TRUE(Becomes("Label5[1]", "2"));
  Pick("mTime", "TimeS[0]");
  ASSERT_TRUE(Becomes("Label5[1]", "120"));
  EditByDoubleClick("Label5[1]", "90");
  EXPECT_EQ(Ranges().TimeMax, 90);
  Pick("mTime", "TimeS[2]");
  ASSERT_TRUE(Becomes("Label5[1]", "0.025"));
  EditByDoubleClick("Label5[1]", "2");
  EXPECT_EQ(Ranges().TimeMax, 7200);
}

TEST_F(ChangeWindowTest, CommaIsReadAsPoint) {
  Open();
  EditByDoubleClick("Label5[2]", "1,5");
  EXPECT_EQ(Ranges().ViscoMin, 1.5);
  EXPECT_TRUE(Becomes("Label5[2]", "1.5"));
  EditByDoubleClick("Label5[2]", "1.5");
  EXPECT_EQ(Ranges().ViscoMin, 1.5);
}

TEST_F(ChangeWindowTest, AcceptedLimitUnticksTheBoxOfItsAxisAloneAndRescalesTheCurves) {
  struct Entry {
    const char* item;
    const char* box;
  };
  for (const Entry& entry :
       {Entry{"Range[0]", "Check2"}, Entry{"Range[1]", "Check2"}, Entry{"Range[2]", "Check3"},
        Entry{"Range[3]", "Check3"}, Entry{"Range[4]", "Check4"}, Entry{"Range[5]", "Check4"}}) {
    Open();
    Tick("Option1[1]");
    Run({"10 mPa.s,20 C", "60 mPa.s,70 C"});
    ASSERT_TRUE(Becomes("Label10[1]", "No.1\n60"));
    const QImage before = Picture();
    EditByMenu(entry.item, std::string(entry.item) < "Range[2]" ? "1" : "50");
    EXPECT_TRUE(PictureChanges(before)) << entry.item;
    for (const char* box : {"Check2", "Check3", "Check4"})
      EXPECT_EQ(Ticked(box), std::string(box) != entry.box) << entry.item << " " << box;
    EXPECT_EQ(Find<QWidget>("Option2[0]")->isEnabled(), std::string(entry.box) != "Check3") << entry.item;
    EXPECT_EQ(Find<QWidget>("Option2[1]")->isEnabled(), std::string(entry.box) != "Check3") << entry.item;
    window.reset();
  }
}

TEST_F(ChangeWindowTest, TickingTheBoxAfterATypedLimitScalesByTheDataAgain) {
  Open();
  EditByDoubleClick("Label5[3]", "7");
  ASSERT_TRUE(Becomes("Label5[3]", "7"));
  Tick("Check3");
  EXPECT_TRUE(Becomes("Label5[3]", "100"));
}

TEST_F(ChangeWindowTest, ReadingsOutsideATypedRangeLeaveItAlone) {
  Open();
  EditByDoubleClick("Label5[3]", "7");
  Click("Command1");
  Reading("500");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n500"));
  EXPECT_EQ(Text("Label5[3]"), "7");
}

TEST_F(ChangeWindowTest, LimitsThatWouldInvertAnAxisAreDroppedAndTheEditorCloses) {
  Open();
  Tick("Option1[1]");
  ASSERT_TRUE(WaitFor([&] { return Shown("Label5[5]"); }));
  const QImage before = Picture();
  const data::AxisRanges ranges = Ranges();
  struct Entry {
    const char* caption;
    const char* typed;
  };
  for (const Entry& entry :
       {Entry{"Label5[0]", "3"}, Entry{"Label5[0]", "5"}, Entry{"Label5[1]", "0"}, Entry{"Label5[1]", "-1"},
        Entry{"Label5[2]", "100"}, Entry{"Label5[2]", "1e308"}, Entry{"Label5[3]", "0"},
        Entry{"Label5[3]", "abc"}, Entry{"Label5[4]", "100.5"}, Entry{"Label5[5]", ""}}) {
    EditByDoubleClick(entry.caption, entry.typed);
  }
  EXPECT_TRUE(PictureStays(before));
  EXPECT_EQ(Ranges().TimeMin, ranges.TimeMin);
  EXPECT_EQ(Ranges().TimeMax, ranges.TimeMax);
  EXPECT_EQ(Ranges().ViscoMin, ranges.ViscoMin);
  EXPECT_EQ(Ranges().ViscoMax, ranges.ViscoMax);
  EXPECT_EQ(Ranges().TempMin, ranges.TempMin);
  EXPECT_EQ(Ranges().TempMax, ranges.TempMax);
  for (const char* box : {"Check2", "Check3", "Check4"}) EXPECT_TRUE(Ticked(box)) << box;
}

TEST_F(ChangeWindowTest, LimitsOfTheLogAxisBecomeDecades) {
  Open();
  Run({"10", "50"});
  Pick("mAxis", "mLog[1]");
  ASSERT_TRUE(Becomes("Label5[2]", "10"));
  EditByDoubleClick("Label5[3]", "12000");
  EXPECT_TRUE(Becomes("Label5[3]", "10000"));
  EXPECT_EQ(Ranges().ViscoLogMax, 4);
  EXPECT_FALSE(Ticked("Check3"));
  EditByDoubleClick("Label5[2]", "0.01");
  EXPECT_TRUE(Becomes("Label5[2]", "0.01"));
  EXPECT_EQ(Ranges().ViscoLogMin, -2);
}

TEST_F(ChangeWindowTest, OnTheLogAxisNothingBelowZeroEndsItAndNoEndMeetsTheOther) {
  Open();
  Run({"10", "50"});
  Pick("mAxis", "mLog[1]");
  ASSERT_TRUE(Becomes("Label5[2]", "10"));
  ASSERT_EQ(Text("Label5[3]"), "100");
  EditByDoubleClick("Label5[3]", "-5");
  EditByDoubleClick("Label5[3]", "11");
  EXPECT_EQ(Ranges().ViscoLogMax, 2);
  EXPECT_TRUE(Ticked("Check3"));
  EditByDoubleClick("Label5[2]", "-5");
  EXPECT_EQ(Ranges().ViscoLogMin, 0) << "what has no logarithm counts as one";
  EXPECT_TRUE(Becomes("Label5[2]", "1"));
}

TEST_F(ChangeWindowTest, HugeTypedLimitsLeaveTheWindowWorking) {
  Open();
  Run({"10 mPa.s,20 C", "50 mPa.s,30 C"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n50"));
  for (const char* item : {"Range[1]", "Range[3]", "Range[5]"}) EditByMenu(item, "1e308");
  for (const char* item : {"Range[0]", "Range[2]", "Range[4]"}) EditByMenu(item, "-1e308");
  for (const char* kind : {"Option1[1]", "Option1[2]", "Option1[0]"}) {
    Tick(kind);
    Find<QWidget>("Picture1")->grab();
    Picture();
  }
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  EXPECT_TRUE(Becomes("Label5[1]", "3"));
  EXPECT_TRUE(Becomes("Label5[3]", "80"));
}

TEST_F(ChangeWindowTest, CancelAndEscapeChangeNothing) {
  Open();
  Run({"10 mPa.s,20 C"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n10"));
  const QImage before = Find<QWidget>("Picture1")->grab().toImage();
  const QImage picture = Picture();
  for (const char* caption : {"Label5[1]", "Label5[3]", "Label6[4]", "Label6[6]", "Label10[1]"}) {
    EXPECT_TRUE(Edit([&] { DoubleClick(caption); }, Cancel("2"))) << caption;
    EXPECT_TRUE(Edit([&] { DoubleClick(caption); },
                     [](QDialog& form) {
                       Type(form, "2");
                       QTest::keyClick(&form, Qt::Key_Escape);
                     }))
        << caption;
  }
  EXPECT_TRUE(PictureStays(picture));
  EXPECT_EQ(Find<QWidget>("Picture1")->grab().toImage(), before);
  for (const char* box : {"Check2", "Check3", "Check4"}) EXPECT_TRUE(Ticked(box)) << box;
  EXPECT_EQ(window->Document().FileName(), "New.csv");
}

TEST_F(ChangeWindowTest, ReturnKeyEntersTheText) {
  Open();
  EXPECT_TRUE(Edit([&] { DoubleClick("Label5[1]"); },
                   [](QDialog& form) {
                     Type(form, "4");
                     QTest::keyClick(form.findChild<QLineEdit*>("Text1"), Qt::Key_Return);
                   }));
  EXPECT_EQ(Ranges().TimeMax, 240);
}

TEST_F(ChangeWindowTest, ReadingsArriveWhileTheEditorWaits) {
  Open();
  Click("Command1");
  Reading("1");
  EXPECT_TRUE(Edit([&] { DoubleClick("Label5[1]"); },
                   [this](QDialog& form) {
                     Reading("2");
                     EXPECT_TRUE(Becomes("Label10[1]", "No.1\n2"));
                     Enter("9")(form);
                   }));
  EXPECT_EQ(Ranges().TimeMax, 540);
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n1|00:00:01|2|||\n");
}

TEST_F(ChangeWindowTest, TypedRangesAreSavedWithTheDocument) {
  Open();
  EditByDoubleClick("Label5[1]", "2");
  EditByDoubleClick("Label5[3]", "50");
  EditByMenu("Range[4]", "20");
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mSave");
  EXPECT_THAT(files.Content("/data/a.csv"), HasSubstr("Axis,2,4,0,120,0,50,20,100,"));
}

TEST_F(ChangeWindowTest, FileNameIsEditedWithBlanksForWhatNoDiskTakesAndSaveProposesIt) {
  Open();
  EXPECT_EQ(Edit([&] { DoubleClick("Label6[4]"); }, Enter("a/b")),
            (Editor{"File Name", "New.csv", "New.csv"}));
  EXPECT_TRUE(Becomes("Label6[4]", "a b"));
  EditByDoubleClick("Label6[4]", "\\/:;*?<>\"|x.csv");
  EXPECT_TRUE(Becomes("Label6[4]", "          x.csv"));
  EditByDoubleClick("Label6[4]", "oil 7.csv");
  dialogs.Path("/data/other.csv");
  Pick("mFile", "mSave");
  ASSERT_EQ(dialogs.Names().size(), 1u);
  EXPECT_EQ(dialogs.Names()[0], "oil 7.csv");
  EXPECT_TRUE(Becomes("Label6[4]", "other.csv"));
}

TEST_F(ChangeWindowTest, NoFileNameIsTheWordsFileName) {
  Open();
  for (const char* nothing : {"", " "}) {
    EditByDoubleClick("Label6[4]", "x");
    ASSERT_TRUE(Becomes("Label6[4]", "x"));
    EditByDoubleClick("Label6[4]", nothing);
    EXPECT_TRUE(Becomes("Label6[4]", "File Name"));
  }
}

TEST_F(ChangeWindowTest, RemarksAreTakenAsTypedAndComeBackFromTheFile) {
  Open();
  EXPECT_EQ(Edit([&] { DoubleClick("Label6[6]"); }, Enter("20 rpm; a/b <c>")),
            (Editor{"Remarks", "Remarks:          ", "Remarks:          "}));
  EXPECT_TRUE(Becomes("Label6[6]", "20 rpm; a/b <c>"));
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mSave");
  EXPECT_THAT(files.Content("/data/a.csv"), HasSubstr("Memo,20,rpm;,a/b,<c>"));
  EditByDoubleClick("Label6[6]", "");
  ASSERT_TRUE(Becomes("Label6[6]", "Remarks:          "));
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mOpen");
  EXPECT_TRUE(Becomes("Label6[6]", "20 rpm; a/b <c>"));
}

TEST_F(ChangeWindowTest, NoRemarksAreTheWordAndTenBlanks) {
  Open();
  for (const char* nothing : {"", " "}) {
    EditByDoubleClick("Label6[6]", "x");
    ASSERT_TRUE(Becomes("Label6[6]", "x"));
    EditByDoubleClick("Label6[6]", nothing);
    EXPECT_TRUE(Becomes("Label6[6]", "Remarks:          "));
  }
}

TEST_F(ChangeWindowTest, TheOtherCaptionsAroundThePlotOpenNothing) {
  Open();
  Tick("Option1[1]");
  Run({"1"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n1"));
  for (const char* caption : {"Label6[0]", "Label6[1]", "Label6[2]", "Label6[3]", "Label6[5]", "Label7[3]",
                              "Label8[5]", "Label9[5]", "Label10[0]"}) {
    EXPECT_TRUE(Shown(caption)) << caption;
    EXPECT_FALSE(Edit([&] { DoubleClick(caption); }, Cancel(""))) << caption;
  }
}

TEST_F(ChangeWindowTest, SampleNameIsEditedInTheLegend) {
  Open();
  Run({"1.5", "2.5"});
  Run({"7"});
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n7"));
  EXPECT_EQ(Edit([&] { DoubleClick("Label10[1]"); }, Enter("Glycerol")),
            (Editor{"Sample Name", "No.1", "No.1"}));
  EXPECT_TRUE(Becomes("Label10[1]", "Glycerol\n2.5"));
  EXPECT_EQ(Text("Label10[2]"), "No.2\n7");
  EXPECT_EQ(window->Document().Grid4().TextMatrix(1, 1), "Glycerol");
  dialogs.Path("/data/a.csv");
  Pick("mFile", "mSave");
  EXPECT_THAT(files.Content("/data/a.csv"), HasSubstr("Info,No.1,Glycerol,"));
}

TEST_F(ChangeWindowTest, SampleNameCanBeEditedWhileItsRunIsMeasured) {
  Open();
  Click("Command1");
  Reading("1.5");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n1.5"));
  EditByDoubleClick("Label10[1]", "Oil");
  EXPECT_TRUE(Becomes("Label10[1]", "Oil\n1.5"));
  Reading("2.5");
  EXPECT_TRUE(Becomes("Label10[1]", "Oil\n2.5"));
  EXPECT_TRUE(Running());
}

}  // namespace
}  // namespace quenlor::app
