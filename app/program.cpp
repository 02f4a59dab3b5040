// SPDX-License-Identifier: MIT
#include "app/program.h"

#include <QApplication>

#include "app/decimal_point.h"
#include "app/desk/ports_file.h"
#include "app/port_switch.h"
#include "app/program_folder.h"
#include "app/program_name.h"
#include "app/virtual_port.h"
#include "platform/qt/end_signals.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_file_system.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_serial_devices.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timer.h"
#include "platform/qt/system_reasons.h"

namespace quenlor::app {
namespace {

#ifdef Q_OS_WIN
constexpr auto kNaming = link::PortDirectory::Naming::kCom;
#else
constexpr auto kNaming = link::PortDirectory::Naming::kFiles;
#endif

}  // namespace

struct Program::Parts {
  Parts(const CommandLine& line, const instrument::ViscometerOptions& viscometer)
      : folder(ProgramFolder(line.folder)),
        ports(files, devices, folder, link::PortDirectory(kNaming, line.ports)),
        system_port([this](int port) { return ports.Device(port); }),
        MSComm1(system_port),
        dialogs([this] { return FrontWindow(); }),
        printer([this] { return FrontWindow(); }, [this] { return window->DocumentFolder(); }) {
    platform::qt::SystemReasonsInEnglish();
    for (const int number : line.virtual_ports)
      MSComm1.Add(number, std::make_unique<VirtualPort>(viscometer));
    window = std::make_unique<MainWindow>(
        MainWindowPorts{.measurement = {MSComm1, clock, Timer1, Timer2, loop, files},
                        .dialogs = dialogs,
                        .printer = printer,
                        .clipboard = clipboard,
                        .desktop = desktop,
                        .place = {folder, ProgramName()},
                        .system_writes_comma = SystemWritesComma(),
                        .look_for_devices = [this] { return ports.LookForDevices(); },
                        .name_of_port =
                            [this](int port) {
                              return MSComm1.HasOwn(port) ? QObject::tr("virtual viscometer").toStdString()
                                                          : ports.Device(port);
                            }});
  }

  // Boxes and loops that wait end with the program's own.
  void End() {
    window->EndNow();
    ended = true;
    QCoreApplication::exit();
  }

  QWidget* FrontWindow() const { return window ? window->FrontWindow() : nullptr; }

  platform::qt::QtFileSystem files;
  platform::qt::QtSerialDevices devices;
  std::string folder;
  PortsFile ports;
  platform::qt::QtSerialPort system_port;
  PortSwitch MSComm1;
  platform::qt::QtClock clock;
  platform::qt::QtTimer Timer1;
  platform::qt::QtTimer Timer2;
  platform::qt::QtEventLoop loop;
  platform::qt::QtDialogs dialogs;
  platform::qt::QtPrinter printer;
  platform::qt::QtClipboard clipboard;
  platform::qt::QtDesktop desktop;
  std::unique_ptr<MainWindow> window;
  bool ended = false;
  platform::qt::EndSignals signals_to_end{[this] { End(); }};
};

Program::Program(const CommandLine& line, const instrument::ViscometerOptions& viscometer)
    : parts_(std::make_unique<Parts>(line, viscometer)) {
  // The desktop ends the program itself, or goes on when another one refuses.
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, parts_->window.get(), &MainWindow::EndNow);
}

Program::~Program() = default;

int Program::Run() { return parts_->ended ? 0 : QCoreApplication::exec(); }

MainWindow& Program::Window() { return *parts_->window; }

}  // namespace quenlor::app
