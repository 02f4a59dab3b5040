// SPDX-License-Identifier: MIT
#include "graph/color_window.h"

#include <QApplication>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/screen_color.h"

namespace quenlor::graph {
namespace {

constexpr Color kOlive{0x008080};

bool WaitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 10'000); }

ColorTable Greys() {
  ColorTable colors;
  for (std::uint32_t i = 0; i < 10; ++i) colors[i] = {0x111111 * (i + 1)};
  return colors;
}

QImage Painted(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

int CountPixels(const QImage& image, const QColor& color) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color;
  }
  return count;
}

// Pixels of a caption: not at the edge, where frames are, and nearer to the ink than to its paper.
int CountInk(const QImage& image, const QColor& ink, const QColor& paper) {
  const int edge = static_cast<int>(6 * image.devicePixelRatio());
  const QImage inside = image.copy(image.rect().adjusted(edge, edge, -edge, -edge));
  const auto distance = [](QRgb pixel, const QColor& color) {
    return std::abs(qGray(pixel) - qGray(color.rgb()));
  };
  int count = 0;
  for (int y = 0; y < inside.height(); ++y) {
    for (int x = 0; x < inside.width(); ++x)
      count += distance(inside.pixel(x, y), ink) < distance(inside.pixel(x, y), paper);
  }
  return count;
}

class ColorWindowTest : public testing::Test {
 protected:
  void Open(const ColorSettings& current = ColorSettings(), int line_width = 2) {
    const auto take = [this](const ColorSettings& settings) {
      ++times_taken;
      taken = settings;
      visible_when_taken = window->isVisible();
    };
    window = new ColorWindow(current, line_width, take, &owner);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }

  template <class Widget>
  Widget& Find(const QString& name) {
    auto* found = window->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return *found;
  }

  ColorButton& No(int entry) { return Find<ColorButton>(QStringLiteral("Command4[%1]").arg(entry)); }
  SampleLine& Line(int entry) { return Find<SampleLine>(QStringLiteral("Line1[%1]").arg(entry)); }
  QRadioButton& Option(int index) { return Find<QRadioButton>(QStringLiteral("Option1[%1]").arg(index)); }

  static void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
  static void Select(QRadioButton& option) {
    QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
  }
  void Reset() { Click(Find<QPushButton>("Command1")); }
  void OK() { Click(Find<QPushButton>("Command2")); }
  void Cancel() { Click(Find<QPushButton>("Command3")); }

  // The palette that is on the screen; nothing when there is none or, wrongly, more than one.
  PaletteWindow* Palette() {
    PaletteWindow* shown = nullptr;
    for (auto* palette : window->findChildren<PaletteWindow*>()) {
      if (!palette->isVisible()) continue;
      if (shown) return nullptr;
      shown = palette;
    }
    return shown;
  }

  PaletteWindow& OpenPalette(int entry) {
    Click(No(entry));
    EXPECT_NE(Palette(), nullptr) << entry;
    EXPECT_TRUE(QTest::qWaitForWindowExposed(Palette()));
    return *Palette();
  }

  static ColorButton& PaletteButton(PaletteWindow& palette, int k) {
    return *palette.findChild<ColorButton*>(QStringLiteral("Command1[%1]").arg(k));
  }

  ColorTable Shown() {
    ColorTable colors;
    for (int i = 0; i < 10; ++i) colors[static_cast<std::size_t>(i)] = Line(i).LineColor();
    return colors;
  }

  QWidget owner;
  QPointer<ColorWindow> window;
  std::optional<ColorSettings> taken;
  int times_taken = 0;
  bool visible_when_taken = false;
};

TEST_F(ColorWindowTest, ShowsTheCurrentColoursOnButtonsAndLines) {
  Open(ColorSettings(Greys(), Scheme::Black));

  EXPECT_EQ(window->windowTitle(), "Color");
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(No(i).BackColor(), RunColor(Greys(), i)) << i;
    EXPECT_EQ(Line(i).LineColor(), RunColor(Greys(), i)) << i;
  }
  EXPECT_TRUE(Option(1).isChecked());
  EXPECT_FALSE(Option(0).isChecked());
}

TEST_F(ColorWindowTest, WhiteIsSelectedOnAWhiteBackground) {
  Open();

  EXPECT_TRUE(Option(0).isChecked());
  EXPECT_FALSE(Option(1).isChecked());
}

