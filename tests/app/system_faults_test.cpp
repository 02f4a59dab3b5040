// SPDX-License-Identifier: MIT
// The real program and real files: it is killed at its calls to the system and at random moments, and its
// calls fail. The tests whose names begin with DISABLED take long; tools/kills runs them.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cerrno>
#include <random>

#include <gtest/gtest.h>

#include "data/data_file.h"
#include "data/document.h"
#include "data/text_number.h"

#ifdef QUENLOR_FAULT_SHIM

namespace quenlor::app {
namespace {

constexpr int kPatience = 60'000;  // ms; only a failing test waits that long
constexpr int kReadings = 8;
constexpr const char* kOldLog = "No.,Time,Viscosity\r\n1,00.0,4711\r\n";
constexpr const char* kOldFile = "No.,Time,Viscosity\r\n1,00.0,4712\r\n";

QByteArray Bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Put(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

// A laboratory with readings on the disk that nobody has saved, and an old file that a save will replace.
class Lab {
 public:
  explicit Lab(const QStringList& instrument_options) {
    Put(Path("Com_1.txt"), kOldLog);
    Put(Path("saved.csv"), kOldFile);
    Put(Path("quenlor-road-driver.ini"),
        "16\r\n6\r\n1\r\n7\r\n2\r\n1\r\n0\r\n0\r\n0\r\n5\r\n2\r\n1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    instrument_.start(QStringLiteral(QUENLOR_INSTRUMENT), instrument_options);
    if (instrument_.waitForReadyRead(kPatience))
      device_ = QString::fromLocal8Bit(instrument_.readLine()).trimmed();
  }
  ~Lab() {
    instrument_.kill();
    instrument_.waitForFinished();
  }
  Lab(const Lab&) = delete;
  Lab& operator=(const Lab&) = delete;

  QString Device() const { return device_; }
  QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

  // Measures and saves; at that call the fault.
  void Begin(QProcess& program, int at = 0, const QString& fault = {}) const {
    QProcessEnvironment with = QProcessEnvironment::systemEnvironment();
    with.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(QUENLOR_FAULT_SHIM));
    with.insert(QStringLiteral("QUENLOR_FAULT_FOLDER"), folder_.path() + QLatin1Char('/'));
    with.insert(QStringLiteral("QUENLOR_FAULT_LOG"), log_.filePath(QStringLiteral("calls")));
    if (at > 0) with.insert(QStringLiteral("QUENLOR_FAULT_AT"), QString::number(at));
    with.insert(QStringLiteral("QUENLOR_FAULT"), fault);
    program.setProcessEnvironment(with);
    program.start(QStringLiteral(QUENLOR_ROAD_DRIVER),
                  {folder_.path(), device_, QString::number(kReadings), Path("saved.csv")});
  }
  QList<QByteArray> Calls() const {
    QList<QByteArray> calls = Bytes(log_.filePath(QStringLiteral("calls"))).split('\n');
    calls.removeLast();
    return calls;
  }

  QStringList Files(const char* pattern) const {
    return QDir(folder_.path()).entryList({QString::fromLatin1(pattern)});
  }
  int ReadingsSeen(QProcess& program) const {
    const QList<QByteArray> lines = program.readAllStandardOutput().trimmed().split('\n');
    return lines.last().toInt();
  }

  // What was on the disk before still is, in whole; what came stands in order, and all of it that was seen.
  void ExpectNothingLost(int seen) const {
    bool old_log_is_there = false;
    int most = 0;
    for (const QString& name : Files("Com_1*.txt")) {
      const QByteArray bytes = Bytes(folder_.filePath(name));
      old_log_is_there = old_log_is_there || bytes == kOldLog;
      if (bytes == kOldLog) continue;
      const QByteArray whole_lines = bytes.left(bytes.lastIndexOf('\n') + 1);
      if (whole_lines.isEmpty()) continue;
      const auto table = data::ParseDataFile(whole_lines.toStdString()).table;
      for (data::Document::Row row = 2; row < table.EntryRow(); ++row)
        EXPECT_EQ(data::C_Val(table.TextMatrix(row, 2)), data::C_Val(table.TextMatrix(row - 1, 2)) + 1);
      most = std::max(most, static_cast<int>(table.EntryRow() - 1));
    }
    EXPECT_TRUE(old_log_is_there) << Files("*").join(QLatin1Char(' ')).toStdString();
    EXPECT_GE(most, seen) << "readings that the window has shown";
    const QByteArray saved = Bytes(Path("saved.csv"));
    if (saved == kOldFile) return;
    EXPECT_TRUE(saved.contains("Memo,")) << "the end of a data file";
    EXPECT_GE(data::ParseDataFile(saved.toStdString()).table.EntryRow() - 1, kReadings);
  }

  // The next program measures and saves as if nothing had been, and tidies up.
  void ExpectTheNextOneWorks() const {
    QProcess next;
    Begin(next);
    ASSERT_TRUE(next.waitForFinished(kPatience));
    EXPECT_EQ(next.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(next.exitCode(), 0);
    EXPECT_GE(ReadingsSeen(next), kReadings);
    EXPECT_GE(data::ParseDataFile(Bytes(Path("saved.csv")).toStdString()).table.EntryRow() - 1, kReadings);
    EXPECT_EQ(Files("saved.csv.quenlor-*").size(), 0);
    EXPECT_EQ(Files("*.lock").size(), 0);
  }

 private:
  QTemporaryDir folder_;
  QTemporaryDir log_;
  QProcess instrument_;
  QString device_;
};

QStringList Counting() {
  return {QStringLiteral("--interval"), QStringLiteral("0.01"), QStringLiteral("--form"),
          QStringLiteral("numbered")};
}

int CallsOfARun() {
  Lab lab(Counting());
  QProcess program;
  lab.Begin(program);
  EXPECT_TRUE(program.waitForFinished(kPatience));
  EXPECT_EQ(program.exitCode(), 0);
  const QList<QByteArray> calls = lab.Calls();
  for (const char* call : {"write", "fsync", "rename"})
    EXPECT_TRUE(std::ranges::any_of(calls, [&](const QByteArray& line) { return line.startsWith(call); }))
        << call;
  return static_cast<int>(calls.size());
}

// Programs differ by a reading or two in how many calls they make, so the last calls may not come.
void KillAt(int call, int calls, bool try_the_next) {
  SCOPED_TRACE("killed at call " + std::to_string(call));
  Lab lab(Counting());
  QProcess program;
  lab.Begin(program, call, QStringLiteral("kill"));
  ASSERT_TRUE(program.waitForFinished(kPatience));
  if (call < calls / 2) {
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
  }
  lab.ExpectNothingLost(lab.ReadingsSeen(program));
  if (try_the_next) lab.ExpectTheNextOneWorks();
}

void FailAt(int call, const QString& fault) {
  SCOPED_TRACE("call " + std::to_string(call) + " fails with " + fault.toStdString());
  Lab lab(Counting());
  QProcess program;
  lab.Begin(program, call, fault);
  // A Start that is refused waits for an answer to its box.
  if (!program.waitForFinished(5000)) {
    program.kill();
    program.waitForFinished();
  } else {
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  }
  lab.ExpectNothingLost(lab.ReadingsSeen(program));
}

void KillAtRandom(int kills) {
  std::mt19937 random(kills);
  for (int kill = 0; kill < kills; ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Lab lab({QStringLiteral("--interval"), QStringLiteral("0.000694"), QStringLiteral("--form"),
             QStringLiteral("numbered")});
    QProcess program;
    program.start(QStringLiteral(QUENLOR_ROAD_DRIVER),
                  {lab.Path(""), lab.Device(), QStringLiteral("1000000"), lab.Path("saved.csv")});
    ASSERT_TRUE(program.waitForStarted(kPatience));
    QTest::qWait(100 + static_cast<int>(random() % 900));
    program.kill();
    ASSERT_TRUE(program.waitForFinished(kPatience));
    lab.ExpectNothingLost(lab.ReadingsSeen(program));
    if (kill % 10 == 0) lab.ExpectTheNextOneWorks();
  }
}

TEST(SystemFaults, AKillAtACallOfStartOrSaveLosesNothing) {
  const int calls = CallsOfARun();
  for (int call = 1; call <= calls; call += 1 + calls / 6) KillAt(call, calls, call == 1);
}

TEST(SystemFaults, DISABLED_AKillAtEveryCallOfStartAndSaveLosesNothing) {
  const int calls = CallsOfARun();
  std::printf("%d calls\n", calls);
  for (int call = 1; call <= calls; ++call) KillAt(call, calls, call % 4 == 0);
}

TEST(SystemFaults, ACallThatFailsLosesNothing) {
  const int calls = CallsOfARun();
  for (int call = 2; call <= calls; call += 1 + calls / 4) FailAt(call, QString::number(EIO));
}

TEST(SystemFaults, DISABLED_EveryCallThatFailsInEveryWayLosesNothing) {
  const int calls = CallsOfARun();
  for (const QString& fault : {QString::number(EIO), QString::number(ENOSPC), QString::number(EINTR),
                               QString::number(EACCES), QStringLiteral("short")}) {
    for (int call = 1; call <= calls; ++call) FailAt(call, fault);
  }
}

TEST(SystemFaults, AKillAtAnyMomentOfARunAtFullRateLosesNothing) { KillAtRandom(4); }

TEST(SystemFaults, DISABLED_TwoHundredKillsAtFullRateLoseNothing) { KillAtRandom(200); }

}  // namespace
}  // namespace quenlor::app

#endif
