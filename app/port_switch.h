// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <utility>

#include "platform/serial_port.h"

namespace quenlor::app {

// One serial port to its user, several behind it: a number that has a port of its own is served by that one,
// every other number by the system's.
class PortSwitch : public platform::SerialPort {
 public:
  explicit PortSwitch(platform::SerialPort& system_port)
      : system_port_(system_port), current_(&system_port) {}

  void Add(int comm_port, std::unique_ptr<platform::SerialPort> port) {
    port->OnComm(handler_);
    own_ports_[comm_port] = std::move(port);
  }
  bool HasOwn(int comm_port) const { return own_ports_.contains(comm_port); }

  std::optional<platform::OpenFailure> Open(int comm_port, std::string_view settings) override {
    current_->Close();
    const auto own = own_ports_.find(comm_port);
    current_ = own == own_ports_.end() ? &system_port_ : own->second.get();
    return current_->Open(comm_port, settings);
  }
  void Close() override { current_->Close(); }
  bool PortOpen() const override { return current_->PortOpen(); }
  int CommPort() const override { return current_->CommPort(); }
  void RTSEnable(bool enabled) override { current_->RTSEnable(enabled); }
  void Output(std::string_view bytes) override { current_->Output(bytes); }
  std::string Input() override { return current_->Input(); }
  void ClearInBuffer() override { current_->ClearInBuffer(); }
  void ClearOutBuffer() override { current_->ClearOutBuffer(); }
  void OnComm(std::function<void(int comm_event)> handler) override {
    handler_ = std::move(handler);
    system_port_.OnComm(handler_);
    for (auto& [number, port] : own_ports_) port->OnComm(handler_);
  }

 private:
  platform::SerialPort& system_port_;
  std::map<int, std::unique_ptr<platform::SerialPort>> own_ports_;
  platform::SerialPort* current_;
  std::function<void(int)> handler_;
};

}  // namespace quenlor::app
