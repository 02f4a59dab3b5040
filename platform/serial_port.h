// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quenlor::platform {

// What the line tells its listener. Other codes below 11 than kReceive are notifications that need no answer,
// those above are errors.
namespace comm_event {
inline constexpr int kReceive = 2;  // characters wait in Input
inline constexpr int kBreak = 1001;
inline constexpr int kFraming = 1004;
inline constexpr int kOverrun = 1006;
inline constexpr int kReceiveOverflow = 1008;
inline constexpr int kParity = 1009;
inline constexpr int kPortGone = 1012;  // the device disappeared; told once, the port is closed by then
}  // namespace comm_event

// Why a port did not open: the device that was meant, the system's reason, and what would help, if
// that is known.
struct OpenFailure {
  // All that is known, in one line for the operator.
  std::string Text() const {
    std::string text = device;
    for (const std::string& part : {reason, advice}) {
      if (!part.empty()) text += (text.empty() ? "" : ": ") + part;
    }
    return text;
  }

  std::string device;
  std::string reason;
  std::string advice;
};

// A serial line as a measurement needs it. The adapter stands on the operating system, the twin on a test.
//
// Events come one at a time, never out of a call to this class and never while the handler is running;
// what happens meanwhile is told when it has returned. The handler may call everything here. A closed
// port tells nothing.
class SerialPort {
 public:
  virtual ~SerialPort() = default;

  // Opens port number `comm_port` with settings like "9600N81" (speed, parity E, O or N, data bits, stop bits
  // 1, 1.5 or 2, joined without separators) and discards what had been received before. On failure the port
  // stays closed. An open port is closed first.
  virtual std::optional<OpenFailure> Open(int comm_port, std::string_view settings) = 0;

  // Lets what was written leave, for at most half a second, then closes and forgets what was received.
  // Nothing on a closed port.
  virtual void Close() = 0;

  virtual bool PortOpen() const = 0;
  virtual int CommPort() const = 0;  // the number last given to Open

  virtual void RTSEnable(bool enabled) = 0;         // on a closed port: for when it is opened
  virtual void Output(std::string_view bytes) = 0;  // queues; nothing on a closed port
  // Takes everything received so far, also what no event has told yet, and also after kPortGone.
  virtual std::string Input() = 0;
  virtual void ClearInBuffer() = 0;   // InBufferCount = 0
  virtual void ClearOutBuffer() = 0;  // OutBufferCount = 0

  virtual void OnComm(std::function<void(int comm_event)> handler) = 0;
};

}  // namespace quenlor::platform
