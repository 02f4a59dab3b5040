// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <optional>
#include <string>

namespace quenlor::data {

// "Change": one text of the document, edited in a box. Its caption says which text that is, a line below the
// box what it is about.
class ChangeDialog : public QDialog {
  Q_OBJECT

 public:
  ChangeDialog(const std::string& caption, const std::string& text, const std::string& about,
               QWidget* parent);

  // The edited text on "Enter"; nothing on "Cancel".
  std::optional<std::string> Ask();

 private:
  QLineEdit* Text1;
  QPushButton* Command1;  // "Enter"
  QPushButton* Command2;  // "Cancel"
};

}  // namespace quenlor::data
