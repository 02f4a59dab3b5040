// SPDX-License-Identifier: MIT
#include "app/machine.h"

#include <utility>

#include "app/virtual_port.h"
#include "platform/qt/system_reasons.h"

namespace quenlor::app {
namespace {

#ifdef Q_OS_WIN
constexpr auto kNaming = link::PortDirectory::Naming::kCom;
#else
constexpr auto kNaming = link::PortDirectory::Naming::kFiles;
#endif

}  // namespace

Machine::Machine(const CommandLine& line, const instrument::ViscometerOptions& viscometer, std::string folder,
                 PortNumbers numbers)
    : folder_(std::move(folder)),
      ports_(numbers == PortNumbers::kKept ? static_cast<platform::FileSystem&>(files_) : read_only_,
             devices_, folder_, link::PortDirectory(kNaming, line.ports)),
      system_port_([this](int port) { return ports_.Device(port); }),
      MSComm1_(system_port_) {
  platform::qt::SystemReasonsInEnglish();
  for (const int number : line.virtual_ports) MSComm1_.Add(number, std::make_unique<VirtualPort>(viscometer));
}

std::string Machine::NameOfPort(int port) {
  if (MSComm1_.HasOwn(port)) return "virtual viscometer";
  // One that the system does not list may be open all the same.
  const bool is_open = system_port_.PortOpen() && system_port_.CommPort() == port;
  return is_open ? ports_.Device(port) : ports_.Known(port);
}

}  // namespace quenlor::app
