// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

namespace quenlor::app {

// The guide, docs/guide/guide.md, as it was when the program was built.
const char* GuideText();

// The guide in a window of its own; Esc closes it.
class GuideWindow : public QTextBrowser {
  Q_OBJECT

 public:
  explicit GuideWindow(QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;  // pictures, no wider than the window
};

// "About Quenlor": versions, and whose work is in it.
QString AboutText();

}  // namespace quenlor::app
