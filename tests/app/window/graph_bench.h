// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "app/graph_pane.h"
#include "tests/app/window/window_bench.h"

namespace quenlor::app {

// The window on its bench, with the graph looked at and worked on as an operator does.
class GraphBench : public testing::Test, protected WindowBench {
 protected:
  // How the editor of one value came up.
  struct Editor {
    std::string title;
    std::string text;
    std::string selected;
    bool operator==(const Editor&) const = default;
    friend void PrintTo(const Editor& editor, std::ostream* out) {
      *out << editor.title << ": \"" << editor.text << "\", selected \"" << editor.selected << "\"";
    }
  };

  void TearDown() override {
    window.reset();
    EXPECT_TRUE(dialogs.AsScripted()) << testing::PrintToString(dialogs.Unexpected());
  }

  // Captions of the graph.
  std::string Text(const char* caption) { return Find<Caption>(caption)->text().toStdString(); }
  bool Shown(const char* caption) { return Find<Caption>(caption)->isVisible(); }
  QColor ColorOf(const char* caption) {
    return Find<Caption>(caption)->palette().color(QPalette::WindowText);
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
  // For four times as long as a change needs to be shown.
  bool PictureStays(const QImage& before) {
    return !QTest::qWaitFor([&] { return Picture() != before; }, 200);
  }
  static bool Has(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == color) return true;
      }
    }
    return false;
  }

  // Opens the menu and clicks one of its items.
  void Pick(const char* menu_name, const char* item) {
    auto* menu = Find<QMenu>(menu_name);
    menu->popup(window->mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Find<QAction>(item)).center());
  }

  void DoubleClick(const char* caption) { QTest::mouseDClick(Find<Caption>(caption), Qt::LeftButton); }

  // Acts on the editor that comes up while `open` runs; nothing when none does.
  static std::optional<Editor> Edit(const std::function<void()>& open,
                                    const std::function<void(QDialog&)>& act) {
    std::optional<Editor> seen;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (form == nullptr) return;
      look.stop();
      EXPECT_EQ(form->objectName(), "Form2");
      const auto* text = form->findChild<QLineEdit*>("Text1");
      seen = Editor{form->windowTitle().toStdString(), text->text().toStdString(),
                    text->selectedText().toStdString()};
      act(*form);
      if (!form->isVisible()) return;
      ADD_FAILURE() << "the editor stays open";
      form->reject();
    });
    look.start(1);
    open();
    QApplication::processEvents();
    return seen;
  }

  // What an operator does with the editor: type over the text and "Enter", or "Cancel".
  static std::function<void(QDialog&)> Enter(const char* typed) {
    return [typed](QDialog& form) {
      Type(form, typed);
      QTest::mouseClick(form.findChild<QWidget*>("Command1"), Qt::LeftButton);
    };
  }
  static std::function<void(QDialog&)> Cancel(const char* typed) {
    return [typed](QDialog& form) {
      Type(form, typed);
      QTest::mouseClick(form.findChild<QWidget*>("Command2"), Qt::LeftButton);
    };
  }
  static void Type(QDialog& form, const char* typed) {
    auto* text = form.findChild<QLineEdit*>("Text1");
    QTest::keyClick(text, Qt::Key_Delete);
    QTest::keyClicks(text, typed);
  }

  void EditByDoubleClick(const char* caption, const char* typed) {
    EXPECT_TRUE(Edit([&] { DoubleClick(caption); }, Enter(typed))) << caption;
  }
  void EditByMenu(const char* item, const char* typed) {
    EXPECT_TRUE(Edit([&] { Pick("mScale", item); }, Enter(typed))) << item;
  }

  // One run of those readings, stopped again.
  void Run(std::initializer_list<const char*> readings) {
    Click("Command1");
    for (const char* reading : readings) Reading(reading);
    Click("Command1");
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
  bool DropOn(const char* name, const QString& path) {
    auto* widget = Find<QWidget>(name);
    const QPoint at = widget->mapTo(window.get(), widget->rect().center());
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
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
