// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace quenlor::platform::qt {

// A menu whose items tell more than their captions: assistive technology hears the tool tip of each as its
// description, and a short text may stand beside the caption, on the right.
class DescribedMenu : public QMenu {
  Q_OBJECT

 public:
  DescribedMenu(const QString& caption, QWidget* parent);

  // An item that is pale can be chosen like any other.
  void SetBeside(QAction* item, const QString& text, bool pale = false);
  static QString Beside(const QAction* item);
  static bool IsPale(const QAction* item);

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* item) const override;

 private:
  int beside_width_ = 0;
};

}  // namespace quenlor::platform::qt
