// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "bench/open_document.h"
#include "bench/pair.h"
#include "bench/plain_parser.h"
#include "bench/readings.h"
#include "data/data_file.h"
#include "link/raw_log.h"
#include "link/reception.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_file_system.h"

namespace quenlor::bench {
namespace {

constexpr int kPort = 1;
constexpr const char* kPlainLog = "quenlor-bench-plain.txt";

// What arrives at a time: a third of a second of the fastest line.
constexpr std::size_t kPiece = 4096;

std::string Lines(std::int64_t readings) {
  std::string lines;
  ReadingSource source;
  for (std::int64_t i = 0; i < readings; ++i) {
    AppendInstrumentLine(source.Next(), lines);
    lines += '\r';
  }
  return lines;
}

// A new document that receives, with its graph and its raw log.
class Receiver {
 public:
  Receiver()
      : raw_log_(files_, clock_, opened_.session.Document(), ".", [](const std::string&) { std::abort(); }),
        reception_(port_, clock_, opened_.session.Document(), opened_.session.List(), raw_log_,
                   {.line_begins = [] {},
                    .line_received = [](const std::string&) {},
                    .error = [](const std::string&) { std::abort(); },
                    .runs_used_up = [] { std::abort(); }}) {
    opened_.Open(data::NewTemplate(true, 6));
    port_.OnComm([this](int event) { reception_.MSComm1_OnComm(event); });
    if (port_.Open(kPort, "9600N81")) std::abort();
  }

  double Receive(std::string_view lines) {
    return Seconds([&] {
      for (std::size_t at = 0; at < lines.size(); at += kPiece) port_.Feed(lines.substr(at, kPiece));
    });
  }

  link::RawLog& Log() { return raw_log_; }

 private:
  OpenDocument opened_;
  platform::qt::QtFileSystem files_;
  platform::qt::QtClock clock_;
  platform::memory::MemorySerialPort port_;
  link::RawLog raw_log_;
  link::Reception reception_;
};

double ReceiveUnlogged(const std::string& lines) {
  Receiver receiver;
  return receiver.Receive(lines);
}

double ReceiveLogged(const std::string& lines) {
  Receiver receiver;
  if (receiver.Log().RewriteRawLog(kPort)) std::abort();
  const double seconds = receiver.Receive(lines);
  receiver.Log().Close();
  std::filesystem::remove(receiver.Log().Path(kPort));
  return seconds;
}

// One line of a raw log, opened, appended and closed, as often.
double AppendPlainly(std::int64_t readings) {
  constexpr std::string_view kLine = "1,00:12:30,123.4,mPa.s,25.02,C\r\n";
  const double seconds = Seconds([&] {
    for (std::int64_t i = 0; i < readings; ++i) {
      const int file = ::open(kPlainLog, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
      if (::write(file, kLine.data(), kLine.size()) < 0) std::abort();
      ::close(file);
    }
  });
  ::unlink(kPlainLog);
  return seconds;
}

}  // namespace

void AddReceiveRows() {
  constexpr std::int64_t kLines = 200'000;
  constexpr std::int64_t kLoggedLines = 50'000;
  AddRow({.work = "receive: lines without raw log, to a parser of such readings in a file",
          .goal = "1,000,000 lines/s",
          .shown = Shown::Rate,
          .things = kLines},
         [] {
           const auto lines = std::make_shared<const std::string>(Lines(kLines));
           const auto file = std::make_shared<const std::string>(DataFileText(kLines));
           return Pair{.ours = [lines] { return ReceiveUnlogged(*lines); },
                       .baseline =
                           [file] {
                             return Seconds([&] { ParsePlainly(*file, static_cast<std::size_t>(kLines)); });
                           }};
         });
  AddRow({.work = "receive: lines with raw log, to open-append-close alone",
          .goal = "at least 0.6",
          .shown = Shown::Rate,
          .things = kLoggedLines},
         [] {
           const auto lines = std::make_shared<const std::string>(Lines(kLoggedLines));
           return Pair{.ours = [lines] { return ReceiveLogged(*lines); },
                       .baseline = [] { return AppendPlainly(kLoggedLines); }};
         });
}

}  // namespace quenlor::bench
