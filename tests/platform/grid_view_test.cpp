// SPDX-License-Identifier: MIT
#include "platform/qt/grid_view.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

// A table that grows when it is told to, and shows that at the next Sync. Row 0 and column 0 are titles.
class GrowingTable : public GridTable {
 public:
  using Row = std::vector<QString>;

  explicit GrowingTable(std::vector<Row> rows) : rows_(std::move(rows)), shown_(Count() - 1) {}

  void Grow(const Row& row) { rows_.push_back(row); }
  void Anew(std::vector<Row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    shown_ = Count() - 1;
    endResetModel();
  }
  void Rename(int col, const QString& title) {
    rows_[0][static_cast<std::size_t>(col)] = title;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  }

  bool Sync() override {
    if (shown_ == Count() - 1) return false;
    beginInsertRows({}, shown_, Count() - 2);
    shown_ = Count() - 1;
    endInsertRows();
    return true;
  }
  QString CornerTitle() const override { return rows_[0][0]; }
  int rowCount(const QModelIndex& = {}) const override { return shown_; }
  int columnCount(const QModelIndex& = {}) const override { return static_cast<int>(rows_[0].size()) - 1; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole) return side;
    return role == Qt::DisplayRole ? QVariant(Text(index.row() + 1, index.column() + 1)) : QVariant();
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role == Qt::BackgroundRole && orientation == Qt::Vertical) return row_color;
    if (role == Qt::ForegroundRole && orientation == Qt::Vertical) return QColor(Qt::white);
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) return side;
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? Text(0, section + 1) : Text(section + 1, 0);
  }

  QVariant row_color;
  QVariant side;

 private:
  int Count() const { return static_cast<int>(rows_.size()); }
  QString Text(int row, int col) const {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
  }

  std::vector<Row> rows_;
  int shown_;
};

class GridViewTest : public testing::Test {
 protected:
  void SetUp() override {
    view.resize(400, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  }

  QAbstractButton& Corner() { return *view.findChild<QAbstractButton*>(); }
  QImage CornerPicture() { return Corner().grab().toImage(); }
  void Click(int row, int column, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, keys,
                      view.visualRect(table.index(row, column)).center());
  }
  void ClickRow(int row, Qt::KeyboardModifiers keys = {}) {
    QHeaderView* rows = view.verticalHeader();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, keys,
                      {5, rows->sectionViewportPosition(row) + rows->sectionSize(row) / 2});
  }
  void ExpectSelection(std::int64_t row, std::int64_t row_sel, int col, int col_sel) {
    const GridSelection selection = view.Selection();
    EXPECT_EQ(selection.Row, row);
    EXPECT_EQ(selection.RowSel, row_sel);
    EXPECT_EQ(selection.Col, col);
    EXPECT_EQ(selection.ColSel, col_sel);
  }

  GrowingTable table{{{"No.", "Time", "Visco"},
                      {"1", "00:00:01", "1.5"},
                      {"1", "00:00:02", "2.5"},
                      {"2", "00:00:00", "3.5"}}};
  GridView view{&table, QStringLiteral("Grid1"), QStringLiteral("A table"), nullptr};
};

TEST_F(GridViewTest, HasItsNameForProgramsAndItsTitleForThoseWhoDoNotSeeIt) {
  EXPECT_EQ(view.objectName(), "Grid1");
  EXPECT_EQ(view.accessibleName(), "A table");
}

// From the left end of a column to the first or last pixel of a letter in that row of a picture.
double InkIn(const QImage& picture, const QRect& cell, bool last) {
  const double scale = picture.devicePixelRatio();
  const auto at = [scale](int place) { return static_cast<int>(place * scale); };
  const auto dark = [&](int x) {
    for (int y = at(cell.top()); y < at(cell.bottom() - 1); ++y) {
      if (qGray(picture.pixel(x, y)) < 100) return true;
    }
    return false;
  };
  int x = at(last ? cell.right() - 1 : cell.left());
  while (x > 0 && x < at(cell.right()) && !dark(x)) x += last ? -1 : 1;
  return x / scale - cell.left();
}

