// SPDX-License-Identifier: MIT
// The Option menu and the two frames beside it, worked with the mouse.

#include <QRadioButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

class OptionWindowTest : public WindowTest {
 protected:
  bool Checked(const std::string& item) { return Find<QAction>(item.c_str())->isChecked(); }
  bool Ticked(const char* box) { return Find<QAbstractButton>(box)->isChecked(); }
  bool Enabled(const char* box) { return Find<QAbstractButton>(box)->isEnabled(); }

  // Three readings whose curves are neither flat nor at an edge.
  void OpenWithReadings() {
    Open();
    const QImage empty = Picture();
    Run({"10 mPa.s,25.0 C", "40 mPa.s,30.0 C", "90 mPa.s,60.0 C"});
    ASSERT_TRUE(PictureChanges(empty));
    ASSERT_TRUE(Becomes("Label10[1]", "No.1\n90"));
  }

  void ForgetSettingsFile() { files.Remove(std::string(kFolder) + "/quenlor.ini"); }
  bool SettingsSaved() { return !File("quenlor.ini").empty(); }
};

TEST_F(OptionWindowTest, ChosenItemIsTheOnlyOneCheckedAndSavedAtOnce) {
  Open();
  struct Choice {
    const char* menu;
    const char* group;
    int items;
    int first;
    int element;
  };
  for (const Choice& choice :
       {Choice{"mLine", "LW", 2, 1, setting::kLW}, Choice{"mMarker", "MK", 5, 0, setting::kMK},
        Choice{"mTime", "TimeS", 3, 0, setting::kTimeS}, Choice{"mAxis", "mLog", 2, 0, setting::kLog},
        Choice{"mPoint", "DP", 2, 0, setting::kDP}}) {
    const int end = choice.first + choice.items;
    const auto name = [&](int item) { return std::string(choice.group) + "[" + std::to_string(item) + "]"; };
    for (int item = choice.first; item < end; ++item) {
      Pick(choice.menu, name(item).c_str());
      EXPECT_EQ(Setting(choice.element), std::to_string(item)) << name(item);
      for (int other = choice.first; other < end; ++other) {
        EXPECT_EQ(Checked(name(other)), other == item) << name(other) << " after " << name(item);
      }
    }
  }
}

TEST_F(OptionWindowTest, ClickingTheCheckedItemKeepsItChecked) {
  Open();
  Pick("mTime", "TimeS[1]");
  EXPECT_TRUE(Checked("TimeS[1]"));
  EXPECT_EQ(Setting(setting::kTimeS), "1");
}

TEST_F(OptionWindowTest, LineWidthChangesTheCurves) {
  OpenWithReadings();
  const QImage wide = Picture();
  Pick("mLine", "LW[1]");
  EXPECT_TRUE(PictureChanges(wide));
  const QImage thin = Picture();
  Pick("mLine", "LW[2]");
  EXPECT_TRUE(PictureChanges(thin));
  EXPECT_EQ(Picture(), wide);
}

TEST_F(OptionWindowTest, EveryMarkerChoiceLooksDifferentWithManyReadings) {
  Open();
  Click("Command1");
  for (int i = 0; i < 40; ++i) Reading(std::to_string(20 + i));
  Click("Command1");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n59"));
  std::vector<QImage> seen{Picture()};
  for (const char* item : {"MK[1]", "MK[2]", "MK[3]", "MK[4]"}) {
    Pick("mMarker", item);
    ASSERT_TRUE(PictureChanges(seen.back())) << item;
    for (std::size_t i = 0; i + 1 < seen.size(); ++i) EXPECT_NE(Picture(), seen[i]) << item << " " << i;
    seen.push_back(Picture());
  }
}