TEST_F(ColorWindowTest, EveryButtonBearsTheNumberOfItsRunAndNumberTenHasEntryZero) {
  Open();

  for (int entry = 1; entry <= 9; ++entry) {
    EXPECT_EQ(No(entry).text().remove('&'), QStringLiteral("No.%1").arg(entry));
  }
  EXPECT_EQ(No(0).text().remove('&'), "No.10");
}

TEST_F(ColorWindowTest, CaptionsAreThoseOfTheWindow) {
  Open();

  EXPECT_EQ(Find<QGroupBox>("Frame1").title(), "Back Color");
  EXPECT_EQ(Option(0).text().remove('&'), " White");
  EXPECT_EQ(Option(1).text().remove('&'), " Black");
  EXPECT_EQ(Find<QPushButton>("Command1").text().remove('&'), "Reset");
  EXPECT_EQ(Find<QPushButton>("Command2").text().remove('&'), "OK");
  EXPECT_EQ(Find<QPushButton>("Command3").text().remove('&'), "Cancel");
  QStringList labels;
  for (const auto* label : window->findChildren<QLabel*>()) labels += label->text();
  EXPECT_TRUE(labels.contains("Line"));
}

TEST_F(ColorWindowTest, ButtonsStandInOrderWithTheirLinesBesideThem) {
  Open();

  for (int number = 1; number < 10; ++number) {
    EXPECT_LT(No(number).y(), No((number + 1) % 10).y()) << number;
  }
  for (int entry = 0; entry < 10; ++entry) {
    EXPECT_GT(Line(entry).x(), No(entry).geometry().right()) << entry;
    EXPECT_NEAR(Line(entry).geometry().center().y(), No(entry).geometry().center().y(), 1) << entry;
  }
}

TEST_F(ColorWindowTest, LineIsAsWideAsInTheGraph) {
  for (const int width : {1, 2}) {
    Open(ColorSettings(), width);

    const QImage image = Painted(Line(3));

    int rows = 0;
    for (int y = 0; y < image.height(); ++y)
      rows += image.pixelColor(image.width() / 2, y) == QColor(0, 153, 255);
    EXPECT_LT(std::abs(rows - width * window->devicePixelRatio()), 1);
    Cancel();
  }
}

TEST_F(ColorWindowTest, LineWidthFollowsTheGraphWhileTheWindowIsOpen) {
  Open(ColorSettings(), 1);
  const int thin = CountPixels(Painted(Line(3)), QColor(0, 153, 255));

  window->SetLineWidth(2);

  EXPECT_GT(CountPixels(Painted(Line(3)), QColor(0, 153, 255)), thin);
}

