// SPDX-License-Identifier: MIT
//
// The program as a shell sees it: what it says and how it ends, without any display.

#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Ended {
  int code = -1;
  std::string output;
  std::string errors;
};

// No platform is named and no display is there, so whatever needs one fails.
Ended Call(const QStringList& arguments) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(QString::fromLatin1(name));
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

TEST(TheProgram, TellsItsVersionWithoutADisplay) {
  const Ended ended = Call({"--version"});
  EXPECT_EQ(ended.code, 0);
  EXPECT_THAT(ended.output, StartsWith("Quenlor Ver."));
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

}  // namespace
}  // namespace quenlor::app
