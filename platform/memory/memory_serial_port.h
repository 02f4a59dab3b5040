// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/serial_port.h"

namespace quenlor::platform::memory {

// A serial line whose other end is a test.
//
// What the other end does (Feed, Raise, VanishDevice) is told at once, unless the handler is running: then it
// is told when the handler has returned. On a closed port the other end is not heard.
class MemorySerialPort : public SerialPort {
 public:
  std::optional<OpenFailure> Open(int comm_port, std::string_view settings) override;
  void Close() override;
  bool PortOpen() const override { return open_; }
  int CommPort() const override { return comm_port_; }
  void RTSEnable(bool enabled) override;
  void Output(std::string_view bytes) override;
  std::string Input() override;
  void ClearInBuffer() override;
  void ClearOutBuffer() override;
  void OnComm(std::function<void(int comm_event)> handler) override { handler_ = std::move(handler); }

  // The other end.
  void Feed(std::string_view bytes);    // arrives and is told as kReceive
  void Arrive(std::string_view bytes);  // arrives while nobody gets a turn: told with what comes next
  void Raise(int comm_event);
  void VanishDevice();  // what arrived before stays in Input

  // From now on opening fails so, until it is allowed again.
  void RefuseOpen(OpenFailure failure) { refusal_ = std::move(failure); }
  void AllowOpen() { refusal_.reset(); }

  // Held output stays in the out buffer until it is no longer held or the port is closed; stuck
  // output never leaves.
  void HoldOutput(bool hold);
  void StickOutput();

  const std::string& Sent() const { return sent_; }  // all that reached the other end and was not taken
  std::string TakeSent();

  const std::string& Settings() const { return settings_; }  // of the last Open
  std::optional<bool> RTS() const { return rts_; }           // empty until it is set

  // What the program did, in order: "Open 1 9600N81", "RTSEnable 1", "Output V\r", "ClearInBuffer",
  // "ClearOutBuffer", "Close". Calls that a closed port ignores are not among them.
  const std::vector<std::string>& Calls() const { return calls_; }

 private:
  enum class OutputFlow { kFree, kHeld, kStuck };

  void Tell();
  int TakeNextEvent();
  void LetOutputLeave();

  std::function<void(int)> handler_;
  std::optional<OpenFailure> refusal_;
  bool open_ = false;
  bool gone_ = false;     // the device vanished, and that is still to be told
  bool unheard_ = false;  // characters arrived since kReceive was last told
  bool telling_ = false;
  OutputFlow flow_ = OutputFlow::kFree;
  std::optional<bool> rts_;
  int comm_port_ = 0;
  std::string settings_;
  std::string received_;
  std::string out_buffer_;
  std::string sent_;
  std::deque<int> raised_;
  std::vector<std::string> calls_;
};

}  // namespace quenlor::platform::memory
