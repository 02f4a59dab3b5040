// SPDX-License-Identifier: MIT
#include "platform/qt/end_signals.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>
#include <qt_windows.h>

namespace quenlor::platform::qt {
namespace {

HWND EndWindow() { return ::FindWindowW(L"QuenlorEnd", nullptr); }

TEST(EndSignals, WhoeverClosesTheHiddenWindowAsksOnceFromTheEventLoop) {
  int asked = 0;
  const EndSignals guard([&] { ++asked; });
  ASSERT_NE(EndWindow(), nullptr);
  ::SendMessageW(EndWindow(), WM_CLOSE, 0, 0);
  ::SendMessageW(EndWindow(), WM_CLOSE, 0, 0);
  EXPECT_EQ(asked, 0) << "only from the event loop";
  EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, 1);
}

TEST(EndSignals, ASessionMayEndAndIsNotKeptFromIt) {
  const EndSignals guard([] {});
  EXPECT_NE(::SendMessageW(EndWindow(), WM_QUERYENDSESSION, 0, 0), 0);
  EXPECT_EQ(::SendMessageW(EndWindow(), WM_ENDSESSION, FALSE, 0), 0) << "another program has refused";
}

TEST(EndSignals, TheWindowGoesWithTheObject) {
  {
    const EndSignals guard([] {});
  }
  EXPECT_EQ(EndWindow(), nullptr);
  const EndSignals next([] {});
  EXPECT_NE(EndWindow(), nullptr);
}

}  // namespace
}  // namespace quenlor::platform::qt
