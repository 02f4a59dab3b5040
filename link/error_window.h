// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>

namespace quenlor::link {

// "Error": a growing list of line errors. Closing it discards the text; it keeps the last 10,000 lines.
class ErrorWindow : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kMostLines = 10'000;

  explicit ErrorWindow(QWidget* parent);

  void AppendLine(const QString& line);
  void ComeUp();  // above the window that it belongs to; whoever types there goes on typing

 private:
  QPlainTextEdit* Text1;
  QPushButton* Command1;  // "Close"
};

}  // namespace quenlor::link
