// SPDX-License-Identifier: MIT
// What the main window tells of its own files, and its end when nobody can be asked.

#include <QComboBox>
#include <QLabel>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

class TroubleWindow : public WindowTest {
 protected:
  testing::AssertionResult Tells(const std::string& text) {
    if (WaitFor([&] { return Find<QLabel>("Status")->text().toStdString().find(text) != text.npos; }))
      return testing::AssertionSuccess();
    return testing::AssertionFailure() << Find<QLabel>("Status")->text().toStdString();
  }
};

TEST_F(TroubleWindow, AChoiceThatCannotBeKeptIsToldAtThatClick) {
  Open();
  files.Refuse("/lab/quenlor.ini", "Read-only file system");
  for (const char* item : {"BPS[3]", "mVisco", "LW[1]"}) {
    Find<QLabel>("Status")->clear();
    Choose(item);
    EXPECT_TRUE(Tells("cannot replace /lab/quenlor.ini: Read-only file system")) << item;
  }
}

TEST_F(TroubleWindow, StartTellsOfSettingsThatItCouldNotKeepAndStartsAllTheSame) {
  Open();
  files.Refuse("/lab/quenlor.ini", "Read-only file system");
  Start();
  EXPECT_TRUE(Running());
  EXPECT_TRUE(Tells("cannot replace /lab/quenlor.ini"));
}

TEST_F(TroubleWindow, AWindowPlaceThatCannotBeKeptIsTold) {
  Open();
  files.Refuse("/lab/Window.txt", "Read-only file system");
  window->close();
  EXPECT_TRUE(Tells("cannot write /lab/Window.txt: Read-only file system"));
}

TEST_F(TroubleWindow, PortNumbersThatCannotBeKeptAreTold) {
  ports_trouble = platform::Failure{"cannot write /lab/Ports.txt: Read-only file system"};
  Open();
  EXPECT_TRUE(Tells("cannot write /lab/Ports.txt: Read-only file system"));
}

TEST_F(TroubleWindow, FilesThatCannotBeReadAreToldAtTheStartAndBesideAnOpenedOne) {
  for (const char* name : {"quenlor.ini", "Color.txt", "Command_V.txt"}) {
    PutFile(name, "the operator's own");
    files.Unreadable(std::string(kFolder) + "/" + name);
  }
  Open();
  for (const char* name : {"quenlor.ini", "Color.txt", "Command_V.txt"}) {
    EXPECT_TRUE(Tells("cannot read /lab/" + std::string(name) + ": Permission denied"));
    if (name != std::string("Color.txt")) {
      EXPECT_EQ(File(name), "the operator's own");
    }
  }
  files.Put("/data/a.csv", "No.,Time,Viscosity\r\n1,00.0,5\r\n");
  window->OpenFile("/data/a.csv");
  EXPECT_TRUE(Tells("Opened a.csv"));
  EXPECT_TRUE(Tells("cannot read /lab/quenlor.ini"));
}

TEST_F(TroubleWindow, AnEndWithoutAQuestionStopsTheInstrumentAndLeavesEveryReadingOnTheDisk) {
  Open();
  Start();
  Reading("1");
  Reading("2");
  MSComm1.TakeSent();
  const int syncs = files.Calls().syncs;

  window->EndNow();

  EXPECT_THAT(MSComm1.TakeSent(), testing::StartsWith("STOP"));
  EXPECT_FALSE(Running());
  EXPECT_EQ(files.Calls().syncs, syncs + 1);
  EXPECT_THAT(File("Com_1.txt"), testing::HasSubstr("\r\n1,00:00:00,1"));
  EXPECT_FALSE(File("Window.txt").empty());
  EXPECT_TRUE(window->Document().DataChanged()) << "nothing was given up";
  EXPECT_TRUE(dialogs.Boxes().empty());
}

}  // namespace
}  // namespace quenlor::app
