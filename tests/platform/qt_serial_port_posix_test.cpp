// SPDX-License-Identifier: MIT
// The serial adapter where it meets the operating system.

#include "platform/qt/qt_serial_port.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/qt/device_access.h"
#include "tests/event_turns.h"
#include "tests/platform/pseudo_terminal.h"

namespace quenlor::platform::qt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tests::PseudoTerminal;

class QtSerialPortTest : public testing::Test {
 protected:
  QtSerialPortTest() {
    port_.OnComm([this](int event) { events_.push_back(event); });
  }

  QtSerialPort::System CountersOfTheTest() {
    QtSerialPort::System system;
    system.line_errors = [this](DeviceHandle) {
      ++looks_;
      return counters_;
    };
    return system;
  }

  std::optional<OpenFailure> OpenDevice(const std::string& device) {
    QtSerialPort port([&](int) { return device; });
    return port.Open(1, "9600N81");
  }

  std::size_t Count(int event) const { return std::count(events_.begin(), events_.end(), event); }

  PseudoTerminal line_;
  std::optional<LineErrors> counters_ = LineErrors();
  int looks_ = 0;
  QtSerialPort port_{[this](int) { return line_.Device(); }, CountersOfTheTest()};
  std::vector<int> events_;
};

TEST_F(QtSerialPortTest, OpensAtEverySpeedWithEveryFormat) {
  std::optional<int> real_speed;
  QtSerialPort::System system;
  system.line_speed = [&](DeviceHandle handle) { return real_speed = SystemLineSpeed(handle); };
  QtSerialPort port([this](int) { return line_.Device(); }, system);

  for (const std::string speed : {"600", "1200", "2400", "4800", "9600", "14400", "19200", "28800"}) {
    for (const std::string parity : {"E", "O", "N"}) {
      for (const std::string bits : {"71", "71.5", "72", "81", "81.5", "82"}) {
        const auto failure = port.Open(1, speed + parity + bits);
        ASSERT_FALSE(failure) << speed + parity + bits << ": " << failure->reason;
        EXPECT_EQ(real_speed, std::stoi(speed));
      }
    }
  }
}

TEST_F(QtSerialPortTest, ASpeedThatTheDeviceChangedIsRefused) {
  QtSerialPort::System system;
  system.line_speed = [](DeviceHandle) { return 9600; };
  QtSerialPort port([this](int) { return line_.Device(); }, system);

  const auto failure = port.Open(1, "14400N81");

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, HasSubstr("9600 instead of 14400"));
  EXPECT_FALSE(port.PortOpen());
  EXPECT_FALSE(port.Open(1, "9600N81"));
}

TEST(SpeedsAgree, WithinWhatAReceiverUnderstands) {
  EXPECT_TRUE(SpeedsAgree(28800, 28800));
  EXPECT_TRUE(SpeedsAgree(28800, 28811));
  EXPECT_TRUE(SpeedsAgree(600, 601));
  EXPECT_FALSE(SpeedsAgree(14400, 9600));
  EXPECT_FALSE(SpeedsAgree(28800, 30000));
  EXPECT_FALSE(SpeedsAgree(600, 0));
}

TEST_F(QtSerialPortTest, APortWithoutADeviceIsRefused) {
  QtSerialPort port([](int) { return std::string(); });

  const auto failure = port.Open(7, "9600N81");

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->device, "");
  EXPECT_EQ(failure->reason, "there is no device for port 7");
}

TEST_F(QtSerialPortTest, AnAbsentDeviceIsRefused) {
  const auto failure = OpenDevice("/dev/there_is_none");

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->device, "/dev/there_is_none");
  EXPECT_EQ(failure->reason, "No such file or directory");
  EXPECT_EQ(failure->advice, "");
}

TEST_F(QtSerialPortTest, WhatIsNoDeviceIsRefused) {
  QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("file")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("text");
  file.close();
  const auto fifo = folder.filePath(QStringLiteral("fifo")).toStdString();
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);

  for (const auto& name : {folder.path().toStdString(), file.fileName().toStdString(), fifo}) {
    const auto failure = OpenDevice(name);
    ASSERT_TRUE(failure) << name;
    EXPECT_EQ(failure->reason, "it is not a serial device");
  }
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QByteArray("text"));
}

