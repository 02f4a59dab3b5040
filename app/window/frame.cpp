// SPDX-License-Identifier: MIT
#include "app/window/frame.h"

#include <QLayout>

namespace quenlor::app {

QGroupBox* NewFrame(const char* name, const QString& caption, QWidget* parent) {
  auto* frame = new QGroupBox(caption, parent);
  frame->setObjectName(QString::fromLatin1(name));
  // A style puts a frame's caption above it, which costs a line, and none of a frame without one.
  frame->setStyleSheet(
      QStringLiteral("QGroupBox { border: 1px solid palette(mid); border-radius: 4px; "
                     "margin-top: %1px; }"
                     "QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top "
                     "left; left: %2px; padding: 0 3px; }")
          .arg(frame->fontMetrics().height() / 2)
          .arg(kEdge));
  return frame;
}

void SetFrameLayout(QGroupBox* frame, QLayout* layout) {
  const int room = frame->fontMetrics().height() / 2;
  layout->setContentsMargins(kEdge, room, kEdge, room);
  layout->setSpacing(kSpacing * 3 / 4);
  frame->setLayout(layout);
}

}  // namespace quenlor::app
