// SPDX-License-Identifier: MIT
#include "app/window/main_window.h"

#include <QAccessible>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/desk/version.h"
#include "graph/readable_color.h"
#include "graph/screen_color.h"
#include "platform/qt/described_menu.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;
using platform::qt::DescribedMenu;

using MainWindowTest = WindowTest;

TEST(WindowCaption, RevisionStandsRightBehindTheMinorVersion) {
  EXPECT_EQ(WindowCaption({"1", "0", "2", ""}), "Quenlor Ver.1.02");
  EXPECT_EQ(WindowCaption({"1", "0", "2", " beta"}), "Quenlor Ver.1.02 beta");
}

TEST_F(MainWindowTest, FirstStartWritesSettingsCommandsAndTemplate) {
  Open();
  EXPECT_EQ(
      File("quenlor.ini"),
      "16\r\n6\r\n1\r\n2\r\n0\r\n0\r\n0\r\n0\r\n0\r\n5\r\n2\r\n1\r\n0\r\n1\r\n1\r\n0\r\n0\r\n0\r\n0\r\n");
  EXPECT_EQ(File("Command_V.txt"), "STOP\r\nSTART\r\nQ\r\nQM\r\n");
  EXPECT_EQ(File("New.txt"), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), "QM");
  EXPECT_EQ(window->windowTitle().toStdString(), WindowCaption(ThisVersion()));
}

TEST_F(MainWindowTest, DefaultsArePort1At2400BaudEvenParity7Bits1StopBitAndCrLf) {
  Open();
  for (const char* item :
       {"Port[1]", "BPS[2]", "Parity[0]", "Length[0]", "Bit[0]", "Term[0]", "TimeS[1]", "DP[0]"}) {
    EXPECT_TRUE(Find<QAction>(item)->isChecked()) << item;
  }
  EXPECT_EQ(Find<QAction>("BPS[2]")->text(), "2400");
}

TEST_F(MainWindowTest, DecimalPointDefaultsToCommaWhereTheSystemWritesOne) {
  system_writes_comma = true;
  Open();
  EXPECT_TRUE(Find<QAction>("DP[1]")->isChecked());
  EXPECT_EQ(Setting(setting::kDP), "1");
}

TEST_F(MainWindowTest, BeginsWithANewDocument) {
  Open();
  EXPECT_EQ(Find<QLabel>("Label6[4]")->text(), "New.csv");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->rowCount(), 1) << "the entry row";
  for (const char* box : {"Check2", "Check3", "Check4"})
    EXPECT_TRUE(Find<QCheckBox>(box)->isChecked()) << box;
}

TEST_F(MainWindowTest, UnwritableFolderStillGivesAWorkingProgram) {
  files.Refuse(kFolder, "Read-only file system");
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), "QM");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
}

TEST_F(MainWindowTest, FilesThatCannotBeReadAreNotMissingAndStay) {
  const char* const names[] = {"quenlor.ini", "Command_V.txt", "New.txt"};
  for (const char* name : names) {
    PutFile(name, "the operator's own");
    files.Unreadable(std::string(kFolder) + "/" + name);
  }
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1")->currentText(), "QM");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->headerData(1, Qt::Horizontal).toString(), "Viscosity");
  for (const char* name : names) EXPECT_EQ(File(name), "the operator's own") << name;
}

TEST_F(MainWindowTest, NoiseInItsFilesDoesNotKeepItFromStarting) {
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise.push_back(static_cast<char>(i * 37 + i / 7));
  for (const char* name : {"quenlor.ini", "Command_V.txt", "New.txt"}) PutFile(name, noise);
  Open();
  EXPECT_TRUE(window->isVisible());
}

TEST_F(MainWindowTest, EachMenuChoiceMovesTheCheckMarkAndIsSavedAtOnce) {
  Open();
  struct Choice {
    const char* item;
    int element;
    const char* saved;
  };
  for (const Choice& choice :
       {Choice{"Port[3]", setting::kPort, "3"}, Choice{"BPS[7]", setting::kBPS, "7"},
        Choice{"Parity[2]", setting::kParity, "2"}, Choice{"Length[1]", setting::kLength, "1"},
        Choice{"Bit[1]", setting::kBit, "1"}, Choice{"Term[1]", setting::kTerm, "1"},
        Choice{"TimeS[2]", setting::kTimeS, "2"}, Choice{"DP[1]", setting::kDP, "1"},
        Choice{"mNum", setting::kNum, "True"}, Choice{"mVisco", setting::kVisco, "False"}}) {
    Choose(choice.item);
    EXPECT_EQ(Setting(choice.element), choice.saved) << choice.item;
  }
  EXPECT_TRUE(Find<QAction>("BPS[7]")->isChecked());
  EXPECT_FALSE(Find<QAction>("BPS[2]")->isChecked());
}

TEST_F(MainWindowTest, APortAboveTheFirstFourWorksLikeThem) {
  Open();
  Choose("Port[12]");
  Start();
  EXPECT_EQ(MSComm1.CommPort(), 12);
  Line("1");
  EXPECT_NE(File("Com_12.txt"), "");
}

TEST_F(MainWindowTest, InitializeLeavesEverySettingAsItIs) {
  Open();
  const std::string before = File("quenlor.ini");
  Choose("mDefault");
  EXPECT_EQ(File("quenlor.ini"), before);
}

