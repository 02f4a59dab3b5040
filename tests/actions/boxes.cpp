// SPDX-License-Identifier: MIT
#include "tests/actions/boxes.h"

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace quenlor::actions {
namespace {

constexpr int kPatience = 12;  // answers, after which a box is closed
constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down, Qt::Key_Up,
                             Qt::Key_Right,  Qt::Key_Tab,    Qt::Key_Space,  Qt::Key_Home, Qt::Key_End};
constexpr const char* kTexts[] = {"1", "0", "-3", "1e3", "a b", "x,y", "2.5", "2,5", "", "\"", "Grüße"};

}  // namespace

QWidget* WaitingBox() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  return QApplication::activeModalWidget();
}

// The next look is ordered before this one answers: an answer may bring up a box that waits within it.
void Boxes::LookSoon() {
  QTimer::singleShot(1, this, [this] {
    LookSoon();
    if (QWidget* box = WaitingBox()) Answer(box);
  });
}

void Boxes::Answer(QWidget* box) {
  if (++answers_ > kPatience) {
    box->close();
    return;
  }
  if (chance_.OneIn(3)) {
    const QPoint at(chance_.Below(std::max(box->width(), 1)), chance_.Below(std::max(box->height(), 1)));
    if (box->windowHandle() != nullptr) QTest::mouseClick(box->windowHandle(), Qt::LeftButton, {}, at);
  } else if (chance_.OneIn(2) && box->windowHandle() != nullptr) {
    const QPointer<QWidget> still_there(box);  // a letter may answer it
    for (const QChar letter : QString::fromUtf8(chance_.Of(kTexts))) {
      if (still_there == nullptr || box->windowHandle() == nullptr) return;
      QTest::sendKeyEvent(QTest::Click, box->windowHandle(), Qt::Key_unknown, letter, Qt::NoModifier);
    }
  } else if (box->windowHandle() != nullptr) {
    QTest::keyClick(box->windowHandle(), chance_.Of(kKeys));
  }
}

bool Boxes::Settle() {
  for (int turn = 0; turn < 400; ++turn) {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    if (WaitingBox() == nullptr) return true;
    QTest::qSleep(1);
  }
  return false;
}

}  // namespace quenlor::actions
