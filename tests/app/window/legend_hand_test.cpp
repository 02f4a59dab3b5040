// SPDX-License-Identifier: MIT
// The legend under the pointer: the run in front, its tip, its menu, and the others hidden.

#include <QHelpEvent>
#include <QTimer>

#include <gtest/gtest.h>

#include "graph/screen_color.h"
#include "tests/app/window/change_editor.h"
#include "tests/app/window/plot_hand.h"

namespace quenlor::app {
namespace {

class LegendHandTest : public PlotHandTest {
 protected:
  graph::Caption* Entry(int run) {
    return Find<graph::Caption>(("Label10[" + std::to_string(run) + "]").c_str());
  }
  void PointAt(int run) {
    QEnterEvent enter({5, 5}, {5, 5}, Entry(run)->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(Entry(run), &enter);
  }
  void Leave(int run) {
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(Entry(run), &leave);
  }
  // Opens the menu at that run's entry and does that with it, while it is open.
  void WithMenu(int run, const std::function<void(QMenu&)>& act) {
    bool opened = false;
    QTimer::singleShot(0, window.get(), [&] {
      auto* menu = window->findChild<QMenu*>(QStringLiteral("GraphMenu"));
      ASSERT_NE(menu, nullptr);
      opened = true;
      act(*menu);
      menu->close();
    });
    const QPoint at(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, Entry(run)->mapToGlobal(at));
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(Entry(run), &event);
    EXPECT_TRUE(opened);
  }
  static QAction* Item(const QMenu& menu, const char* caption) {
    for (QAction* item : menu.actions())
      if (item->text() == QLatin1String(caption)) return item;
    ADD_FAILURE() << "no item " << caption;
    return nullptr;
  }
  void Choose(int run, const char* caption) {
    WithMenu(run, [&](QMenu& menu) {
      QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(Item(menu, caption)).center());
    });
  }
  bool Checked(int run, const char* caption) {
    bool checked = false;
    WithMenu(run, [&](QMenu& menu) { checked = Item(menu, caption)->isChecked(); });
    return checked;
  }
  QColor Own(int run) { return graph::ToQColor(graph::RunColor(graph::kDefaultColors, run)); }
};

TEST_F(LegendHandTest, ARunUnderThePointerIsInFrontOfPaleOthers) {
  OpenTwoRuns();
  const QImage before = Picture();
  ASSERT_TRUE(Has(before, Own(1)) && Has(before, Own(2)));
  PointAt(1);
  const QImage first = Picture();
  EXPECT_TRUE(Has(first, Own(1)));
  EXPECT_FALSE(Has(first, Own(2))) << "it is pale";
  Leave(1);
  PointAt(2);
  EXPECT_TRUE(Has(Picture(), Own(2)));
  EXPECT_FALSE(Has(Picture(), Own(1)));
  Leave(2);
  EXPECT_TRUE(Picture() == before);
}

TEST_F(LegendHandTest, ReadingsThatComeWhileARunIsInFrontAreShown) {
  Open();
  Run({"20", "80", "20", "80"});
  Click("Command1");
  Reading("30");
  Reading("40");
  ASSERT_TRUE(Becomes("Label10[2]", "No.2\n40"));
  PointAt(2);
  const QImage before = Picture();
  Reading("70");
  EXPECT_TRUE(PictureChanges(before));
  EXPECT_FALSE(Has(Picture(), Own(1)));
  Leave(2);
  Click("Command1");
}

TEST_F(LegendHandTest, TheTipHasWholeNameFirstAndLastReadingAndCount) {
  OpenTwoRuns();
  QHelpEvent help(QEvent::ToolTip, {5, 5}, Entry(1)->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(Entry(1), &help);
  EXPECT_EQ(Entry(1)->toolTip().toStdString(),
            "No.1\nFirst: 0, 20 mPa.s, 20\nLast: 170, 80 mPa.s, 30\n2 readings");
}

TEST_F(LegendHandTest, ARunIsRenamedFromItsMenu) {
  OpenTwoRuns();
  EXPECT_EQ(Edit([&] { Choose(2, "Sample &Name..."); }, app::Enter("Lot 7"))->text, "No.2");
  EXPECT_TRUE(Becomes("Label10[2]", "Lot 7\n40"));
  QApplication::setActiveWindow(window.get());
  QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(Becomes("Label10[2]", "No.2\n40"));
}

TEST_F(LegendHandTest, OthersAreHiddenUntilChosenAgain) {
  OpenTwoRuns();
  const QImage before = Picture();
  EXPECT_FALSE(Checked(2, "&Hide Others"));
  Choose(2, "&Hide Others");
  EXPECT_TRUE(Has(Picture(), Own(2)));
  EXPECT_FALSE(Has(Picture(), Own(1)));
  EXPECT_EQ(ColorOf("Label10[2]"), Own(2));
  EXPECT_NE(ColorOf("Label10[1]"), Own(1)) << "its entry is pale";
  EXPECT_TRUE(Checked(2, "&Hide Others"));
  EXPECT_FALSE(Checked(1, "&Hide Others"));
  PointAt(1);
  EXPECT_TRUE(Has(Picture(), Own(1))) << "shown while the pointer asks for it";
  Leave(1);
  EXPECT_FALSE(Has(Picture(), Own(1)));
  Choose(2, "&Hide Others");
  EXPECT_TRUE(Picture() == before);
  EXPECT_EQ(ColorOf("Label10[1]"), Own(1));
}

TEST_F(LegendHandTest, HiddenReadingsAreNotTold) {
  OpenTwoRuns();
  Choose(2, "&Hide Others");
  Picture();
  const QPoint second = At(170.0 / 180, (80 - Ranges().ViscoMin) / (Ranges().ViscoMax - Ranges().ViscoMin));
  QMouseEvent move(QEvent::MouseMove, second, Plot()->mapToGlobal(second), Qt::NoButton, Qt::NoButton, {});
  QApplication::sendEvent(Plot(), &move);
  EXPECT_EQ(Find<graph::PlotPicture>("Picture2")->Told().left(5), QStringLiteral("No.2\n"));
}

TEST_F(LegendHandTest, AllAreShownAgainByEscANewRunOrAnotherDocument) {
  OpenTwoRuns();
  Choose(2, "&Hide Others");
  QTest::keyClick(Plot(), Qt::Key_Escape);
  EXPECT_TRUE(Has(Picture(), Own(1)));
  Choose(2, "&Hide Others");
  Run({"50", "60"});
  ASSERT_TRUE(Becomes("Label10[3]", "No.3\n60"));
  EXPECT_TRUE(Has(Picture(), Own(1)));
  Choose(2, "&Hide Others");
  window->OpenFile("/d/x.csv");
  ASSERT_TRUE(WaitFor([&] { return !Shown("Label10[3]"); }));
  EXPECT_TRUE(Has(Picture(), Own(1)));
}

}  // namespace
}  // namespace quenlor::app
