// SPDX-License-Identifier: MIT
#include "platform/memory/memory_serial_port.h"

#include <utility>

#include "platform/line_settings.h"

namespace quenlor::platform::memory {

std::optional<OpenFailure> MemorySerialPort::Open(int comm_port, std::string_view settings) {
  Close();
  received_.clear();
  comm_port_ = comm_port;
  settings_ = settings;
  calls_.push_back("Open " + std::to_string(comm_port) + " " + settings_);
  if (refusal_) return refusal_;
  if (!ParseLineSettings(settings)) {
    return OpenFailure{
        "twin " + std::to_string(comm_port), "settings \"" + settings_ + "\" are not understood", {}};
  }
  open_ = true;
  return std::nullopt;
}

void MemorySerialPort::Close() {
  if (!open_) return;
  calls_.push_back("Close");
  if (!gone_ && flow_ != OutputFlow::kStuck) LetOutputLeave();
  open_ = gone_ = unheard_ = false;
  received_.clear();
  out_buffer_.clear();
  raised_.clear();
}

void MemorySerialPort::RTSEnable(bool enabled) {
  rts_ = enabled;
  calls_.push_back(std::string("RTSEnable ") + (enabled ? "1" : "0"));
}

void MemorySerialPort::Output(std::string_view bytes) {
  if (!open_ || gone_) return;
  calls_.push_back("Output " + std::string(bytes));
  out_buffer_ += bytes;
  if (flow_ == OutputFlow::kFree) LetOutputLeave();
}

std::string MemorySerialPort::Input() {
  unheard_ = false;
  return std::exchange(received_, {});
}

void MemorySerialPort::ClearInBuffer() {
  if (!open_) return;
  calls_.push_back("ClearInBuffer");
  unheard_ = false;
  received_.clear();
}

void MemorySerialPort::ClearOutBuffer() {
  if (!open_) return;
  calls_.push_back("ClearOutBuffer");
  out_buffer_.clear();
}

void MemorySerialPort::Feed(std::string_view bytes) {
  Arrive(bytes);
  Tell();
}

void MemorySerialPort::Arrive(std::string_view bytes) {
  if (!open_ || gone_ || bytes.empty()) return;
  received_ += bytes;
  unheard_ = true;
}

void MemorySerialPort::Raise(int comm_event) {
  if (!open_ || gone_) return;
  raised_.push_back(comm_event);
  Tell();
}

void MemorySerialPort::VanishDevice() {
  if (!open_ || gone_) return;
  gone_ = true;
  out_buffer_.clear();
  Tell();
}

void MemorySerialPort::HoldOutput(bool hold) {
  flow_ = hold ? OutputFlow::kHeld : OutputFlow::kFree;
  if (!hold) LetOutputLeave();
}

void MemorySerialPort::StickOutput() { flow_ = OutputFlow::kStuck; }

std::string MemorySerialPort::TakeSent() { return std::exchange(sent_, {}); }

void MemorySerialPort::LetOutputLeave() { sent_ += std::exchange(out_buffer_, {}); }

// The handler may close the port and even open it again, so every round looks at the state afresh.
void MemorySerialPort::Tell() {
  if (telling_) return;
  telling_ = true;
  while (const int event = TakeNextEvent()) {
    const auto handler = handler_;
    if (handler) handler(event);
  }
  telling_ = false;
}

int MemorySerialPort::TakeNextEvent() {
  if (!open_) return 0;
  if (!raised_.empty()) {
    const int event = raised_.front();
    raised_.pop_front();
    return event;
  }
  if (std::exchange(unheard_, false)) return comm_event::kReceive;
  if (!gone_) return 0;
  open_ = gone_ = false;
  return comm_event::kPortGone;
}

}  // namespace quenlor::platform::memory
