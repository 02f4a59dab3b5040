// SPDX-License-Identifier: MIT
// The disk of Windows: names beyond its code page and its old length, attributes, and files that others hold.

#include "platform/qt/qt_file_system.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qt_windows.h>

#include "platform/qt/native_file.h"
#include "platform/qt/system_name.h"

namespace quenlor::platform::qt {
namespace {

using testing::StartsWith;

class WindowsDisk : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.path().toStdString() + "/" + name; }
  std::string Content(const std::string& path) const {
    const auto content = files_.Read(path);
    return content.ok() ? content.value() : "(" + content.failure().text + ")";
  }

  QTemporaryDir folder_;
  QtFileSystem files_;
};

TEST_F(WindowsDisk, APathMayBeLongerThanTheOldLimit) {
  std::string folder = Path("");
  while (folder.size() < 400) {
    folder += "a folder of a deep tree/";
    ASSERT_NE(::CreateDirectoryW(SystemName(folder).c_str(), nullptr), 0);
  }
  const std::string path = folder + "viscosité 粘度.csv";

  EXPECT_FALSE(files_.Replace(path, "old"));
  EXPECT_FALSE(files_.Replace(path, "new"));
  EXPECT_FALSE(files_.Append(path, "er"));
  EXPECT_FALSE(files_.Sync(path));
  EXPECT_EQ(Content(path), "newer");
  EXPECT_TRUE(files_.Exists(path));
  EXPECT_TRUE(files_.ModifiedAt(path).ok());
  ASSERT_EQ(files_.List(folder).size(), 1U);
  EXPECT_EQ(files_.List(folder).front().name, "viscosité 粘度.csv");
  EXPECT_FALSE(files_.Rename(path, folder + "b.csv"));
  EXPECT_NE(files_.Lock(folder + "b.lock"), nullptr);
  EXPECT_EQ(Content(folder + "b.csv"), "newer");
}

TEST_F(WindowsDisk, ShortNamesStayAsTheyAre) {
  EXPECT_EQ(SystemName("C:/a/b.csv"), LR"(C:\a\b.csv)");
  EXPECT_EQ(SystemName("b.csv"), L"b.csv");
  EXPECT_EQ(SystemName(R"(\\?\C:\a)"), LR"(\\?\C:\a)");
}

TEST_F(WindowsDisk, LongOnesAreWholeWithAMarkInFront) {
  const std::string name(300, 'n');
  EXPECT_EQ(SystemName("C:/a/../" + name), LR"(\\?\C:\)" + std::wstring(300, L'n'));
  EXPECT_EQ(SystemName("//server/share/" + name), LR"(\\?\UNC\server\share\)" + std::wstring(300, L'n'));
}

TEST_F(WindowsDisk, AHiddenFileStaysHidden) {
  const std::string path = Path("a");
  ASSERT_FALSE(files_.Replace(path, "old"));
  ASSERT_NE(::SetFileAttributesW(SystemName(path).c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  EXPECT_FALSE(files_.Replace(path, "new"));
  EXPECT_EQ(Content(path), "new");
  EXPECT_NE(::GetFileAttributesW(SystemName(path).c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(WindowsDisk, AFileThatMayOnlyBeReadIsNotReplaced) {
  const std::string path = Path("a");
  ASSERT_FALSE(files_.Replace(path, "old"));
  ASSERT_NE(::SetFileAttributesW(SystemName(path).c_str(), FILE_ATTRIBUTE_READONLY), 0);
  const Done done = files_.Replace(path, "new");
  ASSERT_TRUE(done);
  EXPECT_EQ(done->kind, FailureKind::kPermission);
  EXPECT_EQ(Content(path), "old");
  ::SetFileAttributesW(SystemName(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

// As spreadsheets do.
TEST_F(WindowsDisk, AFileThatAnotherProgramHoldsStaysWholeAndIsToldAsSuch) {
  const std::string path = Path("a.csv");
  ASSERT_FALSE(files_.Replace(path, "old"));
  const OpenHandle other(::CreateFileW(SystemName(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                       OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(other);
  const Done done = files_.Replace(path, "new");
  ASSERT_TRUE(done);
  EXPECT_EQ(done->text, "cannot replace " + path + ": it is open in another program");
  EXPECT_EQ(done->kind, FailureKind::kPermission);
  EXPECT_EQ(Content(path), "old");
  EXPECT_EQ(files_.List(Path("")).size(), 1U);
}

TEST_F(WindowsDisk, WhatAKilledSaveLeftGoesWithTheNextOneOfThatFileButNotWhatIsBeingWritten) {
  ASSERT_FALSE(files_.Replace(Path("a.csv.quenlor-abcdef"), "left"));
  ASSERT_FALSE(files_.Replace(Path("a.csv.quenlor-uvwxyz"), "being written"));
  ASSERT_FALSE(files_.Replace(Path("b.csv.quenlor-abcdef"), "of another"));
  const OpenHandle writer(::CreateFileW(SystemName(Path("a.csv.quenlor-uvwxyz")).c_str(), GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(writer);
  EXPECT_FALSE(files_.Replace(Path("a.csv"), "new"));
  EXPECT_FALSE(files_.Exists(Path("a.csv.quenlor-abcdef")));
  EXPECT_TRUE(files_.Exists(Path("a.csv.quenlor-uvwxyz")));
  EXPECT_TRUE(files_.Exists(Path("b.csv.quenlor-abcdef")));
}

TEST_F(WindowsDisk, ALockTellsWhoHoldsIt) {
  const auto held = files_.Lock(Path("a.lock"));
  EXPECT_EQ(files_.Lock(Path("a.lock")), nullptr);
  EXPECT_THAT(files_.HolderOf(Path("a.lock")),
              StartsWith("process " + std::to_string(::GetCurrentProcessId()) + " ("));
}

TEST_F(WindowsDisk, WhatALockFileSaysLocksNothing) {
  ASSERT_FALSE(files_.Replace(Path("a.lock"), "process 1 (quenlor)"));
  EXPECT_NE(files_.Lock(Path("a.lock")), nullptr);
  EXPECT_FALSE(files_.Exists(Path("a.lock"))) << "it goes with the lock";
}

TEST_F(WindowsDisk, FailuresAreToldInEnglishAndByTheirKind) {
  const Done missing = files_.Append(Path("none"), "x");
  ASSERT_TRUE(missing);
  EXPECT_EQ(missing->kind, FailureKind::kNotFound);
  EXPECT_THAT(missing->text, StartsWith("cannot append to "));
  EXPECT_EQ(ReasonOf(ERROR_ACCESS_DENIED).kind, FailureKind::kPermission);
  EXPECT_EQ(ReasonOf(ERROR_SHARING_VIOLATION).kind, FailureKind::kPermission);
  EXPECT_EQ(ReasonOf(ERROR_DISK_FULL).kind, FailureKind::kFull);
  EXPECT_EQ(ReasonOf(ERROR_PATH_NOT_FOUND).kind, FailureKind::kNotFound);
  EXPECT_EQ(ReasonOf(ERROR_BAD_NETPATH).kind, FailureKind::kOther);
}

TEST_F(WindowsDisk, ADeviceIsNoFileToBeReplaced) {
  EXPECT_EQ(KindOfFile("NUL"), FileKind::kOther);
  EXPECT_FALSE(files_.Replace("NUL", "gone"));
}

}  // namespace
}  // namespace quenlor::platform::qt
