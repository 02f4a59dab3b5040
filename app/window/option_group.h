// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <utility>
#include <vector>

namespace quenlor::app {

// A menu of alike items of which at most one is checked: the menu arrays of the RS-232C, Option and Scale
// menus.
//
// Items are numbered from `first`; item i of the array "BPS" is the action "BPS[i]".
class OptionGroup {
 public:
  OptionGroup() = default;
  OptionGroup(const OptionGroup&) = delete;
  OptionGroup& operator=(const OptionGroup&) = delete;

  // `element` of the settings list holds the checked item; kNoElement where none does.
  static constexpr int kNoElement = -1;
  void Build(QMenu* menu, QString name, int first, int element, std::function<void(int Index)> click) {
    menu_ = menu;
    name_ = std::move(name);
    first_ = first;
    element_ = element;
    click_ = std::move(click);
  }

  QMenu* Menu() const { return menu_; }
  int Element() const { return element_; }
  int First() const { return first_; }
  int Last() const { return first_ + static_cast<int>(items_.size()) - 1; }
  QAction* Item(int index) const { return items_[static_cast<std::size_t>(index - first_)]; }

  QAction* Add(const QString& caption) {
    QAction* item = menu_->addAction(caption);
    const int index = Last() + 1;
    item->setObjectName(QStringLiteral("%1[%2]").arg(name_).arg(index));
    item->setCheckable(true);
    QObject::connect(item, &QAction::triggered, menu_, [this, index] { click_(index); });
    items_.push_back(item);
    return item;
  }

  // Checks that item and no other; an index without an item leaves none checked.
  void Check(int index) {
    for (int i = First(); i <= Last(); ++i) Item(i)->setChecked(i == index);
  }

  void Clear() {
    menu_->clear();
    items_.clear();
  }

 private:
  QMenu* menu_ = nullptr;
  QString name_;
  int first_ = 0;
  int element_ = kNoElement;
  std::function<void(int)> click_;
  std::vector<QAction*> items_;
};

}  // namespace quenlor::app
