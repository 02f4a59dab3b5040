// SPDX-License-Identifier: MIT
// The colours of the graph, from the colour file and by clicks in the "Color" window.

#include <QHeaderView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/color_table.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const QColor kRed(255, 0, 0);
const QColor kBlue(0, 153, 255);
const QColor kGreen(0, 187, 0);

class GraphColorsTest : public WindowTest {
 protected:
  QImage Pane() { return Find<QWidget>("Picture1")->grab().toImage(); }

  // The "Color" window, opened from the menu, and what is clicked in it.
  QDialog& OpenColors() {
    Pick("mOption", "mColor");
    auto* form = Find<QDialog>("Form6");
    EXPECT_TRUE(QTest::qWaitForWindowExposed(form));
    return *form;
  }
  static void ClickIn(QWidget& form, const char* name) {
    auto* button = form.findChild<QWidget*>(name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }
  static void ChooseColor(QDialog& form, const char* entry, const char* color) {
    ClickIn(form, entry);
    auto* palette = form.findChild<QDialog*>("Form7");
    ASSERT_NE(palette, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(palette));
    ClickIn(*palette, color);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(form.findChild<QDialog*>("Form7"), nullptr);
  }

  QColor HeaderColor(const char* grid, int row) {
    return Find<GridView>(grid)->model()->headerData(row, Qt::Vertical, Qt::BackgroundRole).value<QColor>();
  }
};

TEST_F(GraphColorsTest, WithoutAColourFileElevenLinesAppearAndTheGraphIsWhite) {
  Open();
  EXPECT_EQ(File("Color.txt"),
            "&h0000FF\r\n&h00BB00\r\n&hFF9900\r\n&hFF00CC\r\n&h00BBFF\r\n&h0000CC\r\n&hFFFF00\r\n&h00FF99\r\n"
            "&h00EEEE\r\n&hFFCCFF\r\nWhite\r\n");
  EXPECT_TRUE(Has(Picture(), Qt::white));
  EXPECT_EQ(ColorOf("Label5[0]"), QColor(Qt::black));
}

TEST_F(GraphColorsTest, ColourFileIsUsedFromTheStart) {
  PutFile("Color.txt", "&hFF9900\r\n&h00BB00\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nwhite\r\n");
  Open();
  EXPECT_EQ(ColorOf("Label5[0]"), QColor(Qt::white)) << "the word is another one in lower case";
  EXPECT_EQ(Picture().pixelColor(1, 1), QColor(Qt::black));
  Run({"30", "30", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  EXPECT_EQ(ColorOf("Label10[1]"), kBlue);
  EXPECT_TRUE(Has(Picture(), kBlue));
}

TEST_F(GraphColorsTest, OkSavesTheColoursAndShowsThemInTablesLegendAndPlot) {
  Open();
  Run({"30", "30", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  ASSERT_EQ(HeaderColor("Grid1", 0), kRed);
  ASSERT_TRUE(Has(Picture(), kRed));
  QDialog& form = OpenColors();
  EXPECT_EQ(form.windowTitle(), "Color");
  ChooseColor(form, "Command4[1]", "Command1[3]");
  EXPECT_EQ(HeaderColor("Grid1", 0), kRed) << "not before OK";
  EXPECT_THAT(File("Color.txt"), StartsWith("&h0000FF\r\n"));
  ClickIn(form, "Command2");
  EXPECT_FALSE(form.isVisible());
  EXPECT_THAT(File("Color.txt"), StartsWith("&hFF9900\r\n&h00BB00\r\n"));
  for (const char* grid : {"Grid1", "Grid2", "Grid4"}) EXPECT_EQ(HeaderColor(grid, 0), kBlue) << grid;
  EXPECT_TRUE(WaitFor([&] { return Has(Picture(), kBlue); }));
  EXPECT_FALSE(Has(Picture(), kRed));
  EXPECT_EQ(ColorOf("Label10[1]"), kBlue);
  EXPECT_TRUE(WaitFor([&] {
    return Has(Find<GridView>("Grid1")->verticalHeader()->grab().toImage(), kBlue);
  })) << "painted, too";
}

TEST_F(GraphColorsTest, ARunThatCannotBeReadOnTheTablesGroundStandsOnAPlateInEveryScheme) {
  PutFile("Color.txt", "&hFFFFFF\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nWhite\r\n");
  Open();
  Run({"30"});
  Run({"40"});
  ShowRows(3);
  auto* grid = Find<GridView>("Grid1");
  const auto ground = [&](int row) {
    const QRect cell = grid->visualRect(grid->model()->index(row, 1));
    return grid->viewport()->grab(QRect(cell.right() - 3, cell.top() + 2, 1, 1)).toImage().pixelColor(0, 0);
  };
  const QPalette before = window->palette();
  QPalette scheme = before;
  scheme.setColor(QPalette::Base, Qt::white);
  window->setPalette(scheme);
  EXPECT_LT(ground(0).lightness(), 60) << "white letters";
  EXPECT_EQ(ground(1), QColor(Qt::white)) << "black letters";
  scheme.setColor(QPalette::Base, QColor(30, 34, 38));
  window->setPalette(scheme);
  EXPECT_EQ(ground(0), QColor(30, 34, 38));
  EXPECT_GT(ground(1).lightness(), 200);
  window->setPalette(before);
}

TEST_F(GraphColorsTest, EntryZeroColoursRunTen) {
  Open();
  for (int run = 1; run <= 10; ++run) Run({"5"});
  ASSERT_TRUE(Becomes("Label10[10]", "No.10\n5"));
  QDialog& form = OpenColors();
  ChooseColor(form, "Command4[0]", "Command1[2]");
  ClickIn(form, "Command2");
  EXPECT_TRUE(WaitFor([&] { return ColorOf("Label10[10]") == kGreen; }));
  EXPECT_THAT(File("Color.txt"), HasSubstr("&h00BB00\r\nWhite\r\n"));
  EXPECT_EQ(HeaderColor("Grid1", 9), kGreen);
}

TEST_F(GraphColorsTest, CancelInTheColourWindowOrItsPaletteChangesNothing) {
  Open();
  Run({"30", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  const QImage before = Picture();
  const std::string file = File("Color.txt");
  QDialog& form = OpenColors();
  ChooseColor(form, "Command4[2]", "Command2");  // the palette's "Cancel"
  ChooseColor(form, "Command4[1]", "Command1[3]");
  ClickIn(form, "Option1[1]");
  ClickIn(form, "Command3");
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(PictureStays(before));
  EXPECT_EQ(File("Color.txt"), file);
  EXPECT_EQ(HeaderColor("Grid1", 0), kRed);
  EXPECT_EQ(ColorOf("Label5[0]"), QColor(Qt::black));
}

TEST_F(GraphColorsTest, CancelInThePaletteKeepsTheColourThatOkThenSaves) {
  Open();
  const std::string file = File("Color.txt");
  QDialog& form = OpenColors();
  ChooseColor(form, "Command4[2]", "Command2");
  ClickIn(form, "Command2");
  EXPECT_EQ(File("Color.txt"), file);
}

TEST_F(GraphColorsTest, ResetAndOkBringBackTheFirstColours) {
  PutFile("Color.txt", "0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nBlack\r\n");
  Open();
  QDialog& form = OpenColors();
  ClickIn(form, "Command1");
  EXPECT_THAT(File("Color.txt"), HasSubstr("Black")) << "not before OK";
  ClickIn(form, "Command2");
  EXPECT_THAT(File("Color.txt"), StartsWith("&h0000FF\r\n"));
  EXPECT_THAT(File("Color.txt"), HasSubstr("White\r\n"));
  EXPECT_TRUE(WaitFor([&] { return ColorOf("Label5[0]") == QColor(Qt::black); }));
}

TEST_F(GraphColorsTest, BlackSchemeTurnsGraphBlackAndCaptionsWhite) {
  Open();
  Run({"30", "30"});
  ASSERT_TRUE(Becomes("Label10[1]", "No.1\n30"));
  QDialog& form = OpenColors();
  ClickIn(form, "Option1[1]");
  ClickIn(form, "Command2");
  EXPECT_THAT(File("Color.txt"), HasSubstr("\r\nBlack\r\n"));
  ASSERT_TRUE(WaitFor([&] { return ColorOf("Label5[0]") == QColor(Qt::white); }));
  const QColor white(Qt::white);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(ColorOf(("Label5[" + std::to_string(i) + "]").c_str()), white) << i;
  for (int i = 0; i < 7; ++i) EXPECT_EQ(ColorOf(("Label6[" + std::to_string(i) + "]").c_str()), white) << i;
  for (int i = 1; i < 6; ++i) EXPECT_EQ(ColorOf(("Label7[" + std::to_string(i) + "]").c_str()), white) << i;
  for (int i = 1; i < 10; ++i) {
    EXPECT_EQ(ColorOf(("Label8[" + std::to_string(i) + "]").c_str()), white) << i;
    EXPECT_EQ(ColorOf(("Label9[" + std::to_string(i) + "]").c_str()), white) << i;
  }
  EXPECT_EQ(ColorOf("Label10[0]"), white);
  EXPECT_EQ(ColorOf("Label10[1]"), kRed);
  EXPECT_EQ(Picture().pixelColor(1, 1), QColor(Qt::black));
  EXPECT_EQ(Pane().pixelColor(2, Pane().height() / 2), QColor(Qt::black));
  window.reset();
  Open();
  EXPECT_EQ(ColorOf("Label5[0]"), white) << "at the next start, too";
}

TEST_F(GraphColorsTest, ColoursCanBeChangedWhileAMeasurementRuns) {
  Open();
  Click("Command1");
  Reading("30");
  QDialog& form = OpenColors();
  ChooseColor(form, "Command4[1]", "Command1[3]");
  Reading("30");
  ClickIn(form, "Command2");
  Reading("30");
  EXPECT_TRUE(Running());
  EXPECT_TRUE(WaitFor([&] { return Has(Picture(), kBlue); }));
  EXPECT_EQ(HeaderColor("Grid1", 2), kBlue);
}

TEST_F(GraphColorsTest, ColoursThatCannotBeSavedAreShownNevertheless) {
  files.Refuse(kFolder, "Read-only file system");
  Open();
  QDialog& form = OpenColors();
  ClickIn(form, "Option1[1]");
  ClickIn(form, "Command2");
  EXPECT_TRUE(WaitFor([&] { return ColorOf("Label5[0]") == QColor(Qt::white); }));
}

TEST_F(GraphColorsTest, MenuShowsTheSameColourWindowAgain) {
  Open();
  QDialog& form = OpenColors();
  EXPECT_EQ(&OpenColors(), &form);
  EXPECT_EQ(window->findChildren<QDialog*>("Form6").size(), 1);
}

}  // namespace
}  // namespace quenlor::app
