// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLineEdit>
#include <QTimer>
#include <functional>
#include <utility>

// What a hand at the program does, for programs that show it without one.
namespace quenlor::demo {

inline void Wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

// Does that with the next box that comes up.
inline void WhenABoxIsUp(std::function<void(QDialog&)> act) {
  auto* look = new QTimer(qApp);
  QObject::connect(look, &QTimer::timeout, look, [look, act = std::move(act)] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    look->stop();
    look->deleteLater();
    act(*box);
  });
  look->start(50);
}

// Fills in the next box with that text and accepts it.
inline void AnswerBox(const QString& text) {
  WhenABoxIsUp([text](QDialog& box) {
    box.findChild<QLineEdit*>()->setText(text);
    box.accept();
  });
}

}  // namespace quenlor::demo
