// SPDX-License-Identifier: MIT
#include "app/window/status_line.h"

#include "platform/qt/plain_tip.h"

namespace quenlor::app {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("Status"));
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);  // a command in it is there to be copied
  setFocusPolicy(Qt::NoFocus);
  // As high without a text as with one, so that the window is not laid out anew when the first one comes.
  setText(QStringLiteral("0"));
  setMinimumSize(1, sizeHint().height());
  clear();
}

void StatusLine::Say(const std::string& text) {
  setText(QString::fromStdString(text));
  setToolTip(platform::qt::PlainTip(this->text()));
}

}  // namespace quenlor::app
