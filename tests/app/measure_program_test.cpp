// SPDX-License-Identifier: MIT
//
// Measuring without a window, as a script and the system's services see it: the real program at the end of a
// pseudo-terminal, without any display.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/platform/pseudo_terminal.h"

namespace quenlor::app {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr int kPatience = 30'000;  // ms; only a failing test waits that long

std::string FileBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// One call of the program in a folder of its own. Unless a test says otherwise, nothing is sent, and times
// have tenths.
class Call {
 public:
  explicit Call(const QTemporaryDir& folder) : folder_(folder) {
    QFile settings(folder_.filePath(QStringLiteral("quenlor.ini")));
    if (settings.open(QIODevice::WriteOnly))
      settings.write(
          "16\r\n6\r\n1\r\n4\r\n2\r\n1\r\n0\r\n1\r\n0\r\n5\r\n2\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder_.path());
  }
  ~Call() {
    process.kill();
    process.waitForFinished();
  }
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  void Start(const tests::PseudoTerminal& line, const QStringList& more = {}) {
    StartOn(QStringList{"--port", "1=" + QString::fromStdString(line.Device())} + more);
  }
  void StartOn(const QStringList& arguments, const QString& file = QStringLiteral("out.csv")) {
    process.start(QStringLiteral(QUENLOR_PROGRAM),
                  QStringList{"--measure", file, "--folder", folder_.path()} + arguments);
    ASSERT_TRUE(process.waitForStarted(kPatience));
  }

  // Waits for that text of its standard error, or output.
  bool Says(const char* text) {
    return QTest::qWaitFor([&] { return Gather().errors.find(text) != std::string::npos; }, kPatience);
  }
  bool Prints(const std::string& text) {
    return QTest::qWaitFor([&] { return Gather().output.find(text) != std::string::npos; }, kPatience);
  }
  void Signal(int signal) { ::kill(static_cast<pid_t>(process.processId()), signal); }

  // How it ended; -1 when it did not, or was killed.
  int Code() {
    if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, kPatience)) return -1;
    Gather();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  }

  std::string File(const char* name) const { return FileBytes(folder_.filePath(QString::fromLatin1(name))); }
  std::string Saved() const { return File("out.csv"); }
  std::string Log() const { return File("Com_1.txt"); }

  QProcess process;
  std::string output;
  std::string errors;

 private:
  const Call& Gather() {
    output += process.readAllStandardOutput().toStdString();
    errors += process.readAllStandardError().toStdString();
    return *this;
  }

  const QTemporaryDir& folder_;
};

class MeasureProgram : public testing::Test {
 protected:
  // A line of the instrument, and its arrival on standard output.
  void Reading(const std::string& text) {
    line.Write(text + "\r\n");
    ASSERT_TRUE(call.Prints("\t" + text + "\t")) << call.errors;
  }
  void Begin(const QStringList& more = {}) {
    call.Start(line, more);
    ASSERT_TRUE(call.Says("Measuring: Port 1")) << call.errors;
  }

  QTemporaryDir folder;
  tests::PseudoTerminal line;
  Call call{folder};
};

TEST_F(MeasureProgram, TellsEachReadingAtOnceAndWritesTheFileAtTheEnd) {
  Begin();
  Reading("1.5");
  EXPECT_THAT(call.Log(), EndsWith("1,00.0,1.5,,,\r\n"));
  EXPECT_EQ(call.Saved(), "");
  Reading("2.5");
  call.Signal(SIGTERM);
  EXPECT_EQ(call.Code(), 0);
  EXPECT_THAT(call.Saved(), StartsWith(call.Log()));
  EXPECT_THAT(call.Saved(), HasSubstr("\r\nInfo,No.1,No.1,"));
  EXPECT_THAT(call.errors, HasSubstr("Stopping: asked to end"));
  EXPECT_THAT(call.errors, HasSubstr("Saved out.csv"));
}

TEST_F(MeasureProgram, StopsTheInstrumentAtASignalAndTakesWhatStillComes) {
  Begin({"--visco", "on"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return line.Read() == "QUENLOR\r"; }, kPatience));
  Reading("1");
  call.Signal(SIGINT);
  ASSERT_TRUE(QTest::qWaitFor([&] { return line.Read() == "STOP\r"; }, kPatience));
  Reading("2");
  EXPECT_EQ(call.Code(), 0);
  EXPECT_THAT(call.Saved(), HasSubstr(",2,,,\r\n"));
}

