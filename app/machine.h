// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/command_line.h"
#include "app/desk/ports_file.h"
#include "app/desk/read_only_files.h"
#include "app/port_switch.h"
#include "instrument/viscometer_options.h"
#include "link/measurement.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_file_system.h"
#include "platform/qt/qt_serial_devices.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timer.h"

namespace quenlor::app {

// What every program that measures on this machine stands on: its disk, its clock, and its serial line with
// the devices and virtual viscometers that the command line names behind the port numbers.
class Machine {
 public:
  // Whether the numbers that devices get are kept for the next program.
  enum class PortNumbers { kKept, kForgotten };

  // `line` is free of errors. `folder` is where the program keeps its files.
  Machine(const CommandLine& line, const instrument::ViscometerOptions& viscometer, std::string folder,
          PortNumbers numbers);

  link::MeasurementPorts Measurement() { return {MSComm1_, clock_, Timer1_, Timer2_, loop_, files_}; }
  platform::EventLoop& Loop() { return loop_; }
  const std::string& Folder() const { return folder_; }
  platform::Done LookForDevices() { return ports_.LookForDevices(); }
  std::string NameOfPort(int port);  // empty when nothing is known behind it

 private:
  platform::qt::QtFileSystem files_;
  ReadOnlyFiles read_only_{files_};
  platform::qt::QtSerialDevices devices_;
  std::string folder_;
  PortsFile ports_;
  platform::qt::QtSerialPort system_port_;
  PortSwitch MSComm1_;
  platform::qt::QtClock clock_;
  platform::qt::QtTimer Timer1_;
  platform::qt::QtTimer Timer2_;
  platform::qt::QtEventLoop loop_;
};

}  // namespace quenlor::app
