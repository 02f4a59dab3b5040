// SPDX-License-Identifier: MIT
#include "reports/statistics_window.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QPointer>
#include <QTableView>
#include <QTest>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/test_clipboard.h"
#include "platform/memory/test_printer.h"
#include "reports/statistics_text.h"

namespace quenlor::reports {
namespace {

constexpr const char* kFile = "oil.csv";
constexpr const char* kDate = "2024/03/05 10:00:00";

bool WaitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 10'000); }

// So many runs of one reading each.
data::MeasurementTable Readings(int runs, const std::string& unit = "mPa·s") {
  data::MeasurementTable table;
  table.Reset({"No.", "Time", "Viscosity", "Unit1", "Temp"});
  for (int run = 1; run <= runs; ++run) {
    const std::string number = std::to_string(run);
    const std::string viscosity = std::to_string(run) + ".25";
    const std::string_view cells[] = {number, "00:01:00", viscosity, unit, "25.0"};
    table.AppendRow(cells);
  }
  return table;
}

StatisticsTable Statistics(int runs, char decimal_point = '.') {
  return {Readings(runs), 2, 4, decimal_point};
}

class StatisticsWindowTest : public testing::Test {
 protected:
  void SetUp() override { window = new StatisticsWindow(printer, clipboard, &owner); }

  void Show(StatisticsTable table) {
    window->Show(std::move(table), kFile, kDate);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }

  QTableView& Grid() { return *window->findChild<QTableView*>(QStringLiteral("Grid1")); }
  QPushButton& Button(const char* name) { return *window->findChild<QPushButton*>(QLatin1String(name)); }
  void Click(const char* name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }

  std::string Cell(int row, int column) {
    return Grid().model()->index(row, column).data().toString().toStdString();
  }
  std::string RowTitle(int row) {
    return Grid().model()->headerData(row, Qt::Vertical).toString().toStdString();
  }

  platform::memory::TestPrinter printer;
  platform::memory::TestClipboard clipboard;
  QWidget owner;
  QPointer<StatisticsWindow> window;
};

TEST_F(StatisticsWindowTest, FiguresStandAtTheRight) {
  Show(Statistics(2));

  const QAbstractItemModel& model = *Grid().model();
  const auto is_right = [](const QVariant& alignment) { return (alignment.toInt() & Qt::AlignRight) != 0; };
  EXPECT_TRUE(is_right(model.index(0, 1).data(Qt::TextAlignmentRole)));
  EXPECT_TRUE(is_right(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)));
  EXPECT_FALSE(is_right(model.index(0, 2).data(Qt::TextAlignmentRole))) << "a unit";
  EXPECT_FALSE(is_right(model.headerData(2, Qt::Horizontal, Qt::TextAlignmentRole)));
}

TEST_F(StatisticsWindowTest, IsNotModalAndCalledStatistics) {
  Show(Statistics(2));

  EXPECT_EQ(window->objectName(), "Form4");
  EXPECT_EQ(window->windowTitle(), "Statistics");
  EXPECT_FALSE(window->isModal());
  EXPECT_EQ(Button("Print").text(), "Print(&P)");
  EXPECT_EQ(Button("Copy").text(), "Copy(&C)");
}

TEST_F(StatisticsWindowTest, ShowsTheTableUnderItsTitles) {
  Show(Statistics(2, ','));

  ASSERT_EQ(Grid().model()->rowCount(), 6);
  ASSERT_EQ(Grid().model()->columnCount(), 4);
  EXPECT_EQ(Grid().model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
  EXPECT_EQ(RowTitle(0), "No.");
  EXPECT_EQ(RowTitle(1), "1");
  EXPECT_EQ(RowTitle(2), "Maximum");
  EXPECT_EQ(RowTitle(5), "Std Dev");
  EXPECT_EQ(Cell(1, 1), "2.25");
  EXPECT_EQ(Cell(2, 1), "2,25");
  EXPECT_EQ(Cell(0, 2), "mPa·s");
}

TEST_F(StatisticsWindowTest, ModelKeepsTheRulesOfModels) {
  const QAbstractItemModelTester tester(Grid().model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);

  Show(Statistics(3));
  Show(Statistics(0));
  Show(Statistics(5));

  EXPECT_EQ(Grid().model()->rowCount(), 9);
}

TEST_F(StatisticsWindowTest, OfAnEmptyTableShowsTheRowTitles) {
  Show(Statistics(0));

  EXPECT_EQ(Grid().model()->rowCount(), 4);
  EXPECT_EQ(RowTitle(3), "Std Dev");
  EXPECT_EQ(Cell(0, 0), "");
}

TEST_F(StatisticsWindowTest, ShowAgainReplacesTheTableAndBringsAClosedWindowBack) {
  Show(Statistics(2));
  window->close();
  ASSERT_FALSE(window->isVisible());

  Show(Statistics(7));

  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Grid().model()->rowCount(), 11);
}

TEST_F(StatisticsWindowTest, ShowAgainKeepsTheSizeThatTheOperatorChose) {
  Show(Statistics(2));
  window->resize(640, 480);

  Show(Statistics(30));

  EXPECT_EQ(window->size(), QSize(640, 480));
}

TEST_F(StatisticsWindowTest, GridFillsTheWindowFromItsCornerAndLeavesTheButtonsFree) {
  Show(Statistics(2));
  for (const QSize size : {QSize(640, 480), QSize(400, 300), QSize(900, 700)}) {
    window->resize(size);
    ASSERT_TRUE(WaitFor([&] { return Grid().width() == size.width(); }));

    EXPECT_EQ(Grid().pos(), QPoint(0, 0));
    EXPECT_EQ(Grid().width(), size.width());
    for (const char* name : {"Print", "Copy"}) {
      EXPECT_GT(Button(name).y(), Grid().geometry().bottom());
      EXPECT_TRUE(window->rect().contains(Button(name).geometry()));
    }
  }
}

TEST_F(StatisticsWindowTest, NoTextOfTheGridIsCut) {
  Show({Readings(200, "a long unit"), 2, 4});

  const QFontMetricsF font(window->font());
  constexpr double kMargin = 100 / platform::kTwipsPerPixel;
  for (int column = 0; column < Grid().model()->columnCount(); ++column) {
    const auto room = [&](const QString& text) {
      return Grid().columnWidth(column) - font.horizontalAdvance(text);
    };
    EXPECT_GE(room(Grid().model()->headerData(column, Qt::Horizontal).toString()), kMargin - 1) << column;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) {
      const QModelIndex cell = Grid().model()->index(row, column);
      ASSERT_GE(room(cell.data().toString()), kMargin) << row << " " << column;
    }
  }
  EXPECT_GE(Grid().verticalHeader()->width() - font.horizontalAdvance("Maximum"), kMargin);
}

