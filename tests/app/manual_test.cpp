// SPDX-License-Identifier: MIT
//
// What the shell is told of the programs' options elsewhere is what the programs say themselves.

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::app {
namespace {

using testing::ContainerEq;
using testing::Contains;

struct ProgramOnDisk {
  const char* name;
  const char* file;
};

class Manual : public testing::TestWithParam<ProgramOnDisk> {
 protected:
  static QString Read(const QString& file) {
    QFile stored(QStringLiteral(QUENLOR_PACKAGING) + file.arg(QString::fromLatin1(GetParam().name)));
    EXPECT_TRUE(stored.open(QIODevice::ReadOnly)) << stored.fileName().toStdString();
    return QString::fromUtf8(stored.readAll());
  }

  // The long options that a text names. Those in quotes are of another program, in an example.
  static std::set<std::string> OptionsIn(QString text) {
    static const QRegularExpression quoted(QStringLiteral("\"[^\"\n]*\""));
    static const QRegularExpression option(QStringLiteral("(?<![-\\w])--[a-z][-a-z]*"));
    text.remove(quoted);
    std::set<std::string> options;
    for (auto found = option.globalMatch(text); found.hasNext();)
      options.insert(found.next().captured().toStdString());
    return options;
  }

  static std::set<std::string> OptionsOfTheProgram() {
    QProcess program;
    program.start(QString::fromLocal8Bit(GetParam().file), {QStringLiteral("--help")});
    EXPECT_TRUE(program.waitForFinished());
    return OptionsIn(QString::fromUtf8(program.readAllStandardOutput()));
  }
};

INSTANTIATE_TEST_SUITE_P(OfBothPrograms, Manual,
                         testing::Values(ProgramOnDisk{"quenlor", QUENLOR_PROGRAM},
                                         ProgramOnDisk{"quenlor-instrument", QUENLOR_INSTRUMENT}),
                         [](const auto& program) {
                           return std::string(program.index == 0 ? "Quenlor" : "QuenlorInstrument");
                         });

TEST_P(Manual, PageExplainsTheOptionsThatHelpNames) {
  QString page = Read(QStringLiteral("/man/%1.1.in"));
  page.replace(QStringLiteral("\\-"), QStringLiteral("-"));
  // What stands first behind a tag, as the name of what is explained below.
  const QStringList lines = page.split('\n');
  QString explained;
  for (qsizetype at = 1; at < lines.size(); ++at) {
    if (lines[at - 1] == QStringLiteral(".TP")) explained += lines[at] + '\n';
  }

  const std::set<std::string> options = OptionsOfTheProgram();
  ASSERT_THAT(options, Contains("--version"));
  EXPECT_THAT(OptionsIn(page), ContainerEq(options));
  EXPECT_THAT(OptionsIn(explained), ContainerEq(options));
}

TEST_P(Manual, CompletionOffersTheOptionsThatHelpNames) {
  const std::set<std::string> options = OptionsOfTheProgram();
  for (const char* shell : {"/completions/%1", "/completions/_%1"}) {
    QString completion = Read(QString::fromLatin1(shell));
    completion.remove(QRegularExpression(QStringLiteral("(?m)^#.*$")));
    EXPECT_THAT(OptionsIn(completion), ContainerEq(options)) << shell;
  }
}

}  // namespace
}  // namespace quenlor::app