TEST_F(GridViewTest, ATitleStandsWhereTheTextsOfItsColumnDo) {
  for (const auto side : {Qt::AlignLeft, Qt::AlignRight}) {
    table.side = QVariant(side | Qt::AlignVCenter);
    table.Anew({{"No.", "H", "H"}, {"1", "H", "H"}, {"2", "H", "H"}});
    const QHeaderView* header = view.horizontalHeader();
    const QRect title(header->sectionViewportPosition(1), 0, header->sectionSize(1), header->height());
    const QRect cell = view.visualRect(table.index(1, 1));
    const bool last = side == Qt::AlignRight;
    EXPECT_NEAR(InkIn(header->viewport()->grab().toImage(), title, last),
                InkIn(view.viewport()->grab().toImage(), cell, last), 0.75)
        << last;
  }
}

TEST_F(GridViewTest, TheCornerShowsTheTitleOfColumnZeroAsItIsNow) {
  const QImage before = CornerPicture();
  table.Rename(0, QStringLiteral("Run"));
  const QImage after = CornerPicture();
  table.Rename(0, {});
  const QImage empty = CornerPicture();
  EXPECT_NE(before, after);
  EXPECT_NE(before, empty);
  EXPECT_NE(after, empty);
}

TEST_F(GridViewTest, TheCornersTitleStandsOnTheLeftWithTheTextsOfItsColumn) {
  table.Rename(0, QStringLiteral("i"));
  const auto first_dark = [this] {
    const QImage picture = CornerPicture();
    const int scale = static_cast<int>(picture.devicePixelRatio());
    for (int x = 3; x < picture.width() - 3; ++x) {
      for (int y = 3; y < picture.height() - 3; ++y) {
        if (qGray(picture.pixel(x, y)) < 110) return x / scale;
      }
    }
    return -1;
  };
  view.verticalHeader()->setFixedWidth(120);
  QCoreApplication::processEvents();
  const int centred = first_dark();
  view.verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  const int left = first_dark();
  EXPECT_NEAR(centred, 60, 8);
  EXPECT_GT(left, 0);
  EXPECT_LT(left, 30);
}

TEST_F(GridViewTest, NothingIsSelectedAtFirst) { ExpectSelection(0, 0, 0, 0); }

TEST_F(GridViewTest, TheSelectionCountsRowsAndColumnsOfTheTableSmallerOnesFirst) {
  Click(2, 1);
  ExpectSelection(3, 3, 2, 2);
  Click(0, 0, Qt::ShiftModifier);
  ExpectSelection(1, 3, 1, 2);
}

TEST_F(GridViewTest, AClickOnColumnZeroSelectsTheRestOfTheRow) {
  ClickRow(1);
  ExpectSelection(2, 2, 1, 2);
  ClickRow(0, Qt::ShiftModifier);
  ExpectSelection(1, 2, 1, 2);
}

TEST_F(GridViewTest, KeysAndDoubleClicksAreTold) {
  const QSignalSpy keys(&view, &GridView::Grid_KeyDown);
  const QSignalSpy double_clicks(&view, &GridView::Grid_DblClick);
  QTest::keyClick(&view, Qt::Key_Delete);
  ASSERT_EQ(keys.size(), 1);
  EXPECT_EQ(keys[0][0].toInt(), 46);
  QTest::keyClick(&view, Qt::Key_F2);
  EXPECT_EQ(double_clicks.size(), 1);
  Click(1, 1);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(table.index(1, 1)).center());
  EXPECT_EQ(double_clicks.size(), 2);
  QTest::mouseDClick(view.verticalHeader()->viewport(), Qt::LeftButton, {}, {5, 5});
  EXPECT_EQ(double_clicks.size(), 3);
  QTest::mouseDClick(view.horizontalHeader()->viewport(), Qt::LeftButton, {}, {5, 5});
  EXPECT_EQ(double_clicks.size(), 4);
  EXPECT_EQ(keys.size(), 1);
}

TEST_F(GridViewTest, ColumnsGrowWithTheirTextsAndNeverShrink) {
  view.resize(1200, 400);
  const QString wide(20, u'8');
  table.Grow({"2", "00:00:01", wide});
  view.Sync();
  const int width = view.columnWidth(1);
  EXPECT_GT(width, view.fontMetrics().horizontalAdvance(wide));
  table.Anew({{"No.", "Time", "Visco"}, {"1", "00:00:01", "1.5"}});
  EXPECT_EQ(view.columnWidth(1), width);
}

