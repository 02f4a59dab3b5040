// SPDX-License-Identifier: MIT
#pragma once

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

#include "tests/app/window/window_bench.h"

namespace quenlor::app {

// Tests of the main window, at whose end every box that was told of has been shown, and no other.
class WindowTest : public testing::Test, protected WindowBench {
 protected:
  void TearDown() override {
    window.reset();
    EXPECT_TRUE(dialogs.AsScripted()) << testing::PrintToString(dialogs.Unexpected());
  }

  void SelectRows(int first, int last) {
    auto* header = Find<GridView>("Grid1")->verticalHeader();
    const auto middle = [&](int section) {
      return QPoint(4, header->sectionViewportPosition(section) + header->sectionSize(section) / 2);
    };
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, middle(first));
    QTest::mouseMove(header->viewport(), middle(last));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, middle(last));
  }

  void ShowRows(int rows) {
    ASSERT_TRUE(WaitFor([&] { return Find<GridView>("Grid1")->model()->rowCount() == rows; }));
  }

  // A drag enters the window and lets the file fall; the answer is what the window said to the drag.
  bool DropFile(const QString& path) {
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    if (enter.isAccepted()) {
      QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(window.get(), &drop);
      QApplication::processEvents();
    }
    return enter.isAccepted();
  }
};

}  // namespace quenlor::app
