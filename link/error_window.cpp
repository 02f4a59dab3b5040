// SPDX-License-Identifier: MIT
#include "link/error_window.h"

#include <QFontMetrics>
#include <QVBoxLayout>

namespace quenlor::link {

ErrorWindow::ErrorWindow(QWidget* parent)
    : QWidget(parent, Qt::Window),
      Text1(new QPlainTextEdit(this)),
      Command1(new QPushButton(tr("&Close"), this)) {
  setObjectName(QStringLiteral("Form5"));
  setWindowTitle(tr("Error"));
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_ShowWithoutActivating);
  Text1->setObjectName(QStringLiteral("Text1"));
  Text1->setAccessibleName(tr("Line errors"));
  Text1->setToolTip(tr("Errors of the serial line, the latest at the end"));
  Text1->setReadOnly(true);
  Text1->setMaximumBlockCount(kMostLines);
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setToolTip(tr("Closes the window and discards its text"));

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Text1, 1);
  layout->addWidget(Command1, 0, Qt::AlignHCenter);
  connect(Command1, &QPushButton::clicked, this, &QWidget::close);
  resize(fontMetrics().averageCharWidth() * 64, fontMetrics().height() * 16);
}

void ErrorWindow::AppendLine(const QString& line) { Text1->appendPlainText(line); }

void ErrorWindow::ComeUp() {
  if (isMinimized()) {
    showNormal();
  } else if (!isVisible()) {
    show();
  }
  raise();
}

}  // namespace quenlor::link
