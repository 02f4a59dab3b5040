// SPDX-License-Identifier: MIT
#include "app/desk/settings_file.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/test_clock.h"

namespace quenlor::app {
namespace {

namespace setting = data::setting;

constexpr const char* kPath = "/lab/quenlor.ini";

struct SettingsFileTest : testing::Test {
  platform::memory::MemoryFileSystem files;
  SettingsFile settings{files, kPath, false};
};

TEST_F(SettingsFileTest, AMissingFileIsMadeWithTheDefaults) {
  settings.LoadSettings();
  EXPECT_EQ(files.Content(kPath), data::SettingsList().Text());
}

TEST_F(SettingsFileTest, WhatWasSavedIsLoaded) {
  settings.LoadSettings();
  settings.List().Set(setting::kBPS, 5);
  settings.List().Set(setting::kFieldCount, "8");
  settings.SaveSettings();

  SettingsFile other(files, kPath, true);
  other.LoadSettings();
  EXPECT_EQ(other.List().Text(), settings.List().Text());
}

TEST_F(SettingsFileTest, AFileThatCannotBeReadStaysAndTheDefaultsServe) {
  files.Put(kPath, "4\r\n");
  files.Unreadable(kPath);
  settings.LoadSettings();
  EXPECT_EQ(settings.List().Text(), data::SettingsList().Text());
  EXPECT_EQ(files.Content(kPath), "4\r\n");
}

TEST_F(SettingsFileTest, AFileThatCannotBeWrittenChangesNothingForTheRunningProgram) {
  settings.LoadSettings();
  files.Refuse("/lab", "Permission denied");
  settings.List().Set(setting::kBPS, 5);
  settings.SaveSettings();
  EXPECT_EQ(settings.List().Index(setting::kBPS), 5);
}

TEST_F(SettingsFileTest, WhatCannotBeWrittenIsToldAtThatChoice) {
  std::string told;
  SettingsFile telling(files, kPath, false, [&](const std::string& trouble) { told += trouble + "\n"; });
  telling.LoadSettings();
  EXPECT_EQ(told, "");
  files.Refuse("/lab", "Read-only file system");
  telling.SaveSettings();
  EXPECT_EQ(told, "cannot replace /lab/quenlor.ini: Read-only file system\n");
}

TEST_F(SettingsFileTest, AnUnreadFileIsToldAndSetAsideByTheFirstChoice) {
  std::string told;
  SettingsFile telling(files, kPath, false, [&](const std::string& trouble) { told = trouble; });
  files.Put(kPath, "4\r\n");
  files.SetModifiedAt(kPath, platform::memory::MomentAt(2026, 11, 21, 9, 30).local_second);
  files.Unreadable(kPath);
  telling.LoadSettings();
  EXPECT_EQ(told, "cannot read /lab/quenlor.ini: Permission denied (it stays as it is)");
  EXPECT_EQ(files.Calls().replaces, 0);

  telling.SaveSettings();
  telling.SaveSettings();

  EXPECT_EQ(files.Content(kPath), telling.List().Text());
  EXPECT_EQ(files.Content("/lab/quenlor_20261121-093000.ini"), "4\r\n");
  EXPECT_EQ(files.Calls().renames, 1);
}

TEST_F(SettingsFileTest, AnUnreadFileThatCannotBeSetAsideStays) {
  files.Put(kPath, "4\r\n");
  files.Unreadable(kPath);
  files.Refuse("/lab", "Read-only file system");
  settings.LoadSettings();
  const auto failed = settings.SaveSettings();
  ASSERT_TRUE(failed);
  EXPECT_EQ(files.Content(kPath), "4\r\n");
}

TEST_F(SettingsFileTest, NoiseIsReadUpToASensibleSize) {
  files.Put(kPath, std::string(1 << 20, 'x'));
  settings.LoadSettings();
  EXPECT_EQ(settings.List()[setting::kPortCount].size(), 65536U);
  EXPECT_EQ(settings.List()[setting::kFieldCount], data::SettingsList()[setting::kFieldCount]);
}

}  // namespace
}  // namespace quenlor::app