TEST_F(QtSerialPortTest, ACharacterDeviceThatIsNoLineIsRefused) { EXPECT_TRUE(OpenDevice("/dev/null")); }

TEST_F(QtSerialPortTest, ADeviceInUseIsRefused) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  const auto failure = OpenDevice(line_.Device());

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->reason, "Device or resource busy");
  port_.Close();
  EXPECT_FALSE(OpenDevice(line_.Device()));
}

TEST_F(QtSerialPortTest, ADeviceInUseIsRefusedUnderItsOtherNameToo) {
  QTemporaryDir folder;
  const auto link = folder.filePath(QStringLiteral("by-id"));
  ASSERT_TRUE(QFile::link(QString::fromStdString(line_.Device()), link));
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  const auto failure = OpenDevice(link.toStdString());

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->device, link.toStdString());
  EXPECT_EQ(failure->reason, "Device or resource busy");
}

// Of a line that is open; the programs of a system agree on the folder.
std::string LockFileOf(const std::string& device) {
  const auto name =
      "LCK.." + std::regex_replace(device.substr(std::string("/dev/").size()), std::regex("/"), "_");
  for (const std::filesystem::path folder : {"/var/lock", "/var/spool/locks", "/var/spool/uucp", "/tmp",
                                             "/var/tmp", "/var/lock/lockdev", "/run/lock"}) {
    if (std::filesystem::exists(folder / name)) return folder / name;
  }
  return {};
}

TEST_F(QtSerialPortTest, ALockThatOutlivesItsOwnerForAMomentRefusesNobody) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  const auto lock_file = LockFileOf(line_.Device());
  port_.Close();
  QLockFile lock(QString::fromStdString(lock_file));
  ASSERT_TRUE(lock.tryLock()) << lock_file;

  std::thread owner([&] {
    QThread::msleep(30);
    lock.unlock();
  });
  const auto failure = OpenDevice(line_.Device());
  owner.join();

  EXPECT_FALSE(failure);
}

// The administrator may open everything, so a test that runs as one steps back to nobody meanwhile.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() : user_(geteuid()) { stepped_back_ = user_ != 0 || seteuid(65534) == 0; }
  ~AsOrdinaryUser() { EXPECT_EQ(seteuid(user_), 0); }
  bool SteppedBack() const { return stepped_back_; }

 private:
  const uid_t user_;
  bool stepped_back_ = false;
};

TEST_F(QtSerialPortTest, ADeviceOfAGroupIsRefusedWithTheWayIntoTheGroup) {
  ASSERT_EQ(chmod(line_.Device().c_str(), 0060), 0);
  struct stat device {};
  ASSERT_EQ(stat(line_.Device().c_str(), &device), 0);
  if (device.st_gid ==
      0) {  // the test runs as administrator; the device of an ordinary user has a group of its own
    const group* tty = getgrnam("tty");
    ASSERT_TRUE(tty && chown(line_.Device().c_str(), static_cast<uid_t>(-1), tty->gr_gid) == 0);
  }
  const AsOrdinaryUser user;
  ASSERT_TRUE(user.SteppedBack());

  const auto failure = OpenDevice(line_.Device());

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->reason, "Permission denied");
  EXPECT_THAT(failure->advice, HasSubstr("the group "));
}

TEST(PermissionAdvice, NamesTheCommandThatAddsTheUserToTheGroup) {
  EXPECT_THAT(PermissionAdvice({.user = "alice", .group = "dialout", .group_may_use = true}),
              HasSubstr("\"sudo usermod -aG dialout alice\" and log in again"));
}

TEST(PermissionAdvice, ForAMemberSinceTheLoginIsToLogInAgain) {
  const auto advice = PermissionAdvice(
      {.user = "alice", .group = "dialout", .group_may_use = true, .member_after_login = true});

  EXPECT_THAT(advice, HasSubstr("log in again"));
  EXPECT_THAT(advice, testing::Not(HasSubstr("sudo")));
}

