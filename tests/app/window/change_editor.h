// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace quenlor::app {

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

// Acts on the editor that comes up while `open` runs; nothing when none does.
inline std::optional<Editor> Edit(const std::function<void()>& open,
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

// What an operator does with the editor: type over the text, then "Enter" or "Cancel".
inline void Type(QDialog& form, const char* typed) {
  auto* text = form.findChild<QLineEdit*>("Text1");
  QTest::keyClick(text, Qt::Key_Delete);
  QTest::keyClicks(text, typed);
}
inline std::function<void(QDialog&)> Enter(const char* typed) {
  return [typed](QDialog& form) {
    Type(form, typed);
    QTest::mouseClick(form.findChild<QWidget*>("Command1"), Qt::LeftButton);
  };
}
inline std::function<void(QDialog&)> Cancel(const char* typed) {
  return [typed](QDialog& form) {
    Type(form, typed);
    QTest::mouseClick(form.findChild<QWidget*>("Command2"), Qt::LeftButton);
  };
}

}  // namespace quenlor::app
