// SPDX-License-Identifier: MIT
#pragma once

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <string>

#include <gtest/gtest.h>

#include "graph/graph_pane.h"
#include "tests/app/window/window_bench.h"

namespace quenlor::app {

// The window on its bench, looked at and worked on as an operator does. At the end of a test every box that
// was told of has been shown, and no other.
class WindowTest : public testing::Test, protected WindowBench {
 protected:
  void TearDown() override {
    window.reset();
    EXPECT_TRUE(dialogs.AsScripted()) << testing::PrintToString(dialogs.Unexpected());
  }

  // Captions of the graph.
  std::string Text(const char* caption) { return Find<graph::Caption>(caption)->text().toStdString(); }
  bool Shown(const char* caption) { return Find<graph::Caption>(caption)->isVisible(); }
  QColor ColorOf(const char* caption) {
    return Find<graph::Caption>(caption)->palette().color(QPalette::WindowText);
  }
  testing::AssertionResult Becomes(const char* caption, const std::string& text) {
    if (WaitFor([&] { return Text(caption) == text; })) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << caption << " is \"" << Text(caption) << "\", not \"" << text << "\"";
  }

  // The plot.
  QImage Picture() { return Find<QWidget>("Picture2")->grab().toImage(); }
  bool PictureChanges(const QImage& before) {
    return WaitFor([&] { return Picture() != before; });
  }
  // What has happened so far is shown, and the picture is the same.
  bool PictureStays(const QImage& before) {
    const auto* refresh = Find<QTimer>("Refresh");
    return WaitFor([&] { return !refresh->isActive(); }) && Picture() == before;
  }
  static bool Has(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == color) return true;
      }
    }
    return false;
  }

  void DoubleClick(const char* caption) { QTest::mouseDClick(Find<graph::Caption>(caption), Qt::LeftButton); }

  // Opens the menu and clicks one of its items.
  void Pick(const char* menu_name, const char* item) {
    auto* menu = Find<QMenu>(menu_name);
    menu->popup(window->mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Find<QAction>(item)).center());
  }

  // One run of those readings, stopped again.
  void Run(std::initializer_list<const char*> readings) {
    Click("Command1");
    for (const char* reading : readings) Reading(reading);
    Click("Command1");
  }

  void ShowRows(int rows) {
    ASSERT_TRUE(WaitFor([&] { return Find<GridView>("Grid1")->model()->rowCount() == rows; }));
  }

  // Selects whole rows of the measurement table, from one to the other.
  void SelectRows(int first, int last) {
    auto* header = Find<GridView>("Grid1")->verticalHeader();
    const auto middle = [&](int section) {
      return QPoint(4, header->sectionViewportPosition(section) + header->sectionSize(section) / 2);
    };
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, middle(first));
    QTest::mouseMove(header->viewport(), middle(last));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, middle(last));
  }

  // Drags a file to the middle of that widget and lets it fall, along the road that the window system takes;
  // false when the drag is refused.
  bool Drop(const QString& path, const char* name = "Picture2") {
    return Drop(QUrl::fromLocalFile(path), name);
  }
  bool Drop(const QUrl& url, const char* name = "Picture2") {
    auto* widget = Find<QWidget>(name);
    const QPoint at = widget->mapTo(window.get(), widget->rect().center());
    QMimeData mime;
    mime.setUrls({url});
    QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &enter);
    if (!enter.isAccepted()) return false;
    QDragMoveEvent move(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    move.setDropAction(enter.dropAction());  // what was answered once holds unless it is taken back
    move.accept();
    QApplication::sendEvent(window->windowHandle(), &move);
    if (!move.isAccepted()) return false;
    QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window->windowHandle(), &drop);
    QApplication::processEvents();
    return drop.isAccepted();
  }
};

}  // namespace quenlor::app