TEST(PermissionAdvice, WithoutAGroupThatMayUseTheDeviceIsToAskTheAdministrator) {
  EXPECT_THAT(PermissionAdvice({.user = "alice", .group = "root"}), HasSubstr("administrator"));
  EXPECT_THAT(PermissionAdvice({.user = "alice", .group = "", .group_may_use = true}),
              HasSubstr("administrator"));
}

TEST(SystemPath, FollowsLinksAndLooksForPlainNamesInTheDeviceFolder) {
  PseudoTerminal line;
  QTemporaryDir folder;
  const auto link = folder.filePath(QStringLiteral("link"));
  ASSERT_TRUE(QFile::link(QString::fromStdString(line.Device()), link));

  EXPECT_EQ(SystemPath(link.toStdString()), line.Device());
  EXPECT_EQ(SystemPath("null"), "/dev/null");
  EXPECT_EQ(SystemPath("/dev/there_is_none"), "/dev/there_is_none");
}

TEST_F(QtSerialPortTest, AMegabyteArrivesCompleteAndInOrder) {
  std::string text;
  for (int number = 0; text.size() < 1'000'000; ++number) text += std::to_string(number) + "\r\n";
  std::string received;
  port_.OnComm([&](int) { received += port_.Input(); });
  ASSERT_FALSE(port_.Open(1, "28800N81"));

  std::string_view rest = text;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        rest.remove_prefix(line_.Write(rest));
        return received.size() >= text.size();
      },
      30000));

  EXPECT_TRUE(received == text) << received.size() << " of " << text.size();
}

TEST_F(QtSerialPortTest, AMegabyteIsSentCompleteAndInOrder) {
  std::string text;
  for (int number = 0; text.size() < 1'000'000; ++number) text += std::to_string(number) + "\r\n";
  ASSERT_FALSE(port_.Open(1, "28800N81"));

  port_.Output(text);
  std::string arrived;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (arrived += line_.Read()).size() >= text.size(); }, 30000));

  EXPECT_TRUE(arrived == text) << arrived.size() << " of " << text.size();
}

TEST_F(QtSerialPortTest, AHangUpIsToldOnceAndLeavesTheEventLoopIdle) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  line_.HangUp();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !events_.empty(); }));

  auto* const loop = QAbstractEventDispatcher::instance();
  int busy_turns = 0;
  for (int turn = 0; turn < 1000; ++turn) busy_turns += loop->processEvents(QEventLoop::AllEvents) ? 1 : 0;

  EXPECT_THAT(events_, ElementsAre(comm_event::kPortGone));
  EXPECT_LT(busy_turns, 100);
}

TEST_F(QtSerialPortTest, AHangUpUnderARunningHandlerLeavesTheEventLoopIdle) {
  int busy_turns = 0;
  port_.OnComm([&](int event) {
    if (event != comm_event::kReceive) return;
    line_.HangUp();
    auto* const loop = QAbstractEventDispatcher::instance();
    for (int turn = 0; turn < 1000; ++turn) busy_turns += loop->processEvents(QEventLoop::AllEvents) ? 1 : 0;
  });
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  line_.Write("x");

  EXPECT_TRUE(QTest::qWaitFor([&] { return !port_.PortOpen(); }));
  EXPECT_LT(busy_turns, 100);
}

// As after a pause of the whole machine: a timer may be served before the line is.
TEST_F(QtSerialPortTest, InputHasWhatTheSystemHoldsBeforeAnyEventTellsOfIt) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  line_.Write("12.5\r\n");
  EXPECT_EQ(port_.Input(), "12.5\r\n");
  EXPECT_TRUE(events_.empty());
  line_.Write("13");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !events_.empty(); })) << "what comes later is told as ever";
  EXPECT_EQ(port_.Input(), "13");
}

TEST_F(QtSerialPortTest, AfterAHangUpTheSamePortOpensOnANewDevice) {
  auto first = std::make_unique<PseudoTerminal>();
  std::string device = first->Device();
  QtSerialPort port([&](int) { return device; });
  ASSERT_FALSE(port.Open(1, "9600N81"));
  first->HangUp();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !port.PortOpen(); }));

  device = line_.Device();
  ASSERT_FALSE(port.Open(1, "9600N81"));
  line_.Write("12");

  std::string received;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (received += port.Input()) == "12"; }));
}