TEST_F(ColorWindowTest, LinesLieOnTheSelectedBackground) {
  Open();
  EXPECT_EQ(Painted(Line(1)).pixelColor(0, 0), QColor(Qt::white));

  Select(Option(1));
  EXPECT_EQ(Painted(Line(1)).pixelColor(0, 0), QColor(Qt::black));

  Select(Option(0));
  EXPECT_EQ(Painted(Line(1)).pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(ColorWindowTest, OKHandsOverWhatIsShownOnceAndThenCloses) {
  Open(ColorSettings(Greys(), Scheme::White));
  window->SetColor(0, kOlive);
  Select(Option(1));

  OK();

  ColorTable expected = Greys();
  expected[0] = kOlive;
  EXPECT_EQ(taken, ColorSettings(expected, Scheme::Black));
  EXPECT_EQ(times_taken, 1);
  EXPECT_TRUE(visible_when_taken);
  EXPECT_TRUE(WaitFor([&] { return !window; }));
}

TEST_F(ColorWindowTest, OKWithoutAChangeHandsOverTheSameSettings) {
  for (const Scheme scheme : {Scheme::White, Scheme::Black}) {
    Open(ColorSettings(Greys(), scheme));

    OK();

    EXPECT_EQ(taken, ColorSettings(Greys(), scheme));
  }
}

TEST_F(ColorWindowTest, EnterIsOKWhileNoOtherButtonHasTheFocus) {
  Open();
  Option(0).setFocus();

  QTest::keyClick(&Option(0), Qt::Key_Return);

  EXPECT_EQ(times_taken, 1);
  EXPECT_TRUE(WaitFor([&] { return !window; }));
}

TEST_F(ColorWindowTest, CancelEscapeAndTheCloseBoxHandOverNothing) {
  const std::function<void()> kWays[] = {[&] { Cancel(); }, [&] { QTest::keyClick(window, Qt::Key_Escape); },
                                         [&] { window->close(); }};
  for (const auto& leave : kWays) {
    Open();
    window->SetColor(1, kOlive);

    leave();

    EXPECT_TRUE(WaitFor([&] { return !window; }));
  }
  EXPECT_EQ(times_taken, 0);
}

TEST_F(ColorWindowTest, ResetShowsTheDefaultsOnWhiteAndKeepsNothing) {
  Open(ColorSettings(Greys(), Scheme::Black));

  Reset();

  EXPECT_EQ(Shown(), kDefaultColors);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(No(i).BackColor(), RunColor(kDefaultColors, i)) << i;
  EXPECT_TRUE(Option(0).isChecked());
  EXPECT_EQ(Painted(Line(1)).pixelColor(0, 0), QColor(Qt::white));
  EXPECT_EQ(times_taken, 0);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(ColorWindowTest, ResetAndOKHandOverTheDefaults) {
  Open(ColorSettings(Greys(), Scheme::Black));

  Reset();
  OK();

  EXPECT_EQ(taken, ColorSettings());
}

TEST_F(ColorWindowTest, ResetAndCancelHandOverNothing) {
  Open(ColorSettings(Greys(), Scheme::Black));

  Reset();
  Cancel();

  EXPECT_EQ(times_taken, 0);
}

TEST_F(ColorWindowTest, IsNotModalSoThatAMeasurementCanBeStopped) {
  Open();

  EXPECT_FALSE(window->isModal());
}

TEST_F(ColorWindowTest, GoesWithItsOwner) {
  auto parent = std::make_unique<QWidget>();
  QPointer<ColorWindow> owned = new ColorWindow(
      ColorSettings(), 2, [](const ColorSettings&) {}, parent.get());
  owned->show();
  QTest::mouseClick(owned->findChild<QWidget*>("Command4[3]"), Qt::LeftButton);

  parent.reset();

  EXPECT_TRUE(owned.isNull());
}

TEST_F(ColorWindowTest, PaletteHasTenFixedColoursWhateverTheTableHolds) {
  constexpr std::array kLevels = {"255, 0, 0", "0, 187, 0",   "0, 153, 255", "204, 0, 255", "255, 187, 0",
                                  "204, 0, 0", "0, 255, 255", "153, 255, 0", "238, 238, 0", "255, 204, 255"};
  Open(ColorSettings(Greys(), Scheme::Black));

  PaletteWindow& palette = OpenPalette(4);

  for (int k = 1; k <= 10; ++k) {
    const Color color = PaletteButton(palette, k).BackColor();
    EXPECT_EQ(QStringLiteral("%1, %2, %3").arg(color.Red()).arg(color.Green()).arg(color.Blue()),
              kLevels[static_cast<std::size_t>(k - 1)])
        << k;
  }
  EXPECT_EQ(palette.findChild<QPushButton*>("Command2")->text().remove('&'), "Cancel");
}

TEST_F(ColorWindowTest, PaletteBearsTheCaptionOfTheChosenButton) {
  Open();

  EXPECT_EQ(OpenPalette(3).windowTitle(), "No.3");
  EXPECT_EQ(OpenPalette(0).windowTitle(), "No.10");
}

TEST_F(ColorWindowTest, ChoiceOnThePaletteShowsOnButtonAndLineOnly) {
  Open(ColorSettings(Greys(), Scheme::White));
  QPointer<PaletteWindow> palette = &OpenPalette(3);

  Click(PaletteButton(*palette, 5));

  ColorTable expected = Greys();
  expected[3] = {0x00BBFF};
  EXPECT_EQ(Shown(), expected);
  EXPECT_EQ(No(3).BackColor(), Color{0x00BBFF});
  EXPECT_EQ(times_taken, 0);
  EXPECT_TRUE(WaitFor([&] { return !palette; }));
  EXPECT_TRUE(window->isVisible());
}

TEST_F(ColorWindowTest, EveryPaletteButtonGivesItsColourToEveryEntry) {
  Open(ColorSettings(Greys(), Scheme::White));
  for (int entry = 0; entry < 10; ++entry) {
    const int k = 10 - entry;

    Click(PaletteButton(OpenPalette(entry), k));

    EXPECT_EQ(Line(entry).LineColor(), RunColor(kDefaultColors, k)) << entry;
  }
}

TEST_F(ColorWindowTest, NumberTenGoesToEntryZero) {
  Open(ColorSettings(Greys(), Scheme::White));

  Click(PaletteButton(OpenPalette(0), 1));
  OK();

  ColorTable expected = Greys();
  expected[0] = {0x0000FF};
  EXPECT_EQ(taken->Colors(), expected);
}

TEST_F(ColorWindowTest, CancelEscapeAndTheCloseBoxOfThePaletteChangeNothing) {
  Open(ColorSettings(Greys(), Scheme::White));
  const std::function<void(PaletteWindow&)> kWays[] = {
      [](PaletteWindow& palette) { Click(*palette.findChild<QPushButton*>("Command2")); },
      [](PaletteWindow& palette) { QTest::keyClick(&palette, Qt::Key_Escape); },
      [](PaletteWindow& palette) { palette.close(); }};
  for (const auto& leave : kWays) {
    QPointer<PaletteWindow> palette = &OpenPalette(2);

    leave(*palette);

    EXPECT_TRUE(WaitFor([&] { return !palette; }));
    EXPECT_EQ(Shown(), Greys());
    EXPECT_TRUE(window->isVisible());
  }
}

TEST_F(ColorWindowTest, OpeningAPaletteClosesTheOpenOne) {
  Open(ColorSettings(Greys(), Scheme::White));
  QPointer<PaletteWindow> first = &OpenPalette(1);

  PaletteWindow& second = OpenPalette(2);

  EXPECT_NE(&second, first);
  EXPECT_TRUE(WaitFor([&] { return !first; }));
  Click(PaletteButton(second, 1));
  EXPECT_EQ(Shown()[1], Greys()[1]);
  EXPECT_EQ(Shown()[2], Color{0x0000FF});
}

TEST_F(ColorWindowTest, PaletteClosesWithTheWindow) {
  const std::function<void()> kWays[] = {[&] { OK(); }, [&] { Cancel(); }, [&] { window->close(); }};
  for (const auto& leave : kWays) {
    Open();
    QPointer<PaletteWindow> palette = &OpenPalette(1);

    leave();

    EXPECT_FALSE(palette && palette->isVisible());
    EXPECT_TRUE(WaitFor([&] { return !palette && !window; }));
  }
}

TEST_F(ColorWindowTest, ChangingTheBackgroundLeavesAnOpenPaletteAlone) {
  Open();
  OpenPalette(1);

  Select(Option(1));

  EXPECT_NE(Palette(), nullptr);
}

TEST_F(ColorWindowTest, PaletteStandsBesideTheWindow) {
  Open();
  if (window->screen()->availableGeometry().width() < 700) GTEST_SKIP() << "no room for two windows";
  window->move(window->screen()->availableGeometry().topLeft());

  PaletteWindow& palette = OpenPalette(1);

  EXPECT_FALSE(palette.frameGeometry().intersects(window->frameGeometry()));
  EXPECT_TRUE(palette.screen()->availableGeometry().contains(palette.geometry()));
}

TEST_F(ColorWindowTest, PaletteStandsBesideAWindowAtTheScreensEdge) {
  Open();
  if (window->screen()->availableGeometry().width() < 700) GTEST_SKIP() << "no room for two windows";
  window->move(window->screen()->availableGeometry().right() - window->frameGeometry().width(), 20);

  PaletteWindow& palette = OpenPalette(1);

  EXPECT_FALSE(palette.frameGeometry().intersects(window->frameGeometry()));
  EXPECT_TRUE(palette.screen()->availableGeometry().contains(palette.geometry()));
}

TEST_F(ColorWindowTest, KeysAloneChangeAColourAndTheBackground) {
  Open(ColorSettings(Greys(), Scheme::White));
  ASSERT_TRUE(No(1).hasFocus());

  QTest::keyClick(&No(1), Qt::Key_Tab);
  ASSERT_TRUE(No(2).hasFocus());
  QTest::keyClick(&No(2), Qt::Key_Space);
  PaletteWindow* palette = Palette();
  ASSERT_TRUE(palette);
  ASSERT_TRUE(WaitFor([&] { return PaletteButton(*palette, 1).hasFocus(); }));
  QTest::keyClick(palette->focusWidget(), Qt::Key_Right);
  QTest::keyClick(palette->focusWidget(), Qt::Key_Right);
  QTest::keyClick(palette->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Shown()[2], Color{0xFF9900});

  window->activateWindow();  // a desktop's window manager goes back by itself
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  QTest::keyClick(window, Qt::Key_B, Qt::AltModifier);
  ASSERT_TRUE(WaitFor([&] { return Option(1).isChecked(); }));
  QTest::keyClick(window, Qt::Key_O, Qt::AltModifier);
  ASSERT_TRUE(WaitFor([&] { return times_taken == 1; }));
  EXPECT_EQ(taken->BackScheme(), Scheme::Black);
}

TEST_F(ColorWindowTest, TabVisitsEverythingFromTopToBottom) {
  Open();
  QStringList visited;
  for (int i = 0; i < 14; ++i) {
    visited += window->focusWidget()->objectName();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  }

  EXPECT_EQ(visited.join(' ').toStdString(),
            "Command4[1] Command4[2] Command4[3] Command4[4] Command4[5] Command4[6] Command4[7] Command4[8] "
            "Command4[9] Command4[0] Option1[0] Command1 Command2 Command3");
  EXPECT_TRUE(No(1).hasFocus());
}

TEST_F(ColorWindowTest, AltAndTheLastDigitPressTheButtonOfThatNumber) {
  Open();
  for (int digit = 0; digit < 10; ++digit) {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));

    QTest::keyClick(window, static_cast<Qt::Key>(Qt::Key_0 + digit), Qt::AltModifier);

    ASSERT_TRUE(WaitFor([&] { return Palette() != nullptr; })) << digit;
    EXPECT_EQ(Palette()->windowTitle(), QStringLiteral("No.%1").arg(digit == 0 ? 10 : digit));
    Palette()->close();
  }
}

TEST_F(ColorWindowTest, NamesSayTheColourToThoseWhoDoNotSeeIt) {
  Open();
  EXPECT_EQ(No(3).accessibleName(), "No.3, colour 0, 153, 255");
  EXPECT_EQ(No(0).accessibleName(), "No.10, colour 255, 204, 255");
  EXPECT_EQ(PaletteButton(OpenPalette(3), 6).accessibleName(), "Dark red, colour 204, 0, 0");

  window->SetColor(3, kBlack);

  EXPECT_EQ(No(3).accessibleName(), "No.3, colour 0, 0, 0");
}

TEST_F(ColorWindowTest, EveryControlHasANameAndAToolTip) {
  Open();
  OpenPalette(1);
  for (const auto* button : window->findChildren<QAbstractButton*>()) {
    EXPECT_FALSE(button->objectName().isEmpty());
    EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
        << button->objectName().toStdString();
  }
}

// In every style and theme the button is its colour, with a caption that can be read.
TEST_F(ColorWindowTest, ButtonsShowTheirColourInEveryStyleAndTheme) {
  const QString usual = QApplication::style()->objectName();
  const QPalette usual_palette = QApplication::palette();
  for (const QString& style : QStyleFactory::keys()) {
    QApplication::setStyle(style);
    for (const QColor& theme : {QColor(0x2b, 0x2b, 0x2b), QColor(0xef, 0xef, 0xef)}) {
      QApplication::setPalette(QPalette(theme));
      Open();
      for (int entry = 0; entry < 10; ++entry) {
        ColorButton& button = No(entry);
        const QImage image = Painted(button);
        const int all = image.width() * image.height();
        const QColor paper = ToQColor(button.BackColor());
        EXPECT_GT(CountPixels(image, paper), all * 6 / 10) << style.toStdString() << entry;
        EXPECT_GT(CountInk(image, ToQColor(ReadableOn(button.BackColor())), paper), 15)
            << style.toStdString() << entry;
      }
      Cancel();
    }
  }
  QApplication::setPalette(usual_palette);
  QApplication::setStyle(usual);
}

TEST_F(ColorWindowTest, FocusAndPressShowOnAButton) {
  Open();
  const QImage focused = Painted(No(1));
  const QImage resting = Painted(No(6));
  No(6).setFocus();
  EXPECT_NE(Painted(No(1)), focused);
  EXPECT_NE(Painted(No(6)), resting);

  const QImage unpressed = Painted(No(6));
  QTest::mousePress(&No(6), Qt::LeftButton);
  EXPECT_NE(Painted(No(6)), unpressed);
  QTest::mouseRelease(&No(6), Qt::LeftButton, {}, QPoint(-50, -50));
  EXPECT_EQ(Palette(), nullptr);
}

}  // namespace
}  // namespace quenlor::graph
