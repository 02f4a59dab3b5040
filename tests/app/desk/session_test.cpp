// SPDX-License-Identifier: MIT
#include "app/desk/session.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

constexpr const char* kTwoRuns =
    "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00:00:00,10,mPa.s,20,C\r\n2,00:00:00,30,mPa.s,40,C\r\n"
    "Axis,2,4,0,180,0,100,0,100,0,2,2,1,1,3\r\n";

class SessionTest : public testing::Test {
 protected:
  platform::memory::MemoryFileSystem files;
};

TEST_F(SessionTest, BeginsWithTheSettingsAndColoursOfItsFolder) {
  data::SettingsList settings;
  settings.Set(setting::kPort, 7);
  files.Put("/lab/quenlor.ini", settings.Text());
  const graph::ColorSettings colors(graph::kDefaultColors, graph::Scheme::Black);
  files.Put("/lab/Color.txt", colors.Text());

  const Session session(files, {"/lab"}, false);

  EXPECT_EQ(session.List().Index(setting::kPort), 7);
  EXPECT_EQ(session.Colors(), colors);
  EXPECT_EQ(session.Document().RunCount(), 0);
}

TEST_F(SessionTest, MakesTheFilesThatAreMissing) {
  const Session session(files, {"/lab"}, true);
  EXPECT_EQ(files.Content("/lab/quenlor.ini"), session.List().Text());
  EXPECT_EQ(files.Content("/lab/Color.txt"), graph::ColorSettings().Text());
  EXPECT_TRUE(session.List().DecimalComma()) << "as the system writes numbers";
}

TEST_F(SessionTest, WhatItCannotReadIsToldToWhoeverListensLaterAndStays) {
  for (const char* path : {"/lab/quenlor.ini", "/lab/Color.txt"}) {
    files.Put(path, "mine");
    files.Unreadable(path);
  }
  Session session(files, {"/lab"}, false);
  std::string told;
  session.OnTrouble([&](const std::string& trouble) { told = trouble; });
  EXPECT_EQ(told,
            "cannot read /lab/quenlor.ini: Permission denied (it stays as it is); "
            "cannot read /lab/Color.txt: Permission denied (it was set aside)");
  EXPECT_EQ(files.Content("/lab/quenlor.ini"), "mine");
  EXPECT_EQ(files.Content("/lab/Color.txt"), graph::ColorSettings().Text()) << "colours are made anew";
  EXPECT_EQ(files.Content("/lab/Color_19700101-000000.txt"), "mine") << "beside what could not be read";

  const graph::ColorSettings chosen(graph::kDefaultColors, graph::Scheme::Black);
  session.SetColors(chosen);
  EXPECT_EQ(files.Content("/lab/Color.txt"), chosen.Text());
}

TEST_F(SessionTest, ColoursThatCannotBeKeptAreTold) {
  Session session(files, {"/lab"}, false);
  std::string told;
  session.OnTrouble([&](const std::string& trouble) { told = trouble; });
  files.FailAfter(0);
  session.SetColors(graph::ColorSettings(graph::kDefaultColors, graph::Scheme::Black));
  EXPECT_EQ(told, "cannot replace /lab/Color.txt: No space left on device");
  EXPECT_EQ(session.Colors().BackScheme(), graph::Scheme::Black);
}

TEST_F(SessionTest, TheSettingsFileIsCalledAfterTheProgram) {
  const Session session(files, {"/lab", "lab2"}, false);
  EXPECT_EQ(files.Content("/lab/lab2.ini"), session.List().Text());
  EXPECT_EQ(files.Content("/lab/quenlor.ini"), "");
}

TEST_F(SessionTest, ALoadedFileSetsTheDocumentTheGraphAndTheMenus) {
  Session session(files, {"/lab"}, false);
  session.Load("/data/monday.csv", data::ParseDataFile(kTwoRuns), "2026/11/21 09:30:00");

  EXPECT_EQ(session.Document().FileName(), "monday.csv");
  EXPECT_EQ(session.Document().Date(), "2026/11/21 09:30:00");
  EXPECT_EQ(session.Graph().Values().SeriesCount(), 2);
  EXPECT_EQ(session.Graph().Values().Temp()[1], 40);
  EXPECT_EQ(session.List()[setting::kTimeS], "2");
  EXPECT_EQ(session.List()[setting::kLog], "1");
  EXPECT_EQ(session.Look(1000).LineWidth, 1);
  EXPECT_EQ(session.Look(1000).visco_axis, graph::ViscoAxis::Log);
  EXPECT_EQ(session.Captions().Label6[4], "monday.csv");
  EXPECT_EQ(session.Captions().Label10[2], "No.2\r30");
}

TEST_F(SessionTest, WhatIsSavedIsReadBack) {
  Session session(files, {"/lab"}, false);
  session.Load("/data/monday.csv", data::ParseDataFile(kTwoRuns), "today");
  ASSERT_FALSE(session.Save("/data/copy.csv"));

  Session other(files, {"/lab"}, false);
  other.Load("/data/copy.csv", data::ParseDataFile(files.Content("/data/copy.csv")), "");
  EXPECT_EQ(other.Document().Grid1().TextMatrix(2, 4), "40");
  EXPECT_EQ(other.Document().Date(), "today");
}

TEST_F(SessionTest, AFailedSaveIsTold) {
  Session session(files, {"/lab"}, false);
  files.Refuse("/data", "Permission denied");
  const auto failed = session.Save("/data/copy.csv");
  ASSERT_TRUE(failed);
  EXPECT_NE(failed->text.find("/data/copy.csv"), std::string::npos);
}

TEST_F(SessionTest, NewColoursAreKeptAndShown) {
  struct View : graph::GraphView {
    void Fig() override { ++figs; }
    int figs = 0;
  } view;
  Session session(files, {"/lab"}, false, &view);
  const graph::ColorSettings black(graph::kDefaultColors, graph::Scheme::Black);
  session.SetColors(black);
  EXPECT_EQ(files.Content("/lab/Color.txt"), black.Text());
  EXPECT_EQ(session.Look(1000).BackColor, graph::kBlack);
  EXPECT_EQ(view.figs, 1);
}

TEST(FolderOf, IsWhatStandsBeforeTheLastSlash) {
  EXPECT_EQ(FolderOf("/a/b.csv"), "/a");
  EXPECT_EQ(FolderOf("/b.csv"), "/");
  EXPECT_EQ(FolderOf("b.csv"), ".");
}

TEST(NameWithoutFolder, IsWhatFollowsTheLastSlash) {
  EXPECT_EQ(NameWithoutFolder("/a/b.csv"), "b.csv");
  EXPECT_EQ(NameWithoutFolder("b.csv"), "b.csv");
  EXPECT_EQ(NameWithoutFolder("/a/"), "");
}

}  // namespace
}  // namespace quenlor::app