TEST_F(OptionWindowTest, TimeScaleChangesTheTimeLabelsAndNothingElse) {
  OpenWithReadings();
  const QImage before = Picture();
  EXPECT_EQ(Text("Label6[5]"), "(min)");
  EXPECT_EQ(Text("Label5[1]"), "3");
  EXPECT_EQ(Text("Label7[1]"), "0.5");
  Pick("mTime", "TimeS[0]");
  EXPECT_TRUE(Becomes("Label5[1]", "180"));
  EXPECT_EQ(Text("Label7[1]"), "30");
  EXPECT_EQ(Text("Label6[5]"), "(sec)");
  Pick("mTime", "TimeS[2]");
  EXPECT_TRUE(Becomes("Label5[1]", "0.05"));
  EXPECT_EQ(Text("Label6[5]"), "(hour)");
  EXPECT_EQ(window->Document().Ranges().TimeMax, 180) << "seconds, whatever is shown";
  EXPECT_EQ(Picture(), before);
}

TEST_F(OptionWindowTest, LogAxisScalesToDecadesAndLinearBack) {
  OpenWithReadings();
  const QImage linear = Picture();
  Pick("mAxis", "mLog[1]");
  EXPECT_TRUE(Becomes("Label5[2]", "10"));
  EXPECT_EQ(Text("Label5[3]"), "100");
  EXPECT_EQ(Text("Label8[1]"), "20");
  EXPECT_EQ(Text("Label8[5]"), "60");
  EXPECT_TRUE(PictureChanges(linear));
  Pick("mAxis", "mLog[0]");
  EXPECT_TRUE(Becomes("Label5[2]", "0"));
  EXPECT_EQ(Text("Label8[1]"), "10");
  EXPECT_EQ(Picture(), linear);
}

TEST_F(OptionWindowTest, CommaIsShownFromTheNextReadingOnAndLeavesTheGraphAlone) {
  Open();
  Pick("mOption", "mNum");
  Click("Command1");
  Reading("10.5 25.0");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n10.5"));
  const QImage before = Picture();
  Pick("mPoint", "DP[1]");
  EXPECT_EQ(window->Document().FieldSeparator(), ';');
  EXPECT_TRUE(PictureStays(before));
  EXPECT_EQ(Text("Label10[1]"), "No.1\n10.5");
  Reading("11.5 25.0");
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n11,5"));
  EXPECT_TRUE(PictureChanges(before));
  Pick("mPoint", "DP[0]");
  EXPECT_EQ(window->Document().FieldSeparator(), ',') << "as the menu says";
  EXPECT_THAT(Find<QLabel>("Status")->text().toStdString(), testing::HasSubstr("some fields hold \",\""));
}

TEST_F(OptionWindowTest, ViscoDataShowsAnotherColumnOnAxisCurveLegendAndDisplayTable) {
  OpenWithReadings();
  const QImage before = Picture();
  ForgetSettingsFile();
  Pick("mV", "VDT[3]");
  EXPECT_TRUE(SettingsSaved());
  EXPECT_EQ(window->Document().ViscoColumn(), 4);
  EXPECT_TRUE(Becomes("Label6[1]", "Temp"));
  EXPECT_TRUE(Becomes("Label10[1]", "No.1\n60.0"));
  EXPECT_TRUE(PictureChanges(before));
  const auto* display = Find<GridView>("Grid2")->model();
  bool shown = false;
  for (int column = 0; column < display->columnCount(); ++column)
    shown = shown || display->index(2, column).data().toString() == "60.0";
  EXPECT_TRUE(shown);
  Find<QMenu>("mV")->popup(window->mapToGlobal(QPoint(0, 0)));
  EXPECT_TRUE(Checked("VDT[3]"));
  EXPECT_FALSE(Checked("VDT[1]"));
  Find<QMenu>("mV")->close();
}

TEST_F(OptionWindowTest, TempDataShowsAnotherColumnOnTheTemperatureAxis) {
  OpenWithReadings();
  Tick("Option1[1]");
  ASSERT_TRUE(WaitFor([&] { return Shown("Label6[2]"); }));
  EXPECT_EQ(Text("Label6[2]"), "Temp");
  const QImage before = Picture();
  ForgetSettingsFile();
  Pick("mT", "TDT[1]");
  EXPECT_TRUE(SettingsSaved());
  EXPECT_EQ(window->Document().TempColumn(), 2);
  EXPECT_TRUE(Becomes("Label6[2]", "Viscosity"));
  EXPECT_TRUE(PictureChanges(before));
  EXPECT_EQ(Text("Label10[1]"), "No.1\n90") << "the legend tells viscosities";
}

