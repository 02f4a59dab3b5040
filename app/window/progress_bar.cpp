// SPDX-License-Identifier: MIT
#include "app/window/progress_bar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>

#include "platform/qt/qt_busy_pointer.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

constexpr int kSoon = 250;    // milliseconds before a work counts as long
constexpr int kBetween = 40;  // between two looks at the bar
constexpr int kLetters = 36;  // room for the name of what is worked on

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
  setObjectName(QStringLiteral("Progress"));
  setAccessibleName(tr("Progress"));
  setRange(0, 100);
  setFixedWidth(kLetters * fontMetrics().averageCharWidth());
  hide();
}

bool ProgressBar::Tell(const std::string& what, double part, bool may_leave) {
  if (!window()->isVisible()) return true;
  // The box that asked for the file goes first.
  if (Begin() && may_leave) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  if (!may_leave && quiet_ != nullptr) quiet_->setUpdatesEnabled(false);
  if (begun_.elapsed() < kSoon) return true;
  if (!Show(what, part)) return !left_;
  setToolTip(may_leave ? tr("Esc leaves it") : QString());
  if (may_leave) {
    show();
    QCoreApplication::processEvents();
  } else {
    PaintNow();
  }
  return !left_;
}

void ProgressBar::TellAndAnswer(const std::string& what, double part) {
  if (!window()->isVisible()) return;
  Begin();
  if (begun_.elapsed() < kSoon || !Show(what, part)) return;
  if (!pointer_) pointer_.emplace(platform::qt::ShowBusyPointer);
  setToolTip({});
  show();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// True for the first word of a work.
bool ProgressBar::Begin() {
  if (begun_.isValid()) return false;
  begun_.start();
  left_ = false;
  qApp->installEventFilter(this);
  return true;
}

// False where it has been shown just before.
bool ProgressBar::Show(const std::string& what, double part) {
  if (painted_.isValid() && painted_.elapsed() < kBetween) return false;
  painted_.start();
  setFormat(platform::qt::ToQString(what) + QStringLiteral(" %p%"));
  setValue(static_cast<int>(part * 100));
  return true;
}

void ProgressBar::PaintNow() {
  if (isHidden()) {
    show();
    if (parentWidget() != nullptr && parentWidget()->layout() != nullptr)
      parentWidget()->layout()->activate();
  }
  parentWidget()->repaint();
}

void ProgressBar::Done() {
  if (!begun_.isValid()) return;
  begun_.invalidate();
  painted_.invalidate();
  pointer_.reset();
  qApp->removeEventFilter(this);
  hide();
  if (quiet_ != nullptr) quiet_->setUpdatesEnabled(true);
}

bool ProgressBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    left_ = true;
    return true;
  }
  return QProgressBar::eventFilter(watched, event);
}

}  // namespace quenlor::app