TEST_F(GridViewTest, OneLongTextLeavesTheOtherColumnsInReach) {
  view.resize(1200, 400);
  table.Grow({"2", "00:00:01", QString(1000, u'8')});
  view.Sync();
  EXPECT_EQ(view.columnWidth(1), view.viewport()->width() / 3);
  table.Rename(1, QString(1000, u'W'));
  EXPECT_EQ(view.columnWidth(0), view.viewport()->width() / 3);
}

TEST_F(GridViewTest, EveryPixelOfARunNumberSelectsItsRow) {
  QHeaderView* header = view.verticalHeader();
  for (int row = 0; row < 2; ++row) {
    for (int y = 0; y < header->sectionSize(row); ++y) {
      view.clearSelection();
      const QPoint at(4, header->sectionViewportPosition(row) + y);
      QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
      ASSERT_EQ(view.Selection().Row, row + 1) << y;
      ASSERT_EQ(view.Selection().RowSel, row + 1) << y;
    }
  }
}

TEST_F(GridViewTest, ADoubleClickOnARunNumberIsAboutThatRow) {
  QSignalSpy double_clicks(&view, &GridView::Grid_DblClick);
  Click(0, 1);
  QHeaderView* header = view.verticalHeader();
  const QPoint edge(4, header->sectionViewportPosition(1));
  QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, edge);
  EXPECT_EQ(double_clicks.count(), 1);
  EXPECT_EQ(view.Selection().Row, 2);
}

TEST_F(GridViewTest, OnlyTheLeftButtonEdits) {
  QSignalSpy double_clicks(&view, &GridView::Grid_DblClick);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseDClick(view.verticalHeader()->viewport(), button, {}, QPoint(4, 8));
    QTest::mouseDClick(view.horizontalHeader()->viewport(), button, {}, QPoint(8, 8));
    QTest::mouseDClick(view.viewport(), button, {}, QPoint(8, 8));
  }
  EXPECT_EQ(double_clicks.count(), 0);
}

TEST_F(GridViewTest, CopyPutsTheSelectedBlockOnTheClipboard) {
  view.selectRow(0);
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  const QString row = QGuiApplication::clipboard()->text();
  EXPECT_EQ(row.count(u'\t'), 2) << row.toStdString();
  EXPECT_TRUE(row.startsWith(table.headerData(0, Qt::Vertical, Qt::DisplayRole).toString() + u'\t'));

  QHeaderView* titles = view.horizontalHeader();
  QTest::mouseClick(titles->viewport(), Qt::LeftButton, {},
                    {titles->sectionViewportPosition(1) + titles->sectionSize(1) / 2, 5});
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("Visco\n")))
      << QGuiApplication::clipboard()->text().toStdString();
}

TEST_F(GridViewTest, TheNewestRowComesIntoViewAndTheSelectionStays) {
  Click(1, 1);
  for (int i = 0; i < 200; ++i) table.Grow({"3", "00:00:00", "1"});
  EXPECT_EQ(table.rowCount(), 3) << "nothing is shown before it is asked for";
  view.Sync();
  EXPECT_EQ(table.rowCount(), 203);
  EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
  ExpectSelection(2, 2, 2, 2);
  EXPECT_EQ(view.Sync(), 0) << "nothing new";
}

TEST_F(GridViewTest, AHandOnTheScrollBarWins) {
  for (int i = 0; i < 200; ++i) table.Grow({"3", "00:00:00", "1"});
  view.Sync();
  view.verticalScrollBar()->setSliderDown(true);
  view.verticalScrollBar()->setValue(7);
  table.Grow({"3", "00:00:00", "1"});
  view.Sync();
  EXPECT_EQ(view.verticalScrollBar()->value(), 7);
  view.verticalScrollBar()->setSliderDown(false);
  table.Grow({"3", "00:00:00", "1"});
  view.Sync();
  EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
}

TEST_F(GridViewTest, ARowsColourIsShownAsItIs) {
  table.row_color = QColor(10, 120, 30);
  view.verticalHeader()->viewport()->update();
  const QImage picture = view.verticalHeader()->grab().toImage();
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(10, 120, 30));
}

}  // namespace
}  // namespace quenlor::platform::qt
