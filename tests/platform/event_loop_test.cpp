// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <limits>

#include <gmock/gmock.h>

#include "platform/memory/test_event_loop.h"
#include "platform/qt/qt_event_loop.h"

namespace quenlor::platform {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

// Something that happens once, that many milliseconds after the event loop gets its turn.
class Later {
 public:
  Later(int milliseconds, const std::function<void()>& act) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, act);
    timer_.start(milliseconds);
  }

 private:
  QTimer timer_;
};

// A queued call, such as another thread would send.
class Call {
 public:
  explicit Call(const std::function<void()>& act) {
    QObject::connect(&sender_, &QObject::objectNameChanged, &sender_, act, Qt::QueuedConnection);
    sender_.setObjectName(QStringLiteral("now"));
  }

 private:
  QObject sender_;
};

TEST(QtEventLoop, WaitsAtLeastThatLong) {
  QElapsedTimer watch;
  watch.start();
  qt::QtEventLoop().WaitSeconds(0.03);
  EXPECT_GE(watch.nsecsElapsed(), 30'000'000);
}

TEST(QtEventLoop, ServesTimersAndEventsWhileItWaits) {
  int ticks = 0;
  bool called = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
  timer.start(1);
  const Call call([&called] { called = true; });
  qt::QtEventLoop().WaitSeconds(0.1);
  EXPECT_GT(ticks, 1);
  EXPECT_TRUE(called);
}

TEST(QtEventLoop, ReturnsAtOnceWhenThereIsNothingToWaitFor) {
  QElapsedTimer watch;
  watch.start();
  for (const double seconds : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    qt::QtEventLoop().WaitSeconds(seconds);
  }
  EXPECT_LT(watch.elapsed(), 1000);
}

TEST(QtEventLoop, ALongWaitEndsWhenTheApplicationQuits) {
  bool returned = false;
  const Later wait(0, [&returned] {
    qt::QtEventLoop().WaitSeconds(1e12);
    returned = true;
  });
  const Later quit(20, [] { QCoreApplication::quit(); });
  QElapsedTimer watch;
  watch.start();
  QCoreApplication::exec();
  EXPECT_TRUE(returned);
  EXPECT_LT(watch.elapsed(), 5000);
}

TEST(QtEventLoop, AnInnerWaitDoesNotEndTheOuterOne) {
  qt::QtEventLoop loop;
  QElapsedTimer watch;
  watch.start();
  const Later inner(0, [&loop] { loop.WaitSeconds(0.01); });
  loop.WaitSeconds(0.1);
  EXPECT_GE(watch.elapsed(), 100);
}

class Canvas : public QWidget {
 public:
  using QWidget::QWidget;
  int painted = 0;
  int keys = 0;

 protected:
  void paintEvent(QPaintEvent*) override { ++painted; }
  void keyPressEvent(QKeyEvent*) override { ++keys; }
};

class Painting : public testing::Test {
 protected:
  Painting() {
    window_.resize(100, 100);
    canvas_.resize(50, 50);
    window_.show();
    shown_ = QTest::qWaitForWindowExposed(&window_) &&
             QTest::qWaitFor([this] { return canvas_.painted > 0; }, 5000);
    QCoreApplication::processEvents();
    canvas_.painted = 0;
  }
  void SetUp() override { ASSERT_TRUE(shown_); }

  QWidget window_;
  Canvas canvas_{&window_};
  bool shown_ = false;
};

TEST_F(Painting, ShowsWhatHasChanged) {
  canvas_.update();
  canvas_.update();
  EXPECT_EQ(canvas_.painted, 0);
  qt::QtEventLoop().Paint();
  EXPECT_EQ(canvas_.painted, 1);
}

TEST_F(Painting, LeavesAloneWhatHasNotChanged) {
  qt::QtEventLoop().Paint();
  EXPECT_EQ(canvas_.painted, 0);
}

TEST_F(Painting, ReachesEveryWindow) {
  Canvas other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
  ASSERT_TRUE(QTest::qWaitFor([&other] { return other.painted > 0; }, 5000));
  QCoreApplication::processEvents();
  other.painted = canvas_.painted = 0;
  other.update();
  canvas_.update();
  qt::QtEventLoop().Paint();
  EXPECT_EQ(other.painted, 1);
  EXPECT_EQ(canvas_.painted, 1);
}

TEST_F(Painting, GivesANewTextItsPlaceFirst) {
  QWidget window;
  QVBoxLayout layout(&window);
  QLabel label(QStringLiteral("x"));
  layout.addWidget(&label, 0, Qt::AlignLeft);
  window.resize(500, 100);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  QCoreApplication::processEvents();
  const int width = label.width();
  label.setText(QStringLiteral("reading a long file"));
  qt::QtEventLoop().Paint();
  EXPECT_GT(label.width(), width);
}

TEST_F(Painting, ServesNeitherKeysNorTimersNorCalls) {
  bool timer_ran = false;
  bool called = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&timer_ran] { timer_ran = true; });
  timer.start(0);
  const Call call([&called] { called = true; });
  QCoreApplication::postEvent(&canvas_, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier));
  canvas_.update();

  qt::QtEventLoop().Paint();

  EXPECT_EQ(canvas_.painted, 1);
  EXPECT_FALSE(timer_ran);
  EXPECT_FALSE(called);
  EXPECT_EQ(canvas_.keys, 0);

  EXPECT_TRUE(QTest::qWaitFor([&] { return timer_ran && called && canvas_.keys == 1; }, 5000))
      << "all come later";
}

TEST(QtEventLoop, PaintsNothingWithoutWindows) {
  qt::QtEventLoop().Paint();
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST(TestEventLoop, AWaitTurnsTheClockAndRunsItsTimers) {
  memory::TestClock clock;
  memory::TestTimer timer(clock);
  memory::TestEventLoop loop(clock);
  int fired = 0;
  double began = 0;
  timer.Interval(1s);
  timer.OnTimer([&fired] { ++fired; });
  timer.Enabled(true);
  loop.during_wait = [&] { began = clock.Now().seconds; };
  const double start = clock.Now().seconds;

  loop.WaitSeconds(2.5);
  loop.WaitSeconds(0);

  EXPECT_EQ(fired, 2);
  EXPECT_EQ(began, start);
  EXPECT_EQ(clock.Now().seconds - start, 2.5);
  EXPECT_THAT(loop.waits, ElementsAre(2.5));
}

TEST(TestEventLoop, CountsPaints) {
  memory::TestClock clock;
  memory::TestEventLoop loop(clock);
  loop.Paint();
  loop.Paint();
  EXPECT_EQ(loop.paints, 2);
}

}  // namespace
}  // namespace quenlor::platform
