// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quenlor::instrument {

// A pseudo-terminal that behaves like a serial line with a logger at its far end: the slave is the logger's
// port.
//
// The line is raw, so that no byte is changed or echoed. One slave descriptor stays open in here, so that the
// line lives on while no logger has it open. The link, if there is one, is removed with the object.
class PseudoTerminal {
 public:
  PseudoTerminal() = default;
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  // What failed, or nothing. Once, before anything else.
  std::optional<std::string> Open();

  // Lets `path` point to the slave as well. A link left behind by a killed program is replaced, any other
  // file is not.
  std::optional<std::string> Link(const std::string& path);

  const std::string& SlavePath() const { return slave_path_; }
  int descriptor() const { return master_; }  // to wait on; non-blocking

  // What the logger has written; empty when nothing waits. False when the line is broken.
  bool Read(std::string& bytes);

  // Writes what the line takes without waiting and removes it from `bytes`. False when the line is broken.
  bool Write(std::string& bytes);

  // Bytes that were written but not yet read by the logger.
  std::size_t Unread() const;

 private:
  int master_ = -1;
  int slave_ = -1;
  std::string slave_path_;
  std::string link_path_;
};

}  // namespace quenlor::instrument
