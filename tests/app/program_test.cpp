// SPDX-License-Identifier: MIT
//
// The program as a shell sees it: what it says, how it ends and where it leaves its files, without any
// display.

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

struct Ended {
  int code = -1;
  std::string output;
  std::string errors;
};

// No platform is named and no display is there, so whatever needs one fails; unless `variable` says
// otherwise.
Ended Call(const QStringList& arguments, const QString& variable = {}, const QString& value = {}) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(QString::fromLatin1(name));
  if (!variable.isEmpty()) environment.insert(variable, value);
  process.setProcessEnvironment(environment);
  process.start(QStringLiteral(QUENLOR_PROGRAM), arguments);
  if (!process.waitForFinished(20'000)) process.kill();
  const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  return {code, process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}

TEST(TheProgram, HelpsWithoutADisplay) {
  const Ended ended = Call({"--help"});
  EXPECT_EQ(ended.code, 0);
  EXPECT_THAT(ended.output, StartsWith("Usage: quenlor"));
  EXPECT_THAT(ended.errors, IsEmpty());
}

TEST(TheProgram, TellsItsVersionCommitAndQtWithoutADisplay) {
  const Ended ended = Call({"--version"});
  EXPECT_EQ(ended.code, 0);
  EXPECT_THAT(
      ended.output,
      MatchesRegex("Quenlor Ver\\.[^\n]+\n[0-9]+\\.[0-9]+\\.[0-9]+, commit [-0-9a-z]+, Qt 6\\.[0-9.]+\n"));
}

TEST(TheProgram, EndsWith2OnWrongUsageAndSaysWhy) {
  for (const QStringList& wrong : {QStringList{"--colour"}, QStringList{"--port", "x"}, QStringList{"a", "b"},
                                   QStringList{"--virtual", "1", "--instrument", "--interval never"}}) {
    const Ended ended = Call(wrong);
    EXPECT_EQ(ended.code, 2) << wrong.join(' ').toStdString();
    EXPECT_THAT(ended.errors, StartsWith("quenlor: "));
    EXPECT_THAT(ended.errors, HasSubstr("(see quenlor --help)"));
    EXPECT_THAT(ended.output, IsEmpty());
  }
}

TEST(TheProgram, EndsWith2AndALineWhereItCannotShowAWindow) {
  for (const auto& [variable, value] : std::vector<std::pair<const char*, const char*>>{
           {"", ""}, {"DISPLAY", ":987"}, {"QT_QPA_PLATFORM", "abacus"}}) {
    const Ended ended = Call({}, QString::fromLatin1(variable), QString::fromLatin1(value));
    EXPECT_EQ(ended.code, 2) << variable;
    EXPECT_EQ(ended.errors,
              "quenlor: there is no display to show a window on; --measure, --report, --graph, "
              "--statistics and --merge need none\n")
        << variable;
    EXPECT_THAT(ended.output, IsEmpty());
  }
}

// The program is started without a word about folders, and ended once its settings are there.
class ProgramFiles : public testing::Test {
 protected:
  QString Path(const QString& name) const { return folder_.filePath(name); }

  bool MakesItsSettings(const QString& program, const QString& settings) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), Path("data"));
    process.setProcessEnvironment(environment);
    process.start(program, QStringList());
    const bool made = QTest::qWaitFor([&] { return QFile::exists(settings); }, 20'000);
    process.kill();
    process.waitForFinished(20'000);
    return made;
  }

  QTemporaryDir folder_;
};

TEST_F(ProgramFiles, OfACopyInstalledAnywhereStandInTheUsersDataFolder) {
  ASSERT_EQ(
      QProcess::execute(QStringLiteral(QUENLOR_CMAKE),
                        {"--install", QStringLiteral(QUENLOR_BUILD_FOLDER), "--prefix", Path("prefix")}),
      0);
  const QStringList programs = QDir(Path("prefix/bin")).entryList(QDir::Files);
  EXPECT_TRUE(MakesItsSettings(Path("prefix/bin/quenlor"), Path("data/Quenlor/quenlor.ini")));
  EXPECT_EQ(QDir(Path("prefix/bin")).entryList(QDir::Files | QDir::Hidden), programs);
}

TEST_F(ProgramFiles, OfAnUnpackedCopyStandBesideIt) {
  ASSERT_TRUE(QDir().mkpath(Path("unpacked/bin")));
  ASSERT_TRUE(QFile::copy(QStringLiteral(QUENLOR_PROGRAM), Path("unpacked/bin/quenlor")));
  EXPECT_TRUE(MakesItsSettings(Path("unpacked/bin/quenlor"), Path("unpacked/bin/quenlor.ini")));
  EXPECT_FALSE(QDir(Path("data/Quenlor")).exists());
}

}  // namespace
}  // namespace quenlor::app
