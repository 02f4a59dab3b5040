// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "app/batch_options.h"

namespace quenlor::app {

// What the program was called with, see HelpText.
struct CommandLine {
  bool help = false;
  bool version = false;
  std::string folder;                   // empty: the program chooses
  std::map<int, std::string> ports;     // devices of port numbers
  std::set<int> virtual_ports;          // numbers with the virtual viscometer behind them
  std::vector<std::string> instrument;  // how the virtual viscometer behaves, in its own words
  std::vector<std::string> files;  // data files: at most one to open at start, or those of a batch command
  BatchOptions batch;
  std::string error;  // wrong usage, in one line; empty when all is well
};

CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

// The text of --help.
std::string HelpText();

}  // namespace quenlor::app
