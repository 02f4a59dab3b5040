// SPDX-License-Identifier: MIT
#include "platform/qt/described_menu.h"

#include <QAccessibleWidget>
#include <QActionEvent>
#include <QStyleOptionMenuItem>
#include <algorithm>

namespace quenlor::platform::qt {
namespace {

constexpr const char* kPale = "pale";

// The caption as it is read, without the mark of its mnemonic.
QString Plain(QString caption) {
  static const QString two = QStringLiteral("&&");
  return caption.replace(two, QStringLiteral("\n"))
      .remove(QLatin1Char('&'))
      .replace(QLatin1Char('\n'), QLatin1Char('&'));
}

DescribedMenu* MenuOf(const QAction* item) {
  for (QObject* object : item->associatedObjects()) {
    if (auto* menu = qobject_cast<DescribedMenu*>(object)) return menu;
  }
  return nullptr;
}

class ItemInterface : public QAccessibleObject, public QAccessibleActionInterface {
 public:
  explicit ItemInterface(QAction* item) : QAccessibleObject(item) {}

  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(MenuOf(Item()));
  }
  QAccessibleInterface* child(int index) const override {
    return index == 0 && Item()->menu() != nullptr ? QAccessible::queryAccessibleInterface(Item()->menu())
                                                   : nullptr;
  }
  int childCount() const override { return Item()->menu() != nullptr ? 1 : 0; }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child->object() != nullptr && child->object() == Item()->menu() ? 0 : -1;
  }
  QRect rect() const override {
    const DescribedMenu* menu = MenuOf(Item());
    if (menu == nullptr) return {};
    return menu->actionGeometry(Item()).translated(menu->mapToGlobal(QPoint(0, 0)));
  }
  QAccessible::Role role() const override {
    return Item()->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
  }
  QString text(QAccessible::Text text) const override {
    if (text == QAccessible::Name) return Plain(Item()->text());
    if (text == QAccessible::Accelerator) return Item()->shortcut().toString();
    const bool told = text == QAccessible::Description && Item()->toolTip() != Plain(Item()->text());
    return told ? Item()->toolTip() : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    const DescribedMenu* menu = MenuOf(Item());
    state.disabled = !Item()->isEnabled();
    state.invisible = menu == nullptr || !menu->isVisible();
    state.checkable = Item()->isCheckable();
    state.checked = Item()->isChecked();
    state.hasPopup = Item()->menu() != nullptr;
    state.focusable = true;
    state.focused = menu != nullptr && menu->activeAction() == Item();
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  QStringList actionNames() const override {
    return Item()->isSeparator() ? QStringList() : QStringList{pressAction(), setFocusAction()};
  }
  void doAction(const QString& name) override {
    if (name == setFocusAction() && MenuOf(Item()) != nullptr) MenuOf(Item())->setActiveAction(Item());
    if (name != pressAction()) return;
    if (Item()->menu() != nullptr) {
      Item()->menu()->popup(rect().topRight());
    } else {
      Item()->trigger();
    }
  }
  QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {Item()->shortcut().toString()};
  }

 private:
  QAction* Item() const { return static_cast<QAction*>(object()); }
};

class MenuInterface : public QAccessibleWidget {
 public:
  explicit MenuInterface(DescribedMenu* menu) : QAccessibleWidget(menu, QAccessible::PopupMenu) {}

  QAccessibleInterface* parent() const override {
    for (QObject* object : Menu()->menuAction()->associatedObjects()) {
      if (qobject_cast<DescribedMenu*>(object) != nullptr)
        return QAccessible::queryAccessibleInterface(Menu()->menuAction());
    }
    return QAccessibleWidget::parent();
  }
  int childCount() const override { return static_cast<int>(widget()->actions().size()); }
  QAccessibleInterface* child(int index) const override {
    return QAccessible::queryAccessibleInterface(widget()->actions().value(index));
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAction* item = Menu()->actionAt(widget()->mapFromGlobal(QPoint(x, y)));
    return item != nullptr ? QAccessible::queryAccessibleInterface(item) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return static_cast<int>(widget()->actions().indexOf(static_cast<QAction*>(child->object())));
  }
  QString text(QAccessible::Text text) const override {
    return text == QAccessible::Name ? Plain(Menu()->title()) : QAccessibleWidget::text(text);
  }

 private:
  DescribedMenu* Menu() const { return static_cast<DescribedMenu*>(widget()); }
};

QAccessibleInterface* Describe(const QString& /*class_name*/, QObject* object) {
  if (auto* menu = qobject_cast<DescribedMenu*>(object)) return new MenuInterface(menu);
  auto* item = qobject_cast<QAction*>(object);
  return item != nullptr && MenuOf(item) != nullptr ? new ItemInterface(item) : nullptr;
}

}  // namespace

DescribedMenu::DescribedMenu(const QString& caption, QWidget* parent) : QMenu(caption, parent) {
  static const bool installed = (QAccessible::installFactory(Describe), true);
  Q_UNUSED(installed)
  setToolTipsVisible(true);
}

QString DescribedMenu::Beside(const QAction* item) { return item->data().toString(); }
bool DescribedMenu::IsPale(const QAction* item) { return item->property(kPale).toBool(); }

void DescribedMenu::SetBeside(QAction* item, const QString& text, bool pale) {
  item->setProperty(kPale, pale);
  item->setData(text);
  beside_width_ = 0;
  int caption_width = 0;
  for (const QAction* other : actions()) {
    beside_width_ = std::max(beside_width_, fontMetrics().horizontalAdvance(Beside(other)));
    caption_width = std::max(caption_width, fontMetrics().horizontalAdvance(other->text()));
  }
  // Room for the check mark, the caption and what stands beside it: a menu reckons with shortcuts only.
  setMinimumWidth(beside_width_ == 0 ? 0 : caption_width + beside_width_ + 5 * fontMetrics().height());
  // Items are placed anew when one of them has changed, not when the menu has become wider.
  QActionEvent changed(QEvent::ActionChanged, item);
  actionEvent(&changed);
}

void DescribedMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* item) const {
  QMenu::initStyleOption(option, item);
  if (IsPale(item)) {
    const QColor pale = palette().color(QPalette::Disabled, QPalette::Text);
    option->palette.setColor(QPalette::Text, pale);
    option->palette.setColor(QPalette::WindowText, pale);
  }
  if (Beside(item).isEmpty()) return;
  option->text = item->text() + QLatin1Char('\t') + Beside(item);
  option->reservedShortcutWidth = beside_width_;
}

}  // namespace quenlor::platform::qt