TEST_F(MainWindowTest, PortMenuNamesTheDeviceBehindEachNumber) {
  Open();
  const int looks = looks_for_devices;
  devices[2] = "/dev/serial/by-id/usb-x";
  emit Find<QMenu>("mRS")->aboutToShow();
  EXPECT_EQ(looks_for_devices, looks + 1);
  EXPECT_EQ(Find<QAction>("Port[2]")->text(), "2");
  EXPECT_EQ(Find<QAction>("Port[2]")->toolTip(), "Port 2: /dev/serial/by-id/usb-x");
  EXPECT_EQ(Find<QAction>("Port[3]")->statusTip(), "Port 3: there is no device");
}

TEST_F(MainWindowTest, ADeviceStandsBesideItsNumberForTheEyeAndTheEar) {
  Open();
  Find<QMenu>("mRS")->popup({0, 0});
  auto* menu = Find<QMenu>("RS0");
  menu->popup({0, 0});
  const auto* there = Find<QAction>("Port[1]");
  const auto* missing = Find<QAction>("Port[2]");
  EXPECT_EQ(there->text(), "1");
  EXPECT_EQ(DescribedMenu::Beside(there), "ttyV1");
  EXPECT_FALSE(DescribedMenu::IsPale(there));
  EXPECT_EQ(DescribedMenu::Beside(missing), "");
  EXPECT_TRUE(DescribedMenu::IsPale(missing));
  QAccessibleInterface* item = QAccessible::queryAccessibleInterface(menu)->child(0);
  EXPECT_EQ(item->text(QAccessible::Name), "1");
  EXPECT_EQ(item->text(QAccessible::Description), "Port 1: /dev/ttyV1");

  devices[2] = "/dev/ttyUSB1";
  menu->close();
  menu->popup({0, 0});
  EXPECT_EQ(DescribedMenu::Beside(missing), "ttyUSB1") << "plugged in meanwhile";
}

TEST_F(MainWindowTest, NothingIsCrushedInTheSmallestWindow) {
  Open();
  window->resize(1, 1);
  QApplication::processEvents();
  for (const char* name : {"Command1", "Command2", "Combo1", "Text1", "Text2", "Check1", "Check5",
                           "Option1[1]", "Option2[1]", "Check4", "Text3"}) {
    const auto* control = Find<QWidget>(name);
    EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
    EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
  }
  EXPECT_GE(Find<QWidget>("Picture2")->height(), 100);
  const auto* rows = Find<GridView>("Grid1");
  EXPECT_GE(rows->viewport()->height(), 2 * rows->verticalHeader()->defaultSectionSize());
}

TEST_F(MainWindowTest, TheFirstColumnsFitWithoutAScrollBar) {
  Open();
  for (const char* name : {"Grid1", "Grid2"}) {
    const auto* grid = Find<GridView>(name);
    EXPECT_LE(grid->horizontalHeader()->length(), Find<GridView>("Grid1")->viewport()->width()) << name;
  }
}

TEST_F(MainWindowTest, StartIsTheDefaultButtonAndItsWordCanBeRead) {
  Open();
  const auto* Command1 = Find<QPushButton>("Command1");
  EXPECT_TRUE(Command1->isDefault());
  EXPECT_FALSE(Command1->icon().isNull());
  EXPECT_GE(graph::Contrast(graph::ToColor(Command1->palette().color(QPalette::Button)),
                            graph::ToColor(Command1->palette().color(QPalette::ButtonText))),
            4.5);
}

TEST_F(MainWindowTest, ADeviceBeyondThePortMenuIsToldOf) {
  devices[17] = "/dev/serial/by-id/usb-seventeenth";
  Open();
  EXPECT_TRUE(WaitFor([&] {
    return Find<QLabel>("Status")->text().contains(
        QStringLiteral("Port 17 (/dev/serial/by-id/usb-seventeenth)"));
  }));
}

TEST_F(MainWindowTest, TheFirstLookForDevicesLeavesWhatTheStartHasTold) {
  devices[17] = "/dev/serial/by-id/usb-seventeenth";
  Open().OpenFile("/lab/missing.csv");
  ASSERT_TRUE(WaitFor([&] { return looks_for_devices > 0; }));
  EXPECT_TRUE(Find<QLabel>("Status")->text().contains(QStringLiteral("missing.csv")));
}

TEST_F(MainWindowTest, TheFirstTextOfTheStatusLineMovesNothing) {
  Open();
  const QRect graph = Find<QWidget>("Picture1")->geometry();
  auto* status = Find<QLabel>("Status");
  ASSERT_EQ(status->text(), "");
  status->setText(QStringLiteral("/dev/ttyS0: Permission denied"));
  QApplication::processEvents();
  EXPECT_EQ(Find<QWidget>("Picture1")->geometry(), graph);
  EXPECT_GE(status->minimumHeight(), status->sizeHint().height());
}

TEST_F(MainWindowTest, EveryControlTellsItsName) {
  Open();
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || !widget->isEnabled()) continue;
    if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
    const bool named = told != nullptr && !told->text(QAccessible::Name).isEmpty();
    EXPECT_TRUE(named || widget->objectName() == "Tables") << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace quenlor::app
