// SPDX-License-Identifier: MIT
#include "reports/statistics_page.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/test_printer.h"
#include "reports/statistics_widths.h"
#include "tests/reports/statistics_readings.h"

namespace quenlor::reports {
namespace {

using platform::memory::RecordingSurface;
using platform::memory::TestPrinter;
using Call = RecordingSurface::Call;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr std::string_view kFile = "oil.csv";
constexpr std::string_view kDate = "2024/03/05 10:00:00";
constexpr double kTop = 2 * 240 + 100;  // of the grid

// Letters of a recording surface are half as wide as high.
double Measure(std::string_view text) { return 100.0 * static_cast<double>(text.size()); }

GridSizes SizesOf(const StatisticsTable& table) { return {ColumnWidths(table, Measure), 300, 200, 240}; }

StatisticsTable Runs(int count) {
  Texts texts;
  for (int i = 0; i < count; ++i) texts.push_back(std::to_string(i) + ".5");
  return {RunsOf(texts), kVisco, kTemp};
}

// A table with so many extra columns, each with a title of its own.
StatisticsTable Wide(int extra_columns) {
  Texts titles = {"No.", "Time", "Viscosity", "Temp"};
  for (int i = 0; i < extra_columns; ++i) titles.push_back("Extra" + std::to_string(i));
  return {Readings({{"1", "00:01:00", "1.5", "25.0"}}, titles), kVisco, kTemp};
}

bool GoOn() { return true; }

// The pages of a table, printed.
class StatisticsPaper : public testing::Test {
 protected:
  const std::vector<RecordingSurface>& Print(const StatisticsTable& table) {
    sizes = SizesOf(table);
    printer.Accept();
    PrintStatistics(printer, {kFile, kDate, table}, sizes, GoOn);
    return printer.Documents().back().pages;
  }

  static std::vector<Call> Lines(const RecordingSurface& page) { return page.Calls(Call::Kind::kLine); }

  static std::vector<Call> FrameLines(const RecordingSurface& page) {
    std::vector<Call> lines = Lines(page);
    std::erase_if(lines, [](const Call& line) { return line.pen.width != StatisticsPages::kFramePenWidth; });
    return lines;
  }

  static Texts TextsOn(const RecordingSurface& page) {
    Texts texts;
    for (const Call& call : page.Calls(Call::Kind::kText)) texts.push_back(call.text);
    return texts;
  }

  static Call TextOn(const RecordingSurface& page, std::string_view text) {
    for (const Call& call : page.Calls(Call::Kind::kText)) {
      if (call.text == text) return call;
    }
    ADD_FAILURE() << "no text " << text;
    return {};
  }

  double GridWidth() const {
    double width = 0;
    for (const int column : sizes.column_widths) width += column;
    return width;
  }

  static void ExpectInside(const RecordingSurface& page) {
    for (const Call& call : page.Calls()) {
      const platform::Units& paper = call.viewport.CoordinateSystem();
      const auto expect_inside = [&](platform::Point point) {
        EXPECT_GE(point.x, 0) << testing::PrintToString(call);
        EXPECT_LT(point.x, paper.width) << testing::PrintToString(call);
        EXPECT_GE(point.y, 0) << testing::PrintToString(call);
        EXPECT_LT(point.y, paper.height) << testing::PrintToString(call);
      };
      expect_inside(call.line.from);
      if (call.kind == Call::Kind::kLine) expect_inside(call.line.to);
      if (call.kind == Call::Kind::kText) {
        const double width = page.TextWidth(call.text, call.down) - 1;
        const double across = call.text_across == platform::Across::kRight ? -width : width;
        expect_inside({call.line.from.x + across, call.line.from.y});
        expect_inside({call.line.from.x, call.line.from.y - call.down / 2});
        expect_inside({call.line.from.x, call.line.from.y + call.down / 2});
      }
    }
  }