TEST_F(StatisticsWindowTest, AMillionRunsAreShownInNoTime) {
  StatisticsTable table = Statistics(1'000'000);
  QElapsedTimer timer;
  timer.start();

  Show(std::move(table));

  EXPECT_EQ(Grid().model()->rowCount(), 1'000'004);
  EXPECT_LT(timer.elapsed(), 20'000);  // a text measured a run would take far longer
  Grid().scrollToBottom();
  EXPECT_EQ(RowTitle(1'000'003), "Std Dev");
}

TEST_F(StatisticsWindowTest, CopyPutsTheWholeTableOnTheEmptiedClipboard) {
  Show(Statistics(2, ','));

  Click("Copy");

  EXPECT_EQ(clipboard.TimesCleared(), 1);
  EXPECT_EQ(clipboard.Text(), ClipboardText({kFile, kDate, Statistics(2, ',')}));
}

TEST_F(StatisticsWindowTest, PrintsWhatItShows) {
  Show(Statistics(2));
  printer.Accept(3);

  Click("Print");

  EXPECT_TRUE(printer.AsScripted());
  ASSERT_EQ(printer.Documents().size(), 3U);
  std::vector<std::string> texts;
  for (const auto& call : printer.Documents().front().pages.front().Calls()) texts.push_back(call.text);
  EXPECT_THAT(texts, testing::IsSupersetOf({kFile, kDate, "Viscosity", "2.25", "mPa·s", "Std Dev"}));
}

TEST_F(StatisticsWindowTest, PaperHasTheSizesOfTheGrid) {
  Show(Statistics(2));
  printer.Accept();

  Click("Print");

  const auto& page = printer.Documents().front().pages.front();
  const auto lines = page.Calls(platform::memory::RecordingSurface::Call::Kind::kLine);
  const double twips = 1440.0 / window->logicalDpiX();
  EXPECT_NEAR(lines.back().line.to.y - lines.back().line.from.y, 7 * Grid().rowHeight(0) * twips, 10);
  double width = Grid().verticalHeader()->width();
  for (int column = 0; column < 4; ++column) width += Grid().columnWidth(column);
  EXPECT_NEAR(lines[lines.size() - 2].line.to.x - 500, width * twips, 5 * 3 * twips);
}

TEST_F(StatisticsWindowTest, APrinterThatFailsIsPassedOver) {
  Show(Statistics(2));
  printer.Cancel();
  printer.Fail("no printer");

  Click("Print");

  EXPECT_EQ(printer.FailedTitles().size(), 1U);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StatisticsWindowTest, ASecondPrintClickDuringTheDialogDoesNothing) {
  Show(Statistics(2));
  printer.Accept(1, [&] {
    Click("Print");
    Button("Print").click();
  });

  Click("Print");

  EXPECT_TRUE(printer.AsScripted());
  EXPECT_EQ(printer.DialogsShown(), 1);
  EXPECT_EQ(printer.Documents().size(), 1U);
}

TEST_F(StatisticsWindowTest, CanPrintAgainAfterPrinting) {
  Show(Statistics(2));
  printer.Accept();
  printer.Cancel();

  Click("Print");
  Click("Print");

  EXPECT_TRUE(printer.AsScripted());
  EXPECT_EQ(printer.Documents().size(), 2U);
}

TEST_F(StatisticsWindowTest, ClosingDuringThePrinterDialogPrintsNothing) {
  Show(Statistics(2));
  printer.Cancel([&] { window->close(); });

  Click("Print");

  EXPECT_TRUE(printer.AsScripted());
  EXPECT_TRUE(printer.Documents().empty());
}

TEST_F(StatisticsWindowTest, DestructionDuringThePrinterDialogPrintsNothing) {
  Show(Statistics(2));
  printer.Accept(1, [&] { delete window; });

  Button("Print").click();

  EXPECT_TRUE(window.isNull());
  EXPECT_TRUE(printer.Documents().empty());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(StatisticsWindowTest, OtherStatisticsDuringThePrinterDialogLeaveThePaperAlone) {
  Show(Statistics(2));
  printer.Accept(1, [&] { window->Show(Statistics(90), "other.csv", kDate); });

  Click("Print");

  ASSERT_EQ(printer.Documents().size(), 1U);
  EXPECT_EQ(printer.Documents().front().title, "Statistics oil.csv");
  EXPECT_EQ(printer.Documents().front().pages.size(), 1U);
}

TEST_F(StatisticsWindowTest, KeysPrintCopyAndClose) {
  Show(Statistics(2));
  for (int i = 0; i < 2; ++i) printer.Accept();

  QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(printer.Documents().size(), 1U);
  QTest::keyClick(window, Qt::Key_P, Qt::AltModifier);
  EXPECT_TRUE(WaitFor([&] { return printer.Documents().size() == 2; }));

  QTest::keyClick(window, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(WaitFor([&] { return clipboard.TimesCleared() == 1; }));
  QTest::keyClick(&Grid(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard.TimesCleared(), 2);
  EXPECT_EQ(clipboard.Text(), ClipboardText({kFile, kDate, Statistics(2)}));

  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_EQ(printer.DialogsShown(), 2);
  EXPECT_TRUE(window->isVisible());

  QTest::keyClick(&Grid(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(StatisticsWindowTest, TabGoesFromTheGridOverPrintToCopy) {
  Show(Statistics(2));
  EXPECT_TRUE(Grid().hasFocus());

  QTest::keyClick(&Grid(), Qt::Key_Tab);
  EXPECT_TRUE(Button("Print").hasFocus());
  QTest::keyClick(&Button("Print"), Qt::Key_Tab);
  EXPECT_TRUE(Button("Copy").hasFocus());
}

TEST_F(StatisticsWindowTest, ToldToItIsDestroyedWhenClosed) {
  window->setAttribute(Qt::WA_DeleteOnClose);
  Show(Statistics(2));

  QTest::keyClick(&Grid(), Qt::Key_Escape);

  EXPECT_TRUE(WaitFor([&] { return window.isNull(); }));
}

TEST_F(StatisticsWindowTest, EverythingHasANameForThoseWhoDoNotSeeIt) {
  EXPECT_FALSE(Grid().accessibleName().isEmpty());
  for (const char* name : {"Print", "Copy"}) EXPECT_FALSE(Button(name).toolTip().isEmpty());
}

TEST_F(StatisticsWindowTest, BeforeItIsToldAnythingThereIsAnEmptyTable) {
  Button("Copy").click();

  EXPECT_THAT(*clipboard.Text(), testing::HasSubstr("\tMaximum\t\r\n"));
}

}  // namespace
}  // namespace quenlor::reports