TEST_F(MeasureProgram, NeverWritesTheSettings) {
  const std::string before = call.File("quenlor.ini");
  Begin({"--baud", "19200", "--readings", "1"});
  Reading("1");
  EXPECT_EQ(call.Code(), 0);
  EXPECT_EQ(call.File("quenlor.ini"), before);
  EXPECT_THAT(call.errors, HasSubstr("19200 N81 CR"));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
            (QStringList{"Com_1.txt", "out.csv", "quenlor.ini", "Saved.txt"}));
}

TEST_F(MeasureProgram, EndsWith2OnAWrongWord) {
  call.Start(line, {"--visco", "maybe"});
  EXPECT_EQ(call.Code(), 2);
  EXPECT_THAT(call.errors, HasSubstr("--visco needs one of off, on, not maybe"));
}

TEST_F(MeasureProgram, EndsWith3WhereThePortCannotBeOpened) {
  call.StartOn({"--port", "1=/dev/not-there"});
  EXPECT_EQ(call.Code(), 3);
  EXPECT_THAT(call.errors, HasSubstr("/dev/not-there"));
  EXPECT_EQ(call.Saved(), "");
}

TEST_F(MeasureProgram, EndsWith4WhereTheFileCouldNotBeWritten) {
  const std::vector<std::pair<QString, const char*>> wrong = {{"none/out.csv", "there is no folder none"},
                                                              {"quenlor.ini", "it is there already"},
                                                              {folder.path(), "it is a folder"}};
  for (const auto& [output, words] : wrong) {
    Call other(folder);
    other.StartOn({"--virtual", "1"}, output);
    EXPECT_EQ(other.Code(), 4);
    EXPECT_THAT(other.errors, HasSubstr(words));
    EXPECT_EQ(other.Log(), "") << "nothing was begun";
  }
}

TEST_F(MeasureProgram, EndsWith4OnAFullDiskWithTheReadingsInTheLog) {
  call.StartOn({"--port", "1=" + QString::fromStdString(line.Device()), "--readings", "1"},
               QStringLiteral("/dev/full"));
  ASSERT_TRUE(call.Says("Measuring"));
  Reading("1");
  EXPECT_EQ(call.Code(), 4);
  EXPECT_THAT(call.errors, HasSubstr("No space left on device; the readings are in "));
  EXPECT_THAT(call.Log(), EndsWith("1,00.0,1,,,\r\n"));
}

TEST_F(MeasureProgram, ALogThatMayGrowNoMoreCostsNoReading) {
  Begin({"--readings", "40"});
  const rlimit small{300, 300};
  ASSERT_EQ(::prlimit(static_cast<pid_t>(call.process.processId()), RLIMIT_FSIZE, &small, nullptr), 0);
  for (int n = 1; n <= 40; ++n) Reading("1000" + std::to_string(n));
  EXPECT_EQ(call.Code(), 4) << "the data file does not fit either";
  EXPECT_THAT(call.errors, HasSubstr("Raw Log Not Written"));
  EXPECT_THAT(call.errors, HasSubstr("File too large"));
  EXPECT_LE(call.Log().size(), 300U);
  EXPECT_THAT(call.Log(), EndsWith("\r\n")) << "no half line";
}

TEST_F(MeasureProgram, EndsWith5WhenTheDeviceIsLostWithAllThatCame) {
  Begin();
  Reading("1");
  line.HangUp();
  EXPECT_EQ(call.Code(), 5);
  EXPECT_THAT(call.errors, HasSubstr("port 1 is gone"));
  EXPECT_THAT(call.Saved(), HasSubstr("1,00.0,1,,,\r\nInfo"));
}

TEST_F(MeasureProgram, EndsWith5WhenTheInstrumentNoLongerAnswers) {
  Begin({"--repeat", "0.2", "--command", "QM"});
  Reading("1");
  EXPECT_EQ(call.Code(), 5);
  EXPECT_THAT(call.errors, HasSubstr("no reply to QM for 5 s"));
  EXPECT_THAT(call.Saved(), HasSubstr("1,00.0,1,,,\r\nInfo"));
}

