// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quenlor::instrument {

// A serial port of Windows with a logger at the other end of its cable.
class ComLine {
 public:
  ComLine() = default;
  ~ComLine();
  ComLine(const ComLine&) = delete;
  ComLine& operator=(const ComLine&) = delete;

  // `settings` as the system's command "mode" takes them: "baud=9600 parity=n data=8 stop=1". What failed, or
  // nothing. Once, before anything else.
  std::optional<std::string> Open(const std::string& port, const std::string& settings);

  // What the logger has written, without waiting for it. False when the line is broken.
  bool Read(std::string& bytes);

  // Returns when the line has taken all of it, or waits for a logger no longer. False when the line is
  // broken.
  bool Write(std::string_view bytes);

 private:
  void* handle_ = nullptr;
};

}  // namespace quenlor::instrument
