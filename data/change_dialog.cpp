// SPDX-License-Identifier: MIT
#include "data/change_dialog.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quenlor::data {

ChangeDialog::ChangeDialog(const std::string& caption, const std::string& text, const std::string& about,
                           QWidget* parent)
    : QDialog(parent),
      Text1(new QLineEdit(QString::fromStdString(text), this)),
      Command1(new QPushButton(tr("&Enter"), this)),
      Command2(new QPushButton(tr("&Cancel"), this)) {
  setObjectName(QStringLiteral("Form2"));
  setWindowTitle(QString::fromStdString(caption));
  Text1->setObjectName(QStringLiteral("Text1"));
  Text1->setAccessibleName(windowTitle());
  Text1->setToolTip(tr("The text to stand in the document"));
  Text1->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  Text1->selectAll();
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setToolTip(tr("Takes the text over"));
  Command1->setDefault(true);
  Command2->setObjectName(QStringLiteral("Command2"));
  Command2->setToolTip(tr("Leaves everything as it is"));

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Command1);
  buttons->addWidget(Command2);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Text1);
  if (!about.empty()) {
    auto* line = new QLabel(QString::fromStdString(about), this);
    line->setObjectName(QStringLiteral("About"));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    layout->addWidget(line);
    Text1->setAccessibleDescription(line->text());
  }
  layout->addStretch(1);
  layout->addLayout(buttons);
  connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
  connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
}

std::optional<std::string> ChangeDialog::Ask() {
  if (exec() != Accepted) return std::nullopt;
  return Text1->text().toStdString();
}

}  // namespace quenlor::data
