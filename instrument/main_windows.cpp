// SPDX-License-Identifier: MIT
//
// quenlor-instrument: the virtual viscometer on a serial port, with a logger at the other end of the cable.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <iostream>
#include <string>
#include <vector>

#include <windows.h>

#include "instrument/com_line.h"
#include "instrument/viscometer.h"

namespace quenlor::instrument {
namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;
constexpr double kLookSeconds = 0.01;  // between two looks at what the logger has sent

constexpr std::string_view kHelp = R"(quenlor-instrument: a virtual viscometer on a serial port

Usage: quenlor-instrument --port COMn [--line SETTINGS] [options]

Serves the port until it is interrupted or hangs up. A logger at the other end of a null modem
cable, or of a pair of virtual ports, sends commands, each ended by a carriage return:
  QUENLOR, START   begin a run: a reading comes at each interval until the first poll
  Q, QM            poll: one reading; needs no start word
  STOP             end the run

Program:
  --port COMn               the serial port
  --line SETTINGS           of the port, as the command "mode" takes them (default:
                            "baud=2400 parity=e data=7 stop=1")
  --help                    show this text
  --version                 show the version

)";

constexpr std::string_view kEnd = R"(
Exit status: 0 after a hang-up or an interrupt, 1 when the system refused something, 2 for wrong usage.
)";

std::atomic_bool interrupted = false;

BOOL WINAPI Interrupt(DWORD) {
  interrupted = true;
  return TRUE;
}

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

int Fail(const std::string& text) {
  std::cerr << "quenlor-instrument: " << text << '\n';
  return kExitFailure;
}

int WrongUsage(const std::string& text) {
  std::cerr << "quenlor-instrument: " << text << "\nTry 'quenlor-instrument --help'.\n";
  return kExitUsage;
}

int Serve(Viscometer& viscometer, ComLine& line) {
  std::string received;
  while (!interrupted) {
    const std::string readings = viscometer.Emit(Now());
    if (!readings.empty() && !line.Write(readings)) return Fail("the line is broken");
    if (viscometer.HungUp()) return 0;
    if (!line.Read(received)) return Fail("the line is broken");
    viscometer.Receive(received, Now());

    const double until_due = viscometer.NextDue().value_or(HUGE_VAL) - Now();
    const double pause = std::clamp(until_due, 0.0, kLookSeconds);
    if (pause > 0) ::Sleep(static_cast<DWORD>(pause * 1000));
  }
  return 0;
}

int Run(const std::vector<std::string>& arguments) {
  std::string port;
  std::string settings = "baud=2400 parity=e data=7 stop=1";
  std::vector<std::string> instrument_arguments;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (*argument == "--help") {
      std::cout << kHelp << OptionsHelp() << kEnd;
      return 0;
    }
    if (*argument == "--version") {
      std::cout << "quenlor-instrument " PROJECT_VERSION "\n";
      return 0;
    }
    if (*argument == "--port" || *argument == "--line") {
      std::string& value = *argument == "--port" ? port : settings;
      if (++argument == arguments.end()) return WrongUsage(*(argument - 1) + " needs a value");
      value = *argument;
    } else {
      instrument_arguments.push_back(*argument);
    }
  }
  auto parsed = ParseOptions(instrument_arguments);
  if (const auto* const error = std::get_if<OptionsError>(&parsed)) return WrongUsage(error->text);
  if (port.empty()) return WrongUsage("--port is missing");

  ::SetConsoleCtrlHandler(Interrupt, TRUE);
  ComLine line;
  if (const auto failure = line.Open(port, settings)) return Fail(*failure);
  std::cout << port << std::endl;
  Viscometer viscometer(*std::get_if<ViscometerOptions>(&parsed));
  return Serve(viscometer, line);
}

}  // namespace
}  // namespace quenlor::instrument

int main(int argc, char** argv) { return quenlor::instrument::Run({argv + 1, argv + argc}); }
