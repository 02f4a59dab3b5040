// SPDX-License-Identifier: MIT
#include "platform/qt/described_menu.h"

#include <QAccessible>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

// "Port" of a menu bar with the items "&1" and "2", and a menu "More" below them.
class DescribedMenuTest : public testing::Test {
 protected:
  DescribedMenuTest() {
    bar.addMenu(&menu);
    menu.addMenu(more);
    first->setToolTip(QStringLiteral("Port 1: /dev/ttyUSB0"));
    first->setCheckable(true);
    first->setChecked(true);
    second->setEnabled(false);
  }

  QAccessibleInterface& Menu() { return *QAccessible::queryAccessibleInterface(&menu); }

  QMenuBar bar;
  DescribedMenu menu{QStringLiteral("&Port"), &bar};
  QAction* first = menu.addAction(QStringLiteral("&1"));
  QAction* second = menu.addAction(QStringLiteral("2"));
  DescribedMenu* more = new DescribedMenu(QStringLiteral("More"), &menu);
};

TEST_F(DescribedMenuTest, AnItemIsHeardWithItsCaptionAndItsToolTip) {
  ASSERT_EQ(Menu().childCount(), 3);
  QAccessibleInterface* item = Menu().child(0);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->role(), QAccessible::MenuItem);
  EXPECT_EQ(item->text(QAccessible::Name), "1");
  EXPECT_EQ(item->text(QAccessible::Description), "Port 1: /dev/ttyUSB0");
  EXPECT_EQ(Menu().child(1)->text(QAccessible::Description), "") << "a caption said twice says nothing";
}

TEST_F(DescribedMenuTest, StatesAndPlacesAreThoseOfTheItem) {
  EXPECT_TRUE(Menu().child(0)->state().checked);
  EXPECT_FALSE(Menu().child(1)->state().checkable);
  EXPECT_TRUE(Menu().child(1)->state().disabled);
  EXPECT_TRUE(Menu().child(2)->state().hasPopup);
  EXPECT_EQ(Menu().indexOfChild(Menu().child(1)), 1);
  EXPECT_EQ(Menu().child(1)->parent(), &Menu());
  EXPECT_EQ(Menu().child(2)->child(0), QAccessible::queryAccessibleInterface(more));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(more)->parent(), Menu().child(2));
  EXPECT_EQ(Menu().text(QAccessible::Name), "Port");
}

TEST_F(DescribedMenuTest, AnItemCanBePressedFromOutside) {
  const QSignalSpy pressed(first, &QAction::triggered);
  QAccessibleActionInterface* actions = Menu().child(0)->actionInterface();
  ASSERT_NE(actions, nullptr);
  EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
  actions->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(pressed.count(), 1);
}

TEST_F(DescribedMenuTest, WhatGoesAwayIsNoChildAnyLonger) {
  delete first;
  EXPECT_EQ(Menu().childCount(), 2);
  EXPECT_EQ(Menu().child(0)->text(QAccessible::Name), "2");
}

TEST_F(DescribedMenuTest, ATextBesideMakesRoomForItselfAndLeavesTheCaption) {
  menu.ensurePolished();
  menu.SetBeside(first, QStringLiteral("a device with a rather long name"));
  EXPECT_EQ(first->text(), "&1");
  EXPECT_GE(menu.sizeHint().width(),
            menu.fontMetrics().horizontalAdvance(first->text() + DescribedMenu::Beside(first)));

  menu.popup({0, 0});
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
  const QImage with = menu.grab().toImage();
  menu.SetBeside(first, QStringLiteral("a device with a rather long mane"));
  EXPECT_NE(menu.grab().toImage(), with) << "it is drawn";
  menu.SetBeside(second, {}, true);
  EXPECT_TRUE(DescribedMenu::IsPale(second));
}

}  // namespace
}  // namespace quenlor::platform::qt