TEST_F(MeasureProgram, WaitsForALostDeviceIfAsked) {
  const QString link = folder.filePath(QStringLiteral("tty"));
  ASSERT_TRUE(QFile::link(QString::fromStdString(line.Device()), link));
  call.StartOn({"--port", "1=" + link, "--on-loss", "wait", "--readings", "2"});
  ASSERT_TRUE(call.Says("Measuring"));
  Reading("1");
  QFile::remove(link);
  line.HangUp();
  ASSERT_TRUE(call.Says("Waiting for the port")) << call.errors;
  tests::PseudoTerminal again;
  ASSERT_TRUE(QFile::link(QString::fromStdString(again.Device()), link));
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        again.Write("2\r\n");
        return call.process.state() == QProcess::NotRunning;
      },
      kPatience));
  EXPECT_EQ(call.Code(), 0) << call.errors;
  EXPECT_THAT(call.Saved(), HasSubstr("1,00.0,1,,,\r\n2,00.0,2,,,\r\n"));
}

TEST_F(MeasureProgram, AKilledProgramLeavesEveryReadingInItsLog) {
  Begin();
  Reading("1");
  Reading("2");
  call.process.kill();
  call.process.waitForFinished(kPatience);
  EXPECT_EQ(call.Saved(), "");
  const std::string log = call.Log();
  EXPECT_THAT(log, HasSubstr(",1,,,\r\n"));
  EXPECT_THAT(log, EndsWith(",2,,,\r\n"));

  Call next(folder);
  next.Start(line, {"--readings", "1"});
  ASSERT_TRUE(next.Says("Measuring"));
  const QStringList copies = QDir(folder.path()).entryList({QStringLiteral("Com_1_*.txt")});
  ASSERT_EQ(copies.size(), 1);
  EXPECT_EQ(FileBytes(folder.filePath(copies[0])), log);
}

TEST_F(MeasureProgram, TwoOnOneFolderShareNeitherLineNorLog) {
  Begin();
  Call same_line(folder);
  same_line.Start(line);
  EXPECT_EQ(same_line.Code(), 3);
  EXPECT_THAT(same_line.errors, HasSubstr("busy"));
  tests::PseudoTerminal another;
  Call same_log(folder);
  same_log.Start(another);
  EXPECT_EQ(same_log.Code(), 3);
  EXPECT_THAT(same_log.errors, HasSubstr("Com_1.lock is held by process"));
  Reading("1");
  EXPECT_THAT(call.Log(), EndsWith("1,00.0,1,,,\r\n"));
}

TEST_F(MeasureProgram, AReaderThatGoesAwayDoesNotEndIt) {
  call.process.setStandardOutputFile(QStringLiteral("/dev/full"));
  Begin({"--readings", "2"});
  line.Write("1\r\n2\r\n");
  EXPECT_EQ(call.Code(), 4);
  EXPECT_THAT(call.errors, HasSubstr("cannot write to standard output"));
  EXPECT_THAT(call.Saved(), HasSubstr("1,00.0,1,,,\r\n1,00.0,2,,,\r\nInfo"));
}

TEST_F(MeasureProgram, QuietlyTellsOnlyReadings) {
  call.Start(line, {"--quiet", "--format", "csv", "--readings", "1"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !call.Log().empty(); }, kPatience));
  line.Write("1\r\n");
  EXPECT_EQ(call.Code(), 0);
  EXPECT_EQ(call.output, "No.,Time,Data 1,Data 2,Data 3,Data 4\n1,00.0,1,,,\n");
  EXPECT_THAT(call.errors, IsEmpty());
}

TEST_F(MeasureProgram, MeasuresTheVirtualViscometerInSeveralRuns) {
  call.StartOn({"--virtual", "1", "--instrument", "--interval 0.05", "--visco", "on", "--readings", "2",
                "--runs", "2", "--pause", "0.1", "--format", "json"});
  EXPECT_EQ(call.Code(), 0) << call.errors;
  EXPECT_THAT(call.output, StartsWith("{\"run\": 1, "));
  EXPECT_THAT(call.output, HasSubstr("{\"run\": 2, "));
  EXPECT_THAT(call.Saved(), HasSubstr("\r\nInfo,No.2,No.2,"));
}

}  // namespace
}  // namespace quenlor::app