  TestPrinter printer;
  GridSizes sizes;
};

TEST_F(StatisticsPaper, IsLaidOverInTwips) {
  const RecordingSurface& page = Print(Runs(2)).front();

  for (const Call& call : page.Calls()) {
    EXPECT_EQ(call.viewport.Area(), page.Whole());
    EXPECT_EQ(call.viewport.CoordinateSystem(),
              (platform::Units{0, 0, printer.Page().width, printer.Page().height}));
    EXPECT_EQ(call.pen.color, (platform::Rgb{0, 0, 0}));
  }
}

TEST_F(StatisticsPaper, CaptionsAreTwoLinesAtTheTopLeft) {
  const RecordingSurface& page = Print(Runs(2)).front();

  const Call file = TextOn(page, kFile);
  const Call date = TextOn(page, kDate);
  EXPECT_EQ(file.line.from, (platform::Point{0, 120}));
  EXPECT_EQ(date.line.from, (platform::Point{0, 360}));
  EXPECT_EQ(file.text_across, platform::Across::kLeft);
  EXPECT_EQ(file.text_down, platform::Down::kCentre);
}

TEST_F(StatisticsPaper, ATableThatFitsIsOnePageWithEveryCell) {
  const StatisticsTable table = Runs(3);
  const auto& pages = Print(table);

  ASSERT_EQ(pages.size(), 1U);
  const Texts texts = TextsOn(pages.front());
  for (StatisticsTable::Row row = 0; row < table.Rows(); ++row) {
    for (const std::string& cell : RowOf(table, row)) EXPECT_THAT(texts, Contains(cell));
  }
}

TEST_F(StatisticsPaper, CellsStandWhereTheGridHasThem) {
  const RecordingSurface& page = Print(Runs(3)).front();

  EXPECT_EQ(TextOn(page, "No.").line.from, (platform::Point{500 + 50, kTop + 150}));
  EXPECT_EQ(TextOn(page, "Maximum").line.from, (platform::Point{500 + 50, kTop + 4 * 300 + 150}));
  EXPECT_EQ(TextOn(page, "2.5").line.from,
            (platform::Point{500 + 800 + 900 + 1000 - 50, kTop + 3 * 300 + 150}));
  EXPECT_EQ(TextOn(page, "Viscosity").down, 200);
}

TEST_F(StatisticsPaper, FiguresStandAtTheRightAndSoDoTheirTitles) {
  const StatisticsTable table(
      Readings({{"1", "00:01:00", "1.5", "25,0"}, {"2", "00:02:00", "-1.5E-3", "warm"}},
               {"No.", "Time", "Viscosity", "Temp"}),
      kVisco, kTemp);
  const RecordingSurface& page = Print(table).front();

  for (const char* figure : {"Time", "Viscosity", "Temp", "00:02:00", "25,0", "-1.5E-3", "00:01:30"})
    EXPECT_EQ(TextOn(page, figure).text_across, platform::Across::kRight) << figure;
  for (const char* text : {"No.", "1", "Maximum", "warm"})
    EXPECT_EQ(TextOn(page, text).text_across, platform::Across::kLeft) << text;
}

TEST_F(StatisticsPaper, FrameIsTheTopAndTheLeftEdgeOnlyFivePrinterDotsWide) {
  const RecordingSurface& page = Print(Runs(3)).front();

  const std::vector<Call> frame = FrameLines(page);
  ASSERT_EQ(frame.size(), 2U);
  EXPECT_EQ(frame[0].line, (platform::Segment{{500, kTop}, {500 + GridWidth(), kTop}}));
  EXPECT_EQ(frame[1].line, (platform::Segment{{500, kTop}, {500, kTop + 8 * 300}}));
  EXPECT_DOUBLE_EQ(frame[0].pen.width * page.PenScale() / platform::kPageDotsPerInch, 5.0 / 600);
  EXPECT_EQ(frame[0].pen.style, platform::LineStyle::kSolid);
}

TEST_F(StatisticsPaper, FrameIsDrawnOverThePicture) {
  const RecordingSurface& page = Print(Runs(3)).front();

  const std::vector<Call>& calls = page.Calls();
  ASSERT_GE(calls.size(), 2U);
  EXPECT_EQ(calls[calls.size() - 2], FrameLines(page)[0]);
  EXPECT_EQ(calls[calls.size() - 1], FrameLines(page)[1]);
}

TEST_F(StatisticsPaper, GridLinesStandBelowEveryRowAndRightOfEveryColumn) {
  const RecordingSurface& page = Print(Runs(3)).front();

  std::vector<double> across;
  std::vector<double> down;
  for (const Call& line : Lines(page)) {
    if (line.pen.width == StatisticsPages::kFramePenWidth) continue;
    const auto [from, to] = line.line;
    if (from.y == to.y) {
      across.push_back(from.y - kTop);
      EXPECT_EQ(from.x, 500);
      EXPECT_EQ(to.x, 500 + GridWidth());
    } else {
      down.push_back(from.x - 500);
      EXPECT_EQ(from.y, kTop);
      EXPECT_EQ(to.y, kTop + 2400);
    }
  }
  EXPECT_THAT(across, ElementsAre(300, 600, 900, 1200, 1170, 1500, 1800, 2100, 2400))
      << "a double one above the statistics";
  EXPECT_THAT(down, ElementsAre(800, 1700, 2700, GridWidth()));
}

TEST_F(StatisticsPaper, ATallTableGoesOnWithTheTitleRowRepeated) {
  // 54 rows fit below the captions, 53 of them besides the title row.
  const auto& pages = Print(Runs(100));

  ASSERT_EQ(pages.size(), 2U);
  for (const RecordingSurface& page : pages) {
    EXPECT_EQ(TextOn(page, "Viscosity").line.from.y, kTop + 150);
    EXPECT_EQ(TextOn(page, kFile).line.from.y, 120);
    EXPECT_EQ(FrameLines(page).size(), 2U);
  }
  EXPECT_THAT(TextsOn(pages[0]), Contains("52.5"));
  EXPECT_THAT(TextsOn(pages[0]), Not(Contains("53.5")));
  EXPECT_EQ(TextOn(pages[1], "53.5").line.from.y, kTop + 300 + 150);
  EXPECT_THAT(TextsOn(pages[1]), Contains("Std Dev"));
  EXPECT_EQ(FrameLines(pages[1])[1].line.to.y, kTop + (1 + 47 + 4) * 300);
}

TEST_F(StatisticsPaper, TheLaterOfSeveralPagesAreNumbered) {
  const auto& pages = Print(Runs(150));

  ASSERT_EQ(pages.size(), 3U);
  EXPECT_THAT(TextsOn(pages[0]), Not(Contains(testing::StartsWith("Page"))));
  EXPECT_THAT(TextsOn(pages[1]), Contains("Page 2 of 3"));
  const Call number = TextOn(pages[2], "Page 3 of 3");
  EXPECT_EQ(number.text_across, platform::Across::kRight);
  EXPECT_EQ(number.line.from.y, 120);
  EXPECT_NEAR(number.line.from.x, TestPrinter::kA4.width, 20);
}

TEST_F(StatisticsPaper, ALongFileNameLeavesTheNumberOfThePageItsRoom) {
  const StatisticsTable table = Runs(100);
  sizes = SizesOf(table);
  const std::string name(500, 'n');
  printer.Accept();
  PrintStatistics(printer, {name, kDate, table}, sizes, GoOn);
  const RecordingSurface& page = printer.Documents().front().pages[1];

  const Call number = TextOn(page, "Page 2 of 2");
  const Call file = page.Calls(Call::Kind::kText).at(1);
  EXPECT_LT(page.TextWidth(file.text, file.down),
            number.line.from.x - page.TextWidth(number.text, number.down));
}

TEST_F(StatisticsPaper, ThePageIsFilledToItsLastRow) {
  EXPECT_EQ(Print(Runs(49)).size(), 1U);
  EXPECT_EQ(Print(Runs(50)).size(), 2U);
}

TEST_F(StatisticsPaper, AWideTableGoesOnWithColumnZeroRepeated) {
  const StatisticsTable table = Wide(30);
  const auto& pages = Print(table);

  ASSERT_GT(pages.size(), 1U);
  Texts titles;
  for (const RecordingSurface& page : pages) {
    EXPECT_EQ(TextOn(page, "Maximum").line.from.x, 550);
    EXPECT_EQ(TextOn(page, "Maximum").down, 200);  // natural size
    for (const std::string& text : TextsOn(page)) {
      if (text.starts_with("Extra")) titles.push_back(text);
    }
  }
  Texts expected;
  for (int i = 0; i < 30; ++i) expected.push_back("Extra" + std::to_string(i));
  EXPECT_EQ(titles, expected);
}

TEST_F(StatisticsPaper, ATallAndWideTableGoesDownFirst) {
  Texts titles = {"No.", "Time", "Viscosity", "Temp"};
  for (int i = 0; i < 20; ++i) titles.push_back("Extra" + std::to_string(i));
  std::vector<Texts> rows;
  for (int i = 0; i < 100; ++i) rows.push_back({std::to_string(i), "0", std::to_string(i) + ".5", "25"});
  const auto& pages = Print({Readings(rows, titles), kVisco, kTemp});

  ASSERT_EQ(pages.size(), 4U);
  EXPECT_THAT(TextsOn(pages[0]), testing::AllOf(Contains("0.5"), Not(Contains("Std Dev"))));
  EXPECT_THAT(TextsOn(pages[1]), testing::AllOf(Contains("99.5"), Contains("Std Dev")));
  EXPECT_THAT(TextsOn(pages[2]), testing::AllOf(Contains("Extra19"), Not(Contains("Std Dev"))));
  EXPECT_THAT(TextsOn(pages[3]), testing::AllOf(Contains("Extra19"), Contains("Std Dev")));
}

TEST_F(StatisticsPaper, NothingLeavesThePageWhateverTheTable) {
  const Texts long_titles = {std::string(300, 'a'), std::string(50, 'b'), std::string(400, 'c'), "d"};
  const std::vector<StatisticsTable> tables = {
      Runs(0), Runs(200), Wide(40),
      StatisticsTable(Readings({{"1", "0", std::string(3000, '5'), "25"}}, long_titles), kVisco, kTemp)};
  for (const platform::PageSize paper : {TestPrinter::kA4, platform::PageSize{3000, 2500}}) {
    printer.SetPage(paper);
    for (const StatisticsTable& table : tables) {
      for (const RecordingSurface& page : Print(table)) ExpectInside(page);
    }
  }
}

TEST_F(StatisticsPaper, ATextWiderThanThePageIsCutWhereTheReaderSeesIt) {
  const Texts titles = {"No.", "Time", std::string(500, 'c'), "Temp"};
  const auto& pages = Print({Readings({}, titles), kVisco, kTemp});

  const Texts texts = TextsOn(pages[1]);
  const auto cut =
      std::ranges::find_if(texts, [](const std::string& text) { return text.starts_with("ccc"); });
  ASSERT_NE(cut, texts.end());
  EXPECT_TRUE(cut->ends_with("…"));
  EXPECT_GT(cut->size(), 80U);
}

TEST_F(StatisticsPaper, LettersAreALittleSmallerWhereThePaperHasWiderOnes) {
  const StatisticsTable table = Runs(2);
  sizes = SizesOf(table);
  for (int& width : sizes.column_widths) width = static_cast<int>(width * 0.93);
  printer.Accept();
  PrintStatistics(printer, {kFile, kDate, table}, sizes, GoOn);

  const Call title = TextOn(printer.Documents().front().pages.front(), "Viscosity");
  EXPECT_LT(title.down, 200);
  EXPECT_GT(title.down, 180);
}

TEST_F(StatisticsPaper, APrinterWithoutPaperStillComesToAnEnd) {
  printer.SetPage({0, 0});

  constexpr std::size_t kRows = 14;  // a page for each of them
  constexpr std::size_t kPagesAcross = 3;
  EXPECT_EQ(Print(Runs(10)).size(), kRows * kPagesAcross);
}

TEST(StatisticsPages, OfAMillionRunsAreCountedWithoutDrawingThem) {
  Texts texts(1'000'000, "1.5");
  const StatisticsTable table(RunsOf(texts), kVisco, kTemp);
  const GridSizes sizes = SizesOf(table);
  const StatisticsPages pages({kFile, kDate, table}, sizes, TestPrinter::kA4);

  EXPECT_EQ(pages.Count(), (1'000'004 + 52) / 53);
  RecordingSurface last;
  pages.Draw(last, pages.Count() - 1);
  EXPECT_EQ(last.Calls().back().kind, Call::Kind::kLine);
  EXPECT_LT(last.Calls().size(), 1000U);
}

TEST(PrintStatistics, ChoosesThePrinterAndPrintsOneDocument) {
  TestPrinter printer;
  printer.Accept();
  const StatisticsTable table = Runs(2);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), GoOn);

