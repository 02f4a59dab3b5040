// SPDX-License-Identifier: MIT
//
// The real program on a pseudo-terminal with the instrument at its other end: window, line, disk and clock
// are the machine's own.

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "app/program.h"
#include "app/program_name.h"
#include "tests/event_turns.h"

namespace quenlor::app {
namespace {

constexpr int kPatience = 60'000;  // ms; only a failing test waits that long

QByteArray FileBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The instrument program, and the device it sits behind.
class Instrument {
 public:
  explicit Instrument(const QStringList& options) {
    process_.start(QStringLiteral(QUENLOR_INSTRUMENT), options);
    if (process_.waitForReadyRead(10'000)) device_ = QString::fromLocal8Bit(process_.readLine()).trimmed();
  }
  ~Instrument() { HangUp(); }
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;

  QString Device() const { return device_; }
  void HangUp() {
    process_.kill();
    process_.waitForFinished();
  }

 private:
  QProcess process_;
  QString device_;
};

struct Road {
  QTemporaryDir folder;
  std::unique_ptr<Program> program;

  MainWindow& Open(const QString& device) {
    CommandLine line;
    line.folder = folder.path().toStdString();
    line.ports = {{1, device.toStdString()}};
    program = std::make_unique<Program>(line, instrument::ViscometerOptions{});
    program->Window().show();
    return program->Window();
  }
  void Click() {
    QTest::mouseClick(program->Window().findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
  }
  const data::MeasurementTable& Table() const { return program->Window().Document().Grid1(); }
  bool WaitForReadings(data::Document::Row count) {
    return QTest::qWaitFor([&] { return Table().Rows() - 2 >= count; }, kPatience);
  }
  QString Path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

  // No repeat requests, and no time scale that hides tenths: the lines come by themselves.
  void WriteSettings() {
    for (const std::string& name : {ProgramName() + ".ini", std::string("quenlor-road-driver.ini")}) {
      QFile file(Path(name.c_str()));
      ASSERT_TRUE(file.open(QIODevice::WriteOnly));
      file.write(
          "16\r\n6\r\n1\r\n7\r\n2\r\n1\r\n0\r\n0\r\n0\r\n5\r\n2\r\n1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    }
  }

  // Acts on the next box of that kind, which then is accepted.
  template <class Box>
  void Answer(const std::function<void(Box&)>& act) {
    auto* look = new QTimer(&program->Window());
    QObject::connect(look, &QTimer::timeout, look, [look, act] {
      auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      look->deleteLater();
      act(*box);
      static_cast<QDialog*>(box)->accept();
    });
    look->start(20);
  }
  void AnswerFileBox(const QString& path) {
    Answer<QFileDialog>([path](QFileDialog& box) { box.findChild<QLineEdit*>()->setText(path); });
  }
};

// Column 2 of a numbered instrument counts 1, 2, 3 …: whatever is lost or doubled breaks the count.
void ExpectCounting(const data::MeasurementTable& table, int count) {
  ASSERT_EQ(table.Rows() - 2, count);
  for (int n = 1; n <= count; ++n) ASSERT_EQ(table.TextMatrix(n, 2), std::to_string(n));
}

std::string AllCells(const data::MeasurementTable& table) {
  std::string text;
  for (data::Document::Row row = 0; row < table.EntryRow(); ++row) {
    table.AppendLine(row, '|', text);
    text += '\n';
  }
  return text;
}

TEST(WholeRoad, AHundredThousandLinesAtFullSpeedReachTableLogAndFile) {
  constexpr int kLines = 100'000;
  Instrument instrument({"--interval", "0", "--count", QString::number(kLines), "--form", "numbered"});
  Road road;
  road.WriteSettings();
  MainWindow& window = road.Open(instrument.Device());
  road.Click();
  ASSERT_TRUE(road.WaitForReadings(kLines));
  road.Click();
  ExpectCounting(road.Table(), kLines);

  const auto log = data::ParseDataFile(FileBytes(road.Path("Com_1.txt")).toStdString());
  EXPECT_EQ(AllCells(log.table), AllCells(road.Table()));

  road.AnswerFileBox(road.Path("saved.csv"));
  window.findChild<QAction*>(QStringLiteral("mSave"))->trigger();
  const std::string before = AllCells(road.Table());
  window.findChild<QAction*>(QStringLiteral("mNew"))->trigger();
  EXPECT_EQ(road.Table().Rows(), 2);
  road.AnswerFileBox(road.Path("saved.csv"));
  window.findChild<QAction*>(QStringLiteral("mOpen"))->trigger();
  EXPECT_EQ(AllCells(road.Table()), before);
}

TEST(WholeRoad, AKilledProgramLeavesEveryReadingInItsRawLog) {
  Instrument instrument({"--interval", "0", "--count", "2000", "--form", "numbered"});
  Road road;
  road.WriteSettings();
  QProcess victim;
  victim.start(QStringLiteral(QUENLOR_ROAD_DRIVER), {road.folder.path(), instrument.Device()});
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return FileBytes(road.Path("Com_1.txt")).count('\n') > 1500; }, kPatience));
  victim.kill();
  victim.waitForFinished();

  const QByteArray log = FileBytes(road.Path("Com_1.txt"));
  MainWindow& window = road.Open(instrument.Device());
  window.OpenFile(road.Path("Com_1.txt").toStdString());
  const auto readings = road.Table().Rows() - 2;
  EXPECT_EQ(readings, log.count('\n') - 1);
  EXPECT_TRUE(log.endsWith("\r\n")) << "no half line";
  ExpectCounting(road.Table(), static_cast<int>(readings));
}

TEST(WholeRoad, ASignalEndsTheProgramWithoutAQuestionAndARestartFindsEveryReading) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    Instrument instrument({"--interval", "0.01", "--form", "numbered"});
    Road road;
    road.WriteSettings();
    QProcess program;
    program.start(QStringLiteral(QUENLOR_ROAD_DRIVER), {road.folder.path(), instrument.Device()});
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return FileBytes(road.Path("Com_1.txt")).count('\n') > 20; }, kPatience));
    ::kill(static_cast<pid_t>(program.processId()), signal);
    ASSERT_TRUE(program.waitForFinished(kPatience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit) << signal;
    EXPECT_EQ(program.exitCode(), 0) << signal;
    EXPECT_TRUE(QFile::exists(road.Path("Window.txt"))) << "the window's place is kept";
    EXPECT_FALSE(QFile::exists(road.Path("Com_1.lock")));

    MainWindow& window = road.Open(instrument.Device());
    window.OpenFile(road.Path("Com_1.txt").toStdString());
    EXPECT_EQ(road.Table().Rows() - 2, FileBytes(road.Path("Com_1.txt")).count('\n') - 1);
    ExpectCounting(road.Table(), static_cast<int>(road.Table().Rows() - 2));
  }
}