// The event loop has seen the characters, but before it hands them over they are cleared: QSerialPort then
// wakes up for nothing and calls that a read error.
TEST_F(QtSerialPortTest, ClearingCharactersThatWereJustArrivingLosesNoPort) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  for (int round = 0; round < 50; ++round) {
    line_.WriteThrough("noise");
    bool cleared = false;
    QMetaObject::invokeMethod(
        qApp,
        [&] {
          port_.ClearInBuffer();
          cleared = true;
        },
        Qt::QueuedConnection);
    ASSERT_TRUE(QTest::qWaitFor([&] { return cleared; }));
    tests::TakeTurns();
  }
  line_.Write("12");

  std::string received;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (received += port_.Input()) == "12"; }));
  EXPECT_TRUE(port_.PortOpen());
  EXPECT_EQ(Count(comm_event::kPortGone), 0u);
}

TEST_F(QtSerialPortTest, CountersThatGrewAreToldOnceBeforeTheCharacters) {
  counters_ = LineErrors{.breaks = 7, .framing = 7, .overrun = 7, .receive_overflow = 7, .parity = 7};
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  counters_ = LineErrors{.breaks = 8, .framing = 99, .overrun = 8, .receive_overflow = 9, .parity = 8};
  line_.Write("x");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count(comm_event::kReceive) == 1; }));

  EXPECT_THAT(events_, ElementsAre(comm_event::kBreak, comm_event::kFraming, comm_event::kOverrun,
                                   comm_event::kReceiveOverflow, comm_event::kParity, comm_event::kReceive));
}

TEST_F(QtSerialPortTest, ADamagedByteArrivesWithItsEvent) {
  ASSERT_FALSE(port_.Open(1, "9600E71"));
  ++counters_->parity;
  line_.Write(
      "1\x7F"
      "3");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count(comm_event::kReceive) == 1; }));

  EXPECT_THAT(events_, ElementsAre(comm_event::kParity, comm_event::kReceive));
  EXPECT_EQ(port_.Input(),
            "1\x7F"
            "3");
  EXPECT_EQ(line_.Line().c_iflag & (INPCK | PARMRK), 0u) << "the system would drop or mark it";
}

TEST_F(QtSerialPortTest, WhoeverHasTheDeviceOpenIsNamed) {
  EXPECT_EQ(WhoHolds(line_.Device()), "");
  QProcess other;
  other.setStandardInputFile(QString::fromStdString(line_.Device()));
  other.start(QStringLiteral("sleep"), {QStringLiteral("60")});
  ASSERT_TRUE(other.waitForStarted());
  const std::string holder = "sleep (process " + std::to_string(other.processId()) + ")";
  EXPECT_TRUE(QTest::qWaitFor([&] { return WhoHolds(line_.Device()) == holder; }))
      << WhoHolds(line_.Device());
  other.kill();
  other.waitForFinished();
}

TEST_F(QtSerialPortTest, EachCounterHasItsOwnEvent) {
  EXPECT_THAT(EventsBetween({}, {.breaks = 1}), ElementsAre(1001));
  EXPECT_THAT(EventsBetween({}, {.framing = 1}), ElementsAre(1004));
  EXPECT_THAT(EventsBetween({}, {.overrun = 1}), ElementsAre(1006));
  EXPECT_THAT(EventsBetween({}, {.receive_overflow = 1}), ElementsAre(1008));
  EXPECT_THAT(EventsBetween({}, {.parity = 1}), ElementsAre(1009));
  EXPECT_THAT(EventsBetween({.parity = 5}, {.parity = 5}), IsEmpty());
  EXPECT_THAT(EventsBetween({.parity = 5}, {}), IsEmpty());
}

TEST_F(QtSerialPortTest, ABreakWithoutACharacterIsTold) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  ++counters_->breaks;
  ASSERT_TRUE(QTest::qWaitFor([&] { return !events_.empty(); }));
  const int looks = looks_;
  ASSERT_TRUE(QTest::qWaitFor([&] { return looks_ > looks + 1; }));

  EXPECT_THAT(events_, ElementsAre(comm_event::kBreak));
}