TEST_F(OptionWindowTest, NumberAndViscoAreTurnedRoundByEachClick) {
  Open();
  for (const char* state : {"True", "False", "True"}) {
    Pick("mOption", "mNum");
    EXPECT_EQ(Setting(setting::kNum), state);
    EXPECT_EQ(Checked("mNum"), std::string(state) == "True");
  }
  for (const char* state : {"False", "True", "False"}) {
    Pick("mOption", "mVisco");
    EXPECT_EQ(Setting(setting::kVisco), state);
    EXPECT_EQ(Checked("mVisco"), std::string(state) == "True");
  }
}

TEST_F(OptionWindowTest, InitializeChangesNothingAtAll) {
  OpenWithReadings();
  Pick("mMarker", "MK[1]");
  Pick("mAxis", "mLog[1]");
  Tick("Check2");
  ASSERT_TRUE(Becomes("Label5[3]", "100"));
  ASSERT_TRUE(Becomes("Label8[1]", "20"));
  const QImage pane = Find<QWidget>("Picture1")->grab().toImage();
  const QImage picture = Picture();
  const auto paths = files.Paths();
  const std::string settings = File("quenlor.ini");
  const std::string readings = Readings();
  const int writes = files.Calls().replaces;
  Pick("mOption", "mDefault");
  EXPECT_TRUE(PictureStays(picture));
  EXPECT_EQ(Find<QWidget>("Picture1")->grab().toImage(), pane);
  EXPECT_EQ(files.Paths(), paths);
  EXPECT_EQ(files.Calls().replaces, writes) << "not even written again";
  EXPECT_EQ(File("quenlor.ini"), settings);
  EXPECT_EQ(Readings(), readings);
  EXPECT_TRUE(Checked("MK[1]"));
  EXPECT_TRUE(Checked("mLog[1]"));
  EXPECT_FALSE(Ticked("Check2"));
}

TEST_F(OptionWindowTest, FineViscoTimeAndAllThreeBoxesAreOnAtStart) {
  Open();
  for (const char* box : {"Check2", "Check3", "Check4", "Option1[0]", "Option2[1]"}) {
    EXPECT_TRUE(Ticked(box)) << box;
  }
  EXPECT_TRUE(Enabled("Option2[0]"));
}

TEST_F(OptionWindowTest, TimeRangeStaysWhileItsBoxIsOffAndFollowsAgainOnceTicked) {
  Open();
  ForgetSettingsFile();
  Tick("Check2");
  EXPECT_TRUE(SettingsSaved());
  Tick("Check1");  // no requests whose answers would be missed
  Click("Command1");
  Reading("10");
  clock.Advance(200);
  Reading("11");
  Reading("12");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n12"));
  EXPECT_EQ(Text("Label5[1]"), "3");
  const QImage before = Picture();
  Tick("Check2");
  EXPECT_TRUE(Becomes("Label5[1]", "6"));
  EXPECT_TRUE(PictureChanges(before));
}

TEST_F(OptionWindowTest, ViscosityRangeStaysWhileItsBoxIsOffAndFollowsAgainOnceTicked) {
  Open();
  Tick("Check3");
  Click("Command1");
  Reading("500");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n500"));
  EXPECT_EQ(Text("Label5[3]"), "100");
  ForgetSettingsFile();
  Tick("Check3");
  EXPECT_TRUE(SettingsSaved());
  EXPECT_TRUE(Becomes("Label5[2]", "470"));
  EXPECT_EQ(Text("Label5[3]"), "570");
}

TEST_F(OptionWindowTest, TemperatureRangeStaysWhileItsBoxIsOffAndFollowsAgainOnceTicked) {
  Open();
  ForgetSettingsFile();
  Tick("Check4");
  EXPECT_TRUE(SettingsSaved());
  Click("Command1");
  Reading("50 mPa.s,150 C");
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n50"));
  EXPECT_EQ(Text("Label5[5]"), "100");
  Tick("Check4");
  EXPECT_TRUE(Becomes("Label5[4]", "100"));
  EXPECT_EQ(Text("Label5[5]"), "200");
}

