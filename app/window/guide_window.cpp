// SPDX-License-Identifier: MIT
#include "app/window/guide_window.h"

#include <QImage>
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
  resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
  setMarkdown(QString::fromUtf8(GuideText()));
}

QVariant GuideWindow::loadResource(int type, const QUrl& name) {
  QImage picture(QStringLiteral(":/guide/") + name.path());
  if (type != QTextDocument::ImageResource || picture.isNull()) return QTextBrowser::loadResource(type, name);
  const double ratio = devicePixelRatioF();
  const int room = qRound((width() - 4 * fontMetrics().height()) * ratio);
  if (picture.width() > room) picture = picture.scaledToWidth(room, Qt::SmoothTransformation);
  if (picture.width() == room) picture.setDevicePixelRatio(ratio);
  return picture;
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
             "<p><b>%1</b></p><p>Readings of a viscometer, from the line to the page.</p><p>Commit %3</p>"
             "<p>Quenlor is free software under the MIT licence.<br>It is linked against Qt %2 (LGPL version "
             "3).</p>")
      .arg(QString::fromStdString(WindowCaption(ThisVersion())).toHtmlEscaped(),
           QString::fromLatin1(qVersion()), QString::fromStdString(BuildCommit()));
}

}  // namespace quenlor::app
