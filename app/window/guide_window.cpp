// SPDX-License-Identifier: MIT
#include "app/window/guide_window.h"

#include <QKeyEvent>

#include "app/desk/version.h"

namespace quenlor::app {

GuideWindow::GuideWindow(QWidget* parent) : QTextBrowser(parent) {
  setWindowFlag(Qt::Window);
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("Guide"));
  setWindowTitle(tr("The guide to Quenlor"));
  setAccessibleName(windowTitle());
  setOpenExternalLinks(true);
  setMarkdown(QString::fromUtf8(GuideText()));
  resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
}

void GuideWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QTextBrowser::keyPressEvent(event);
  }
}

QString AboutText() {
  return QStringLiteral(
             "<p><b>%1</b></p><p>Readings of a viscometer, from the line to the page.</p>"
             "<p>Quenlor is free software under the MIT licence.<br>It is linked against Qt %2 (LGPL version "
             "3).</p>")
      .arg(QString::fromStdString(WindowCaption(ThisVersion())).toHtmlEscaped(),
           QString::fromLatin1(qVersion()));
}

}  // namespace quenlor::app