TEST(WholeRoad, AfterAKillTheNextStartSetsTheOldLogAside) {
  Instrument instrument({"--interval", "0.05", "--form", "numbered"});
  Road road;
  road.WriteSettings();
  const QByteArray old = "No.,Time,Viscosity\r\n1,00.0,77\r\n";
  QFile log(road.Path("Com_1.txt"));
  ASSERT_TRUE(log.open(QIODevice::WriteOnly));
  log.write(old);
  log.close();
  road.Open(instrument.Device());
  road.Click();
  ASSERT_TRUE(road.WaitForReadings(2));
  const QStringList copies = QDir(road.folder.path()).entryList({QStringLiteral("Com_1_*.txt")});
  ASSERT_EQ(copies.size(), 1);
  EXPECT_EQ(FileBytes(road.folder.filePath(copies[0])), old);
}

TEST(WholeRoad, AnInstrumentThatHangsUpEndsTheMeasurementOnce) {
  Instrument instrument({"--interval", "0.01", "--form", "numbered"});
  Road road;
  road.WriteSettings();
  MainWindow& window = road.Open(instrument.Device());
  road.Click();
  ASSERT_TRUE(road.WaitForReadings(5));
  instrument.HangUp();
  auto* button = window.findChild<QPushButton*>(QStringLiteral("Command1"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return button->text() == QLatin1String("Start"); }, kPatience));
  tests::TakeTurns();
  EXPECT_EQ(window.findChild<QPlainTextEdit*>(QStringLiteral("Text1"))->toPlainText(),
            "Communication Error 1012");
  ExpectCounting(road.Table(), static_cast<int>(road.Table().Rows() - 2));
}

