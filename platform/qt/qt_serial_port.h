// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <QSerialPort>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/qt/line_errors.h"
#include "platform/qt/open_device.h"
#include "platform/serial_port.h"

namespace quenlor::platform::qt {

// The serial line of the operating system. Stands on QSerialPort and adds what that lacks: line errors become
// events, a device that disappears is told once instead of without end, and closing never hangs.
//
// Nothing is told from within a signal of QSerialPort: its signals only note what happened and ask for a turn
// of the event loop. So the handler may close the port, and may run an event loop of its own.
class QtSerialPort final : public QObject, public SerialPort {
 public:
  // Gives the device of a port number; empty when there is none.
  using DeviceOfPort = std::function<std::string(int comm_port)>;

  // What is asked from the system about an open line.
  struct System {
    LineErrorCounters line_errors = SystemLineErrors;
    LineSpeed line_speed = SystemLineSpeed;
  };

  explicit QtSerialPort(DeviceOfPort device_of_port);
  QtSerialPort(DeviceOfPort device_of_port, System system);
  ~QtSerialPort() override;

  std::optional<OpenFailure> Open(int comm_port, std::string_view settings) override;
  void Close() override;
  bool PortOpen() const override { return device_ || gone_; }
  int CommPort() const override { return comm_port_; }
  void RTSEnable(bool enabled) override;
  void Output(std::string_view bytes) override;
  std::string Input() override;
  void ClearInBuffer() override;
  void ClearOutBuffer() override;
  void OnComm(std::function<void(int comm_event)> handler) override { handler_ = std::move(handler); }

 private:
  void ReadWhatWaits();
  void TakeReceived();
  void LookAtLineErrors();
  void NoteError(QSerialPort::SerialPortError error);
  void ExamineDevice();
  void AskForTurn();
  bool event(QEvent* event) override;
  void Turn();
  int TakeNextEvent();
  bool SomethingToTell() const;

  const DeviceOfPort device_of_port_;
  const System system_;
  std::function<void(int)> handler_;
  int comm_port_ = 0;
  std::optional<bool> rts_;

  std::unique_ptr<QSerialPort> device_;  // one for each time the port is open
  std::string received_;
  std::deque<int> line_errors_;  // seen and still to be told
  std::optional<LineErrors> last_look_;
  bool unheard_ = false;  // characters arrived since kReceive was last told
  bool suspect_ = false;  // an error was reported; the device may have disappeared
  bool gone_ = false;     // it has, and that is still to be told
  int doubts_ = 0;        // errors in the running second that turned out harmless
  QElapsedTimer doubting_since_;

  bool turn_asked_ = false;
  bool telling_ = false;
  QTimer line_error_timer_;
};

}  // namespace quenlor::platform::qt
