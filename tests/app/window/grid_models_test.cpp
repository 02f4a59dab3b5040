// SPDX-License-Identifier: MIT
#include "app/window/grid_models.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "graph/screen_color.h"
namespace quenlor::app {
namespace {

struct Tables {
  data::SettingsList settings;
  data::Document document{settings};
  graph::ColorSettings colors;
  Grid1Model grid1{document, colors};
  Grid2Model grid2{document, colors};
  Grid4Model grid4{document, colors};
  QAbstractItemModelTester tester1{&grid1, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QAbstractItemModelTester tester2{&grid2, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QAbstractItemModelTester tester4{&grid4, QAbstractItemModelTester::FailureReportingMode::Fatal};

  Tables() { document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp,Unit2\n"), "New.csv", ""); }

  void Append(std::vector<std::string_view> fields) {
    document.AppendReading(fields, {1e9 + seconds, 0});
    seconds += 1;
  }
  void Sync() {
    grid1.Sync();
    grid2.Sync();
    grid4.Sync();
  }
  double seconds = 0;
};

QString Cell(const QAbstractItemModel& model, int row, int column) {
  return model.index(row, column).data().toString();
}

TEST(GridModels, ShowRowsAtTheNextSyncAndNotBefore) {
  Tables tables;
  tables.Append({"1.5", "mPa.s", "25", "C"});
  EXPECT_EQ(tables.grid1.rowCount(), 1);
  EXPECT_TRUE(tables.grid1.Sync());
  EXPECT_EQ(tables.grid1.rowCount(), 2);
  EXPECT_FALSE(tables.grid1.Sync());
  EXPECT_EQ(Cell(tables.grid1, 0, 1), "1.5");
  EXPECT_EQ(Cell(tables.grid1, 1, 1), "");
}

TEST(GridModels, ColumnZeroIsTheVerticalHeaderInTheRunsColour) {
  Tables tables;
  tables.document.Load(data::ParseDataFile("No.,Time\n1,0\n11,0\n10,0\n"), "a", "");
  const auto header = [&](int row, int role) { return tables.grid1.headerData(row, Qt::Vertical, role); };
  EXPECT_EQ(header(1, Qt::DisplayRole).toString(), "11");
  EXPECT_EQ(header(0, Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 0));
  EXPECT_EQ(header(1, Qt::BackgroundRole).value<QColor>(), QColor(255, 0, 0)) << "run 11 as run 1";
  EXPECT_EQ(header(2, Qt::BackgroundRole).value<QColor>(), QColor(255, 204, 255));
  EXPECT_EQ(header(2, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black)) << "readable on a light colour";
  EXPECT_EQ(header(0, Qt::ForegroundRole).value<QColor>(), graph::ToQColor(graph::ReadableOn({0x0000FF})));
  EXPECT_FALSE(header(3, Qt::BackgroundRole).isValid()) << "the entry row has none";
  EXPECT_EQ(tables.grid1.index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
  EXPECT_EQ(tables.grid1.CornerTitle(), "No.");
}

TEST(GridModels, ARowHasTheColourOfItsCurve) {
  Tables tables;
  tables.document.Load(data::ParseDataFile("No.,Time\n1.6,0\n-1,0\n40000,0\nx,0\n"), "a", "");
  const auto color = [&](int row) { return tables.grid1.index(row, 0).data(Qt::ForegroundRole); };
  EXPECT_EQ(color(0).value<QColor>(), QColor(255, 0, 0)) << "run 1";
  EXPECT_EQ(color(1).value<QColor>(), QColor(255, 204, 255)) << "a number, but no run: entry 0";
  EXPECT_EQ(color(2).value<QColor>(), QColor(255, 204, 255));
  EXPECT_FALSE(color(3).isValid()) << "no number";
}

TEST(GridModels, ATextThatCannotBeReadStandsOnAPlateAndKeepsItsColour) {
  Tables tables;
  tables.document.Load(data::ParseDataFile("No.,Time\n1,0\n2,0\n3,0\nx,0\n"), "a", "");
  tables.colors = {{{{0}, {0xFFFFFF}, {0x000000}, {0x0000FF}}}, graph::Scheme::White};
  const auto told = [&](int row, int role) { return tables.grid1.index(row, 0).data(role); };
  const auto plated = [&] {
    std::vector<bool> rows;
    for (int row = 0; row < 4; ++row) rows.push_back(told(row, Qt::BackgroundRole).isValid());
    return rows;
  };
  EXPECT_EQ(plated(), std::vector({true, false, false, false}));
  EXPECT_EQ(told(0, Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
  EXPECT_LT(told(0, Qt::BackgroundRole).value<QColor>().lightness(), 60);

  QSignalSpy changes(&tables.grid1, &QAbstractItemModel::dataChanged);
  tables.grid1.SetBase(QColor(30, 34, 38));
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(plated(), std::vector({false, true, false, false}));
  EXPECT_EQ(told(1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));
  EXPECT_GT(told(1, Qt::BackgroundRole).value<QColor>().lightness(), 200);
  EXPECT_FALSE(tables.grid4.index(0, 0).data(Qt::BackgroundRole).isValid()) << "its texts have no colours";
}

TEST(GridModels, DisplayTableShowsTheChosenColumns) {
  Tables tables;
  tables.Append({"1.5", "mPa.s", "25", "C"});
  tables.Sync();
  EXPECT_EQ(tables.grid2.columnCount(), 3);
  EXPECT_EQ(tables.grid2.headerData(1, Qt::Horizontal).toString(), "Visco");
  EXPECT_EQ(Cell(tables.grid2, 0, 1), "1.5");
  EXPECT_EQ(Cell(tables.grid2, 0, 2), "25");
  tables.document.SetViscoColumn(5);
  EXPECT_EQ(Cell(tables.grid2, 0, 1), "C");
  EXPECT_EQ(tables.grid2.rowCount(), tables.grid1.rowCount());
}

TEST(GridModels, RunTableHasARowForEachRun) {
  Tables tables;
  EXPECT_EQ(tables.grid4.rowCount(), 0);
  tables.Append({"1"});
  tables.document.BeginMeasurement();
  tables.Append({"1"});
  tables.Sync();
  EXPECT_EQ(tables.grid4.rowCount(), 2);
  EXPECT_EQ(tables.grid4.headerData(1, Qt::Vertical).toString(), "No.2");
  EXPECT_EQ(tables.grid4.headerData(0, Qt::Horizontal).toString(), "Sample Name");
}

TEST(GridModels, ColumnsComeWithALongerReading) {
  Tables tables;
  tables.Append({"1", "2", "3", "4", "5", "6"});
  EXPECT_EQ(tables.grid1.columnCount(), 7);
  EXPECT_EQ(tables.grid1.headerData(6, Qt::Horizontal).toString(), "Data6");
}

TEST(GridModels, RemovalAcrossRowsThatAreNotShownYet) {
  Tables tables;
  for (const char* text : {"1", "2", "3"}) tables.Append({text});
  tables.Sync();
  for (const char* text : {"4", "5"}) tables.Append({text});
  tables.document.RemoveRows(5, 2);
  EXPECT_EQ(tables.grid1.rowCount(), 2);
  EXPECT_EQ(Cell(tables.grid1, 0, 1), "1");
  EXPECT_EQ(tables.grid2.rowCount(), 2);
}

TEST(GridModels, AreSoundThroughManyRandomChanges) {
  Tables tables;
  unsigned state = 7;
  const auto next = [&state](unsigned limit) {
    return (state = state * 1664525u + 1013904223u) / 65536u % limit;
  };
  for (int step = 0; step < 400; ++step) {
    const auto readings = tables.document.Grid1().Rows() - 2;
    switch (next(6)) {
      case 0:
        if (readings > 0) {
          const auto first = 1 + static_cast<data::Document::Row>(next(static_cast<unsigned>(readings)));
          tables.document.RemoveRows(first, std::min<data::Document::Row>(readings, first + next(3)));
        }
        break;
      case 1:
        tables.Sync();
        break;
      case 2:
        tables.document.BeginMeasurement();
        break;
      case 3:
        tables.document.SetCell(1, 2, "x");
        break;
      default:
        tables.Append({"1", "2"});
        break;
    }
  }
  tables.Sync();
  EXPECT_EQ(tables.grid1.rowCount(), tables.document.Grid1().Rows() - 1);
}

}  // namespace
}  // namespace quenlor::app