  EXPECT_TRUE(printer.AsScripted());
  ASSERT_EQ(printer.Documents().size(), 1U);
  EXPECT_EQ(printer.Documents().front().title, "Statistics oil.csv");
  EXPECT_EQ(printer.ProposedTitles().front(), "Statistics oil.csv");
}

TEST(PrintStatistics, EveryCopyIsADocumentOfItsOwn) {
  TestPrinter printer;
  printer.Accept(3);
  const StatisticsTable table = Runs(2);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), GoOn);

  ASSERT_EQ(printer.Documents().size(), 3U);
  for (const auto& document : printer.Documents()) {
    ASSERT_EQ(document.pages.size(), 1U);
    EXPECT_EQ(document.pages.front().Calls(), printer.Documents().front().pages.front().Calls());
  }
}

TEST(PrintStatistics, ACancelledDialogPrintsWithWhatWasChosenBefore) {
  TestPrinter printer;
  printer.SetCopies(2);
  printer.Cancel();
  const StatisticsTable table = Runs(2);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), GoOn);

  EXPECT_TRUE(printer.AsScripted());
  EXPECT_EQ(printer.Documents().size(), 2U);
}

TEST(PrintStatistics, ThePaperChosenInTheDialogCounts) {
  TestPrinter printer;
  printer.Accept(1, {16838, 11906});
  const StatisticsTable table = Runs(40);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), GoOn);

  EXPECT_EQ(printer.Documents().front().pages.size(), 2U);
}

TEST(PrintStatistics, WithoutAPrinterNothingHappensAndEveryCopyIsTried) {
  TestPrinter printer;
  printer.SetCopies(2);
  printer.Cancel();
  printer.Fail("no printer");
  const StatisticsTable table = Runs(2);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), GoOn);

  EXPECT_TRUE(printer.Documents().empty());
  EXPECT_EQ(printer.FailedTitles().size(), 2U);
}

TEST(PrintStatistics, IsDroppedWhenNobodyWantsItAfterTheDialog) {
  TestPrinter printer;
  printer.Accept();
  const StatisticsTable table = Runs(2);

  PrintStatistics(printer, {kFile, kDate, table}, SizesOf(table), [] { return false; });

  EXPECT_TRUE(printer.AsScripted());
  EXPECT_TRUE(printer.Documents().empty());
}

}  // namespace
}  // namespace quenlor::reports
