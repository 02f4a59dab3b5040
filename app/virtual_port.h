// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <memory>

#include "instrument/viscometer.h"
#include "platform/serial_port.h"

namespace quenlor::app {

// A serial port with the virtual viscometer at its other end, on any system and without a device.
//
// The instrument lives as long as the port object, as a real one stays on the bench while ports open and
// close; what it says to a closed port is lost.
class VirtualPort : public platform::SerialPort {
 public:
  explicit VirtualPort(const instrument::ViscometerOptions& options);

  std::optional<platform::OpenFailure> Open(int comm_port, std::string_view settings) override;
  void Close() override;
  bool PortOpen() const override { return open_; }
  int CommPort() const override { return comm_port_; }
  void RTSEnable(bool) override {}
  void Output(std::string_view bytes) override;
  std::string Input() override { return std::exchange(received_, {}); }
  void ClearInBuffer() override { received_.clear(); }
  void ClearOutBuffer() override {}
  void OnComm(std::function<void(int comm_event)> handler) override { handler_ = std::move(handler); }

 private:
  double Now() const { return static_cast<double>(clock_.nsecsElapsed()) * 1e-9; }
  void ForgetUnheard();
  void Turn();
  void ScheduleTurn();

  instrument::Viscometer viscometer_;
  QElapsedTimer clock_;
  QTimer timer_;
  std::function<void(int)> handler_;
  std::string received_;
  int comm_port_ = 0;
  bool open_ = false;
  bool telling_ = false;
};

}  // namespace quenlor::app
