// SPDX-License-Identifier: MIT
#include "app/window/window_state.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

TEST(WindowStateText, ReadsBackWhatItWrites) {
  const WindowState written{QByteArray("\x01\xd9\xd0\xcb\x00\x7f", 6), 7512.5};
  EXPECT_EQ(written.Text(), "01d9d0cb007f\r\n7512.5\r\n");
  const auto read = WindowState::Parse(written.Text());
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->geometry, written.geometry);
  EXPECT_EQ(read->posi_left, written.posi_left);
}

TEST(WindowStateText, AnythingElseIsNothing) {
  for (const char* text : {"", "\r\n", "01d9", "01d9\r\n", "01d9\r\nabc\r\n", "\r\n7500\r\n",
                           "01D9\r\n7500\r\n", "xyz\r\n7500\r\n", "01 d9\r\n7500\r\n"}) {
    EXPECT_FALSE(WindowState::Parse(text).has_value()) << text;
  }
}

class WindowStateTest : public WindowTest {
 protected:
  graph::TableAndGraph& Halves() { return *window->findChild<graph::TableAndGraph*>(); }
  void End() {
    window->close();
    window.reset();
  }
  void DragBar(int pixels) {
    auto* bar = Find<QWidget>("Posi");
    const QPoint start(3, 50);
    QTest::mousePress(bar, Qt::LeftButton, {}, start);
    QTest::mouseMove(bar, start + QPoint(pixels, 0));
    QTest::mouseRelease(bar, Qt::LeftButton, {}, start);
  }
};

TEST_F(WindowStateTest, SizeAndBarComeBackAtTheNextStart) {
  Open();
  const QSize usual = window->size();
  window->resize(window->minimumSizeHint() + QSize(10, 60));
  DragBar(-50);
  const QSize size = window->size();
  const double bar = Halves().PosiLeft();
  ASSERT_NE(size, usual);
  ASSERT_EQ(bar, 7500 - 50 * 15);
  End();
  EXPECT_TRUE(WindowState::Parse(File("Window.txt")).has_value());

  Open();
  EXPECT_EQ(window->size(), size);
  EXPECT_EQ(Halves().PosiLeft(), bar);
}

TEST_F(WindowStateTest, SettingsFileKeepsItsNineteenLines) {
  Open();
  window->resize(900, 600);
  DragBar(40);
  End();
  Open();
  End();
  const std::string settings = File("quenlor.ini");
  EXPECT_EQ(std::count(settings.begin(), settings.end(), '\n'), 19);
}

TEST_F(WindowStateTest, AWindowThatStaysOpenWritesNothing) {
  Open();
  window->resize(900, 600);
  DragBar(40);
  EXPECT_EQ(File("Window.txt"), "");
}

TEST_F(WindowStateTest, NoiseInItsFileGivesTheUsualWindow) {
  Open();
  const QSize usual = window->size();
  const double bar = Halves().PosiLeft();
  End();
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise.push_back(static_cast<char>(i * 37 + i / 7));
  for (const std::string& text : {noise, std::string("\n\n\n"), std::string("zz\r\n5000\r\n")}) {
    PutFile("Window.txt", text);
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->size(), usual);
    EXPECT_EQ(Halves().PosiLeft(), bar);
    End();
  }
}

TEST_F(WindowStateTest, ABarFromNowhereStandsInsideTheWindow) {
  for (const char* left : {"1e308", "-1e308", "1e30", "99999999", "0", "-5"}) {
    PutFile("Window.txt", std::string("00\r\n") + left + "\r\n");
    Open();
    EXPECT_GT(Halves().PosiLeft(), 3600) << left;
    EXPECT_LE(Halves().PosiLeft(), Halves().width() * 15.0) << left;
    const QRect bar = Find<QWidget>("Posi")->geometry();
    EXPECT_TRUE(Halves().rect().intersects(bar)) << left;
    End();
  }
}

TEST_F(WindowStateTest, WithoutAFolderToWriteToTheWindowStillCloses) {
  files.Refuse(kFolder, "Read-only file system");
  Open();
  window->close();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace quenlor::app