TEST_F(OptionWindowTest, UntickingLeavesRangeAndPictureAsTheyAre) {
  Open();
  Click("Command1");
  Reading("500 mPa.s,150 C");
  ASSERT_TRUE(Becomes("Label5[3]", "570"));
  const QImage before = Picture();
  for (const char* box : {"Check2", "Check3", "Check4"}) Tick(box);
  EXPECT_TRUE(PictureStays(before));
  EXPECT_EQ(Text("Label5[1]"), "3");
  EXPECT_EQ(Text("Label5[2]"), "470");
  EXPECT_EQ(Text("Label5[3]"), "570");
  EXPECT_EQ(Text("Label5[4]"), "100");
  EXPECT_EQ(Text("Label5[5]"), "200");
}

TEST_F(OptionWindowTest, StandardAndFineCanBeChosenOnlyWhileViscosityIsTicked) {
  Open();
  for (const bool on : {false, true}) {
    Tick("Check3");
    EXPECT_EQ(Enabled("Option2[0]"), on);
    EXPECT_EQ(Enabled("Option2[1]"), on);
    EXPECT_TRUE(Ticked("Option2[1]")) << "the choice stays";
  }
}

TEST_F(OptionWindowTest, StandardBeginsAtZeroAndFineAtTheData) {
  Open();
  Click("Command1");
  Reading("500");
  ASSERT_TRUE(Becomes("Label5[2]", "470"));
  const QImage fine = Picture();
  ForgetSettingsFile();
  Tick("Option2[0]");
  EXPECT_TRUE(SettingsSaved());
  EXPECT_TRUE(Becomes("Label5[2]", "0"));
  EXPECT_EQ(Text("Label5[3]"), "500");
  EXPECT_TRUE(PictureChanges(fine));
  Tick("Option2[1]");
  EXPECT_TRUE(Becomes("Label5[2]", "470"));
  EXPECT_EQ(Text("Label5[3]"), "570");
}

TEST_F(OptionWindowTest, StandardBeginsTheLogAxisAtATenth) {
  OpenWithReadings();
  Pick("mAxis", "mLog[1]");
  ASSERT_TRUE(Becomes("Label5[2]", "10"));
  Tick("Option2[0]");
  EXPECT_TRUE(Becomes("Label5[2]", "0.1"));
  EXPECT_EQ(Text("Label5[3]"), "100");
}

TEST_F(OptionWindowTest, SelectionShowsTheLabelsOfItsAxes) {
  OpenWithReadings();
  QImage before = Picture();
  const auto time_labels = [&](bool shown) {
    for (const char* caption : {"Label5[0]", "Label5[1]", "Label6[0]", "Label6[5]", "Label7[3]"})
      EXPECT_EQ(Shown(caption), shown) << caption;
  };
  const auto temperature_labels = [&](bool shown) {
    for (const char* caption : {"Label5[4]", "Label5[5]", "Label6[2]", "Label9[5]"})
      EXPECT_EQ(Shown(caption), shown) << caption;
  };
  time_labels(true);
  temperature_labels(false);

  ForgetSettingsFile();
  Tick("Option1[1]");
  EXPECT_TRUE(SettingsSaved());
  ASSERT_TRUE(PictureChanges(before));
  time_labels(true);
  temperature_labels(true);
  before = Picture();

  ForgetSettingsFile();
  Tick("Option1[2]");
  EXPECT_TRUE(SettingsSaved());
  ASSERT_TRUE(PictureChanges(before));
  time_labels(false);
  temperature_labels(true);
  for (const char* caption : {"Label5[4]", "Label5[5]", "Label6[2]", "Label9[5]"}) {
    EXPECT_GE(Find<graph::Caption>(caption)->y(), Find<QWidget>("Picture2")->geometry().bottom() - 2)
        << caption << " stands below the plot";
  }
  before = Picture();

  Tick("Option1[0]");
  ASSERT_TRUE(PictureChanges(before));
  time_labels(true);
  temperature_labels(false);
}

}  // namespace
}  // namespace quenlor::app