TEST(WholeRoad, AnAbsentDeviceIsRefusedInTheUsualWords) {
  Road road;
  MainWindow& window = road.Open(QStringLiteral("/dev/not-there"));
  QString text;
  road.Answer<QMessageBox>([&](QMessageBox& box) { text = box.text(); });
  road.Click();
  EXPECT_EQ(text.replace('\r', '\n'), "Can not Open !\nPlease Check Setting of Com Port !");
  EXPECT_TRUE(
      window.findChild<QLabel*>(QStringLiteral("Status"))->text().contains(QStringLiteral("/dev/not-there")));
  EXPECT_FALSE(QFile::exists(road.Path("Com_1.txt")))
      << "nothing is logged of a measurement that did not start";
}

TEST(WholeRoad, TwoProgramsOnOneFolderDoNotShareARawLog) {
  Instrument first({"--interval", "0.05", "--form", "numbered"});
  Instrument second({"--interval", "0.05", "--form", "numbered"});
  Road road;
  road.WriteSettings();
  QProcess other;
  other.start(QStringLiteral(QUENLOR_ROAD_DRIVER), {road.folder.path(), first.Device()});
  ASSERT_TRUE(QTest::qWaitFor([&] { return FileBytes(road.Path("Com_1.txt")).count('\n') > 2; }, kPatience));

  MainWindow& window = road.Open(second.Device());
  road.Answer<QMessageBox>([](QMessageBox&) {});
  road.Click();
  EXPECT_TRUE(window.findChild<QLabel*>(QStringLiteral("Status"))
                  ->text()
                  .contains(QStringLiteral("Com_1.lock is held by process %1").arg(other.processId())))
      << window.findChild<QLabel*>(QStringLiteral("Status"))->text().toStdString();
  other.kill();
  other.waitForFinished();
  const auto log = data::ParseDataFile(FileBytes(road.Path("Com_1.txt")).toStdString());
  ExpectCounting(log.table, static_cast<int>(log.table.Rows() - 2));
}

TEST(WholeRoad, TheWindowAnswersWhileLinesArriveAtTheFullRateOverAMillionReadings) {
  Instrument instrument({"--interval", "0.000694", "--form", "bare"});  // 1,440 lines a second
  Road road;
  road.WriteSettings();
  QByteArray bytes = "No.,Time,Viscosity,Temp\r\n";
  for (int i = 0; i < 1'000'000; ++i) bytes += "1,00.0,1234.5,25.1\r\n";
  QFile big(road.Path("big.csv"));
  ASSERT_TRUE(big.open(QIODevice::WriteOnly));
  big.write(bytes);
  big.close();
  MainWindow& window = road.Open(instrument.Device());
  window.OpenFile(road.Path("big.csv").toStdString());
  road.Click();
  ASSERT_TRUE(road.WaitForReadings(1'001'000));
  QElapsedTimer since_last;
  QTimer every_millisecond;
  qint64 longest = 0;
  int answers = 0;
  since_last.start();
  QObject::connect(&every_millisecond, &QTimer::timeout, [&] {
    longest = std::max(longest, since_last.restart());
    ++answers;
  });
  every_millisecond.start(1);
  // The instrument never stops: a window that served lines first would not answer once.
  EXPECT_TRUE(QTest::qWaitFor([&] { return answers > 300; }, kPatience)) << answers;
  ASSERT_TRUE(road.WaitForReadings(1'004'000));
  every_millisecond.stop();
  // How long depends on the machine; that events are served while lines arrive does not.
  RecordProperty("longest_wait_ms", static_cast<int>(longest));
  std::printf("longest time without an answer: %lld ms\n", static_cast<long long>(longest));
  road.Click();
}

}  // namespace
}  // namespace quenlor::app
