// SPDX-License-Identifier: MIT
#include "platform/qt/qt_serial_port.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/line_settings.h"
#include "platform/qt/device_access.h"

namespace quenlor::platform::qt {
namespace {

using namespace std::chrono_literals;

// A break may come without any character, so the counters are also looked at by the clock.
constexpr auto kLineErrorInterval = 250ms;
constexpr auto kClosingTime = 500ms;

// A program that closes a device gives it up a moment before the lock on its name.
constexpr auto kLockOutlivesDevice = 200ms;

// A device that reports more errors than this within a second, although it answers, is as good as gone.
constexpr int kMostDoubts = 100;

QSerialPort::Parity ParityOf(char letter) {
  if (letter == 'E') return QSerialPort::EvenParity;
  return letter == 'O' ? QSerialPort::OddParity : QSerialPort::NoParity;
}

// No chip makes 1.5 stop bits with 7 or 8 data bits; a receiver that expects 1.5 is content with 2.
QSerialPort::StopBits StopBitsOf(StopBits stop_bits) {
  return stop_bits == StopBits::kOne ? QSerialPort::OneStop : QSerialPort::TwoStop;
}

void LetOutputLeave(QSerialPort& device) {
  const QDeadlineTimer deadline(kClosingTime);
  while (device.bytesToWrite() > 0 && !deadline.hasExpired()) {
    if (!device.waitForBytesWritten(static_cast<int>(deadline.remainingTime()))) break;
  }
  DrainSystemQueue(device.handle(), std::chrono::milliseconds(deadline.remainingTime()));
}

// Whether it is open at last; else `holders` are the programs that have it.
bool OpenUnlessHeld(QSerialPort& device, const std::string& name, std::string& holders) {
  const QDeadlineTimer deadline(kLockOutlivesDevice);
  while (!device.open(QIODevice::ReadWrite)) {
    holders = WhoHolds(name);
    if (device.error() != QSerialPort::PermissionError || !holders.empty() || deadline.hasExpired())
      return false;
    QThread::msleep(5);
  }
  return true;
}

}  // namespace

QtSerialPort::QtSerialPort(DeviceOfPort device_of_port) : QtSerialPort(std::move(device_of_port), System()) {}

QtSerialPort::QtSerialPort(DeviceOfPort device_of_port, System system)
    : device_of_port_(std::move(device_of_port)), system_(std::move(system)) {
  line_error_timer_.setInterval(kLineErrorInterval);
  connect(&line_error_timer_, &QTimer::timeout, this, [this] { LookAtLineErrors(); });
}

QtSerialPort::~QtSerialPort() { Close(); }

std::optional<OpenFailure> QtSerialPort::Open(int comm_port, std::string_view settings) {
  Close();
  received_.clear();
  comm_port_ = comm_port;
  const std::string name = device_of_port_(comm_port);
  if (name.empty()) return OpenFailure{{}, "there is no device for port " + std::to_string(comm_port), {}};
  const auto line = ParseLineSettings(settings);
  if (!line) return OpenFailure{name, "settings \"" + std::string(settings) + "\" are not understood", {}};
  if (auto failure = WhyUnusable(name)) return failure;

  auto device = std::make_unique<QSerialPort>();
  device->setPortName(QString::fromStdString(SystemPath(name)));
  device->setBaudRate(line->speed);
  device->setParity(ParityOf(line->parity));
  device->setDataBits(line->data_bits == 7 ? QSerialPort::Data7 : QSerialPort::Data8);
  device->setStopBits(StopBitsOf(line->stop_bits));
  device->setFlowControl(QSerialPort::NoFlowControl);
  if (std::string holders; !OpenUnlessHeld(*device, name, holders)) {
    return OpenFailure{name, WhyNotOpened(*device), holders.empty() ? holders : "open in " + holders};
  }
  const auto speed = system_.line_speed(device->handle());
  if (speed && !SpeedsAgree(line->speed, *speed)) {
    return OpenFailure{name,
                       "the device runs at " + std::to_string(*speed) + " instead of " +
                           std::to_string(line->speed) + " bits per second",
                       {}};
  }

  device_ = std::move(device);
  connect(device_.get(), &QSerialPort::readyRead, this, [this] { TakeReceived(); });
  connect(device_.get(), &QSerialPort::errorOccurred, this, [this](auto error) { NoteError(error); });
  if (rts_) device_->setRequestToSend(*rts_);
  device_->clear(QSerialPort::Input);
  last_look_ = system_.line_errors(device_->handle());
  if (last_look_) line_error_timer_.start();
  return std::nullopt;
}

void QtSerialPort::Close() {
  if (!PortOpen()) return;
  if (device_) {
    device_->disconnect();
    LetOutputLeave(*device_);
    device_.reset();
  }
  line_error_timer_.stop();
  received_.clear();
  line_errors_.clear();
  unheard_ = suspect_ = gone_ = false;
}

void QtSerialPort::RTSEnable(bool enabled) {
  rts_ = enabled;
  if (device_)
    device_->setRequestToSend(enabled);  // a line without RTS, a pseudo-terminal say, stays as it is
}

void QtSerialPort::Output(std::string_view bytes) {
  if (device_) device_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string QtSerialPort::Input() {
  ReadWhatWaits();
  unheard_ = false;
  return std::exchange(received_, {});
}

void QtSerialPort::ClearInBuffer() {
  if (!PortOpen()) return;
  unheard_ = false;
  received_.clear();
  if (device_) device_->clear(QSerialPort::Input);
}

void QtSerialPort::ClearOutBuffer() {
  if (device_) device_->clear(QSerialPort::Output);
}

// Nobody may have had a turn since characters arrived; then the system holds them still.
void QtSerialPort::ReadWhatWaits() {
  if (!device_) return;
  {
    const QSignalBlocker quiet(device_.get());
    while (device_->waitForReadyRead(0)) received_ += device_->readAll().toStdString();
  }
  received_ += device_->readAll().toStdString();
}

void QtSerialPort::TakeReceived() {
  LookAtLineErrors();
  received_ += device_->readAll().toStdString();
  unheard_ = true;
  AskForTurn();
}

void QtSerialPort::LookAtLineErrors() {
  if (!last_look_) return;
  const auto now = system_.line_errors(device_->handle());
  if (!now) {
    line_error_timer_.stop();
  } else {
    for (const int event : EventsBetween(*last_look_, *now)) {
      const bool waits_already =
          std::find(line_errors_.begin(), line_errors_.end(), event) != line_errors_.end();
      if (!waits_already) line_errors_.push_back(event);
    }
  }
  last_look_ = now;
  if (!line_errors_.empty()) AskForTurn();
}

void QtSerialPort::NoteError(QSerialPort::SerialPortError error) {
  switch (error) {
    case QSerialPort::NoError:
    case QSerialPort::TimeoutError:
    case QSerialPort::UnsupportedOperationError:  // RTS of a line that has none
      return;
    default:
      suspect_ = true;
      AskForTurn();
  }
}

// QSerialPort reports the same errors for a device that disappeared and for a wake-up without characters, as
// when the input was cleared meanwhile. Of the first kind it reports hundreds of thousands a second until it
// is closed.
void QtSerialPort::ExamineDevice() {
  if (!std::exchange(suspect_, false) || !device_) return;
  if (!doubting_since_.isValid() || doubting_since_.hasExpired(1000)) {
    doubting_since_.start();
    doubts_ = 0;
  }
  const QByteArray rest =
      device_->readAll();  // also lets QSerialPort listen again, which stops at some errors
  if (!rest.isEmpty()) unheard_ = true;
  received_ += rest.toStdString();
  if (DeviceAnswers(device_->handle()) && ++doubts_ <= kMostDoubts) return;

  line_error_timer_.stop();
  device_->disconnect();
  device_.reset();
  gone_ = true;
}

void QtSerialPort::AskForTurn() {
  if (std::exchange(turn_asked_, true)) return;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool QtSerialPort::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  Turn();
  return true;
}

// Also comes while the handler runs, if that runs an event loop; then a lost device is closed
// but nothing told.
void QtSerialPort::Turn() {
  turn_asked_ = false;
  ExamineDevice();
  if (telling_) return;
  const int event = TakeNextEvent();
  const auto handler = handler_;
  if (event != 0 && handler) {
    telling_ = true;
    handler(event);
    telling_ = false;
  }
  if (SomethingToTell()) AskForTurn();
}

int QtSerialPort::TakeNextEvent() {
  if (!line_errors_.empty()) {
    const int event = line_errors_.front();
    line_errors_.pop_front();
    return event;
  }
  if (std::exchange(unheard_, false)) return comm_event::kReceive;
  return std::exchange(gone_, false) ? comm_event::kPortGone : 0;
}

bool QtSerialPort::SomethingToTell() const { return !line_errors_.empty() || unheard_ || gone_; }

}  // namespace quenlor::platform::qt