TEST_F(QtSerialPortTest, ErrorsThatRepeatWhileTheHandlerRunsAreToldOnceAfterIt) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  port_.OnComm([&](int event) {
    events_.push_back(event);
    if (events_.size() > 1) return;
    for (int round = 0; round < 3; ++round) {
      ++counters_->parity;
      const int looks = looks_;
      EXPECT_TRUE(QTest::qWaitFor([&] { return looks_ > looks; }));
    }
  });

  ++counters_->framing;

  ASSERT_TRUE(QTest::qWaitFor([&] { return events_.size() > 1; }));
  const int looks = looks_;
  ASSERT_TRUE(QTest::qWaitFor([&] { return looks_ > looks + 1; }));
  EXPECT_THAT(events_, ElementsAre(comm_event::kFraming, comm_event::kParity));
}

TEST_F(QtSerialPortTest, ADeviceWithoutCountersIsNotAskedAgain) {
  counters_.reset();
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  line_.Write("x");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count(comm_event::kReceive) == 1; }));

  EXPECT_EQ(looks_, 1);
}

TEST_F(QtSerialPortTest, ADeviceThatStopsCountingIsNotAskedAgain) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  counters_.reset();
  line_.Write("x");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count(comm_event::kReceive) == 1; }));
  const int looks = looks_;

  line_.Write("y");
  ASSERT_TRUE(QTest::qWaitFor([&] { return Count(comm_event::kReceive) == 2; }));

  EXPECT_EQ(looks_, looks);
  EXPECT_THAT(events_, ElementsAre(comm_event::kReceive, comm_event::kReceive));
}

TEST_F(QtSerialPortTest, PseudoTerminalsKeepNoCounters) {
  const int device = open(line_.Device().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  EXPECT_FALSE(SystemLineErrors(device));
  close(device);
}

TEST_F(QtSerialPortTest, ClearedOutputIsNotSent) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));

  port_.Output("never");
  port_.ClearOutBuffer();
  port_.Output("sent");

  std::string arrived;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (arrived += line_.Read()).size() >= 4; }));
  EXPECT_EQ(arrived, "sent");
}

TEST_F(QtSerialPortTest, AStuckLineIsClosedInTime) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  port_.Output(std::string(1'000'000, 'x'));  // nobody reads
  QElapsedTimer clock;
  clock.start();

  port_.Close();

  EXPECT_GE(clock.elapsed(), 400);
  EXPECT_LT(clock.elapsed(), 3000);
  EXPECT_FALSE(port_.PortOpen());
}

TEST_F(QtSerialPortTest, ClosingRunsNoOtherEvents) {
  bool ran = false;
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  port_.Output(std::string(1'000'000, 'x'));
  QMetaObject::invokeMethod(
      qApp, [&] { ran = true; }, Qt::QueuedConnection);

  line_.Write("12");
  port_.Close();

  EXPECT_FALSE(ran);
  EXPECT_THAT(events_, IsEmpty());
  EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
}

TEST_F(QtSerialPortTest, OutputOnADeadLineTellsNothingUntilTheEventLoopTurns) {
  ASSERT_FALSE(port_.Open(1, "9600N81"));
  line_.HangUp();

  port_.Output("V\r");
  port_.RTSEnable(true);
  port_.ClearInBuffer();
  port_.ClearOutBuffer();
  EXPECT_THAT(events_, IsEmpty());

  ASSERT_TRUE(QTest::qWaitFor([&] { return !events_.empty(); }));
  EXPECT_THAT(events_, ElementsAre(comm_event::kPortGone));
}

TEST_F(QtSerialPortTest, DestroyingAnOpenPortTellsNothing) {
  std::vector<int> events;
  {
    QtSerialPort port([this](int) { return line_.Device(); });
    port.OnComm([&](int event) { events.push_back(event); });
    ASSERT_FALSE(port.Open(1, "9600N81"));
    line_.WriteThrough("12");
    ASSERT_TRUE(QTest::qWaitFor([&] { return line_.WaitingForTheProgram() == 0; }));
    events.clear();
  }

  tests::TakeTurns();
  EXPECT_THAT(events, IsEmpty());
}

}  // namespace
}  // namespace quenlor::platform::qt
