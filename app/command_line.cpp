// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <charconv>
#include <optional>
#include <sstream>
#include <string_view>

namespace quenlor::app {
namespace {

// A port number is a whole number from 1; 0 for anything else.
int PortNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0 ? number : 0;
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

class Parser {
 public:
  explicit Parser(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  CommandLine Parse() {
    bool only_files = false;
    while (at_ < arguments_.size() && result_.error.empty()) {
      const std::string& argument = arguments_[at_++];
      if (only_files || argument == "-" || !argument.starts_with("-"))
        TakeFile(argument);
      else if (argument == "--")
        only_files = true;
      else
        TakeOption(argument);
    }
    result_.batch = batch_.Options();
    if (result_.error.empty() && !result_.help && !result_.version)
      result_.error = batch_.Check(result_.files);
    return result_;
  }

 private:
  void TakeFile(const std::string& argument) {
    if (argument.empty()) result_.error = "the file name is empty";
    result_.files.push_back(argument);
  }

  void TakeOption(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    const std::string option = argument.substr(0, equals);
    if (equals != std::string::npos) attached_ = argument.substr(equals + 1);
    if (option == "--help" || option == "-h")
      result_.help = true;
    else if (option == "--version")
      result_.version = true;
    else if (option == "--folder")
      result_.folder = Value(option);
    else if (option == "--port")
      TakePort(Value(option));
    else if (option == "--virtual")
      TakeVirtual(Value(option));
    else if (option == "--instrument")
      result_.instrument = Words(Value(option));
    else if (BatchOptionsReader::Knows(option))
      TakeBatchOption(option);
    else
      result_.error = "unknown option " + argument;
    if (attached_ && result_.error.empty()) result_.error = option + " takes no value";
    attached_.reset();
  }

  std::string Value(const std::string& option) {
    std::string value;
    if (attached_)
      value = *attached_;
    else if (at_ < arguments_.size())
      value = arguments_[at_++];
    attached_.reset();
    if (value.empty() && result_.error.empty()) result_.error = option + " needs a value";
    return value;
  }

  void TakeBatchOption(const std::string& option) {
    const std::string value = BatchOptionsReader::TakesValue(option) ? Value(option) : std::string();
    if (result_.error.empty()) result_.error = batch_.Take(option, value);
  }

  void TakePort(const std::string& value) {
    const std::size_t equals = value.find('=');
    const int number = PortNumber(value.substr(0, equals));
    if (!result_.error.empty()) return;
    if (number == 0 || equals == std::string::npos || equals + 1 == value.size()) {
      result_.error = "--port needs n=DEVICE, not " + value;
    } else {
      result_.ports[number] = value.substr(equals + 1);
    }
  }

  void TakeVirtual(const std::string& value) {
    const int number = PortNumber(value);
    if (!result_.error.empty()) return;
    if (number == 0)
      result_.error = "--virtual needs a port number, not " + value;
    else
      result_.virtual_ports.insert(number);
  }

  const std::vector<std::string>& arguments_;
  std::size_t at_ = 0;
  std::optional<std::string> attached_;  // the value of --option=value while it is not taken
  BatchOptionsReader batch_;
  CommandLine result_;
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) { return Parser(arguments).Parse(); }

std::string HelpText() {
  return R"(Usage: quenlor [options] [FILE]
       quenlor --report OUT.pdf [--paper A4|Letter] [--landscape] [--kind KIND]
               FILE...
       quenlor --graph OUT.(png|svg|pdf) [--size WxH] [--kind KIND] FILE
       quenlor --statistics [--format text|csv|json] FILE...
       quenlor --merge OUT.csv FILE...
       quenlor --measure OUT.csv [options of measuring]

Logs the readings of a viscometer on a serial line. FILE, a data file or a raw
log, is opened at start.

Options:
  --folder DIR        keep settings, commands, port numbers and raw logs in DIR
                      (default: the folder of the program; the user's own data
                      folder when the program is installed or its folder cannot
                      be written)
  --port n=DEVICE     port number n is this device (may be given again);
                      without it the line n=DEVICE of Ports.txt in that folder
  --virtual n         put a virtual viscometer behind port number n
  --instrument TEXT   how the virtual viscometer behaves, for instance
                      "--interval 0.5 --form comma"; the same words as
                      quenlor-instrument takes, see quenlor-instrument --help
  -h, --help          show this and exit
  --version           show the version and exit

Without a window and without a display, with the settings and colours of the
folder, which stay as they are (FILE may be a pipe; "-" is standard input):
  --measure OUT.csv   measure, print each reading as it comes, and write the
                      data file at the end; --folder, --port, --virtual and
                      --instrument have their meaning
  --report OUT.pdf    write the report of every file, a page each
  --graph OUT         write the graph of a file as a picture
  --statistics        print the statistics of every file
  --merge OUT.csv     write the runs of all files one after another, renumbered,
                      their columns by title, as one data file
  --paper PAPER       A4 (default) or Letter
  --landscape         turn the paper
  --size WxH          pixels of the picture (default: 1200x800)
  --kind KIND         visco-time (default), visco-temp-time or visco-temp
  --format FORMAT     of statistics and readings: text (default), csv or json

Measuring, for this call instead of what the settings say:
  --settings FILE     these settings instead of the folder's
  --com-port N        port number
  --baud N            600, 1200, 2400, 4800, 9600, 14400, 19200 or 28800
  --parity P          E, O or N
  --length N          7 or 8 data bits
  --stop-bit N        1, 1.5 or 2
  --terminator T      CR/LF or CR
  --visco SWITCH      on or off: start word at the start, STOP at the end
  --number SWITCH     on or off: take only the numbers out of lines
  --decimal-point P   Dot or Comma
  --command TEXT      the command (default: the last one of the command list)
  --repeat SECONDS    send the command at this interval; or off
  --auto-stop MINUTES end a run after them; or off

How measuring ends; SIGINT and SIGTERM end it at any time, as Stop would:
  --readings N        a run ends with its Nth reading
  --minutes M         a run ends so long after its start
  --runs K            so many runs in one data file (default: 1)
  --pause S           seconds between two runs (default: 0)
  --on-loss WHAT      when the device goes away: end (default), or wait for it
                      and go on in a new run
  --quiet             tell only failures on standard error

Exit status: 0 done, 2 wrong usage, 3 a file cannot be read or the port cannot
be opened, 4 an output cannot be written, 5 the instrument no longer answered
or its device was lost; what had been measured is written all the same.
)";
}

}  // namespace quenlor::app
