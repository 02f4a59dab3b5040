// SPDX-License-Identifier: MIT
//
// quenlor-instrument: the virtual viscometer behind a pseudo-terminal, which a logger opens like
// a serial port.

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <poll.h>
#include <signal.h>
#include <time.h>

#include "instrument/pseudo_terminal.h"
#include "instrument/viscometer.h"

namespace quenlor::instrument {
namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

// No further readings are taken from the instrument while that many bytes wait for the line.
constexpr std::size_t kQueueLimit = 65536;
// How long a line that is to be dropped waits for a logger that does not read what was sent before.
constexpr double kLingerSeconds = 2;

constexpr std::string_view kHelp = R"(quenlor-instrument: a virtual viscometer behind a pseudo-terminal

Usage: quenlor-instrument [--link PATH] [options]

Prints the path of the pseudo-terminal on the first line and serves it until it is interrupted
or hangs up. A logger opens that path like a serial port and sends commands, each ended by a
carriage return:
  QUENLOR, START   begin a run: a reading comes at each interval until the first poll
  Q, QM            poll: one reading; needs no start word
  STOP             end the run

Program:
  --link PATH               make a symbolic link of that name to the pseudo-terminal, removed at
                            the end
  --help                    show this text
  --version                 show the version

)";

constexpr std::string_view kExamples = R"(
Examples:
  quenlor-instrument --link /tmp/viscometer
      a reading a second, to be opened as /tmp/viscometer
  quenlor-instrument --interval 0.5 --form comma --viscosity ramp:800:-2 --viscosity-noise 1.5
      two readings a second with decimal commas, falling by 2 mPa.s a second, with noise
  quenlor-instrument --interval 0 --count 100000 --form numbered
      100,000 numbered readings as fast as the line takes them
  quenlor-instrument --fault missing:7 --fault garbage:10
      every 7th reading lost, every 10th one spoilt
  quenlor-instrument --fault late:6
      an instrument slower than the logger's patience
  quenlor-instrument --fault hangup:20
      a cable pulled out after 20 readings

Exit status: 0 after a hang-up or an interrupt, 1 when the system refused something, 2 for wrong usage.
)";

volatile sig_atomic_t interrupted = 0;

void Interrupt(int) { interrupted = 1; }

// Lets SIGINT and SIGTERM through nowhere but inside the wait, so that none slips in between a look
// and a sleep.
sigset_t CatchInterrupts() {
  sigset_t caught;
  sigset_t while_waiting;
  sigemptyset(&caught);
  sigaddset(&caught, SIGINT);
  sigaddset(&caught, SIGTERM);
  sigprocmask(SIG_BLOCK, &caught, &while_waiting);
  sigdelset(&while_waiting, SIGINT);
  sigdelset(&while_waiting, SIGTERM);

  struct sigaction action = {};
  action.sa_handler = Interrupt;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  signal(SIGPIPE, SIG_IGN);  // a reader of our output who left must not cost us the link's removal
  return while_waiting;
}

double Now() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

timespec Duration(double seconds) {
  // An hour is as good as for ever: the loop only looks around and sleeps on.
  seconds = std::clamp(seconds, 0.0, 3600.0);
  const double whole = std::floor(seconds);
  return {static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
}

int Fail(const std::string& text) {
  std::cerr << "quenlor-instrument: " << text << '\n';
  return kExitFailure;
}

int WrongUsage(const std::string& text) {
  std::cerr << "quenlor-instrument: " << text << "\nTry 'quenlor-instrument --help'.\n";
  return kExitUsage;
}

// Gives the logger the chance to read what was sent before the line is dropped: dropping it
// discards the rest.
void Linger(const PseudoTerminal& terminal, const sigset_t& while_waiting) {
  const double end = Now() + kLingerSeconds;
  // What is on its way between the two ends is counted at neither; it takes no two looks to arrive.
  for (int empty_looks = 0; empty_looks < 2 && Now() < end && !interrupted;) {
    empty_looks = terminal.Unread() == 0 ? empty_looks + 1 : 0;
    const timespec pause = Duration(0.02);
    ppoll(nullptr, 0, &pause, &while_waiting);
  }
}

int Serve(Viscometer& viscometer, PseudoTerminal& terminal, const sigset_t& while_waiting) {
  std::string queue;
  std::string received;
  double drop_by = 0;  // when the line is dropped even though it does not take what waits; 0 is not yet
  while (!interrupted) {
    const double now = Now();
    if (queue.size() < kQueueLimit) queue += viscometer.Emit(now);
    if (viscometer.HungUp()) {
      if (drop_by == 0) drop_by = now + kLingerSeconds;
      if (queue.empty()) {
        Linger(terminal, while_waiting);
        return 0;
      }
      if (now >= drop_by) return 0;
    }

    std::optional<double> wake_at = viscometer.NextDue();
    if (queue.size() >= kQueueLimit) wake_at.reset();
    if (drop_by > 0) wake_at = drop_by;
    const timespec timeout = Duration(wake_at ? *wake_at - Now() : HUGE_VAL);
    pollfd line = {terminal.descriptor(), static_cast<short>(queue.empty() ? POLLIN : POLLIN | POLLOUT), 0};
    if (ppoll(&line, 1, &timeout, &while_waiting) < 0 && errno != EINTR)
      return Fail(std::string("cannot wait for the pseudo-terminal: ") + std::strerror(errno));

    if (line.revents & (POLLIN | POLLHUP | POLLERR)) {
      if (!terminal.Read(received)) return Fail("the pseudo-terminal is broken");
      viscometer.Receive(received, Now());
    }
    if (!queue.empty() && !terminal.Write(queue)) return Fail("the pseudo-terminal is broken");
  }
  return 0;
}

int Run(std::vector<std::string> arguments) {
  std::string link;
  std::vector<std::string> instrument_arguments;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (*argument == "--help") {
      std::cout << kHelp << OptionsHelp() << kExamples;
      return 0;
    }
    if (*argument == "--version") {
      std::cout << "quenlor-instrument " PROJECT_VERSION "\n";
      return 0;
    }
    if (argument->starts_with("--link=")) {
      link = argument->substr(7);
    } else if (*argument == "--link") {
      if (++argument == arguments.end()) return WrongUsage("--link needs a path");
      link = *argument;
    } else {
      instrument_arguments.push_back(*argument);
    }
  }
  auto parsed = ParseOptions(instrument_arguments);
  if (const auto* const error = std::get_if<OptionsError>(&parsed)) return WrongUsage(error->text);

  const sigset_t while_waiting = CatchInterrupts();
  PseudoTerminal terminal;
  if (const auto failure = terminal.Open()) return Fail(*failure);
  if (!link.empty()) {
    if (const auto failure = terminal.Link(link)) return Fail(*failure);
  }
  // After the link: who reads the path may use either.
  std::cout << terminal.SlavePath() << std::endl;
  if (!std::cout) return Fail("cannot write the path of the pseudo-terminal");

  Viscometer viscometer(std::get<ViscometerOptions>(parsed));
  return Serve(viscometer, terminal, while_waiting);
}

}  // namespace
}  // namespace quenlor::instrument

int main(int argc, char** argv) { return quenlor::instrument::Run({argv + 1, argv + argc}); }
