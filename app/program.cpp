// SPDX-License-Identifier: MIT
#include "app/program.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>

#include "app/decimal_point.h"
#include "app/machine.h"
#include "app/program_folder.h"
#include "app/program_name.h"
#include "platform/qt/end_signals.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_printer.h"

namespace quenlor::app {
namespace {

// By its name in the desktop's files the program finds itself there: its entry, its icon, its notices. Where
// it is not installed it brings the icon along.
void TellTheDesktop() {
  const QString id = QStringLiteral("org.quenlor.Quenlor");
  QGuiApplication::setDesktopFileName(id);
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
    icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), {size, size});
  QGuiApplication::setWindowIcon(QIcon::fromTheme(id, icon));
}

}  // namespace

struct Program::Parts {
  Parts(const CommandLine& line, const instrument::ViscometerOptions& viscometer)
      : machine(line, viscometer, ProgramFolder(line.folder), Machine::PortNumbers::kKept),
        dialogs([this] { return FrontWindow(); }),
        printer([this] { return FrontWindow(); }, [this] { return window->DocumentFolder(); }) {
    TellTheDesktop();
    window = std::make_unique<MainWindow>(
        MainWindowPorts{.measurement = machine.Measurement(),
                        .dialogs = dialogs,
                        .printer = printer,
                        .clipboard = clipboard,
                        .desktop = desktop,
                        .place = {machine.Folder(), ProgramName()},
                        .system_writes_comma = SystemWritesComma(),
                        .look_for_devices = [this] { return machine.LookForDevices(); },
                        .name_of_port = [this](int port) { return machine.NameOfPort(port); }});
  }

  // Boxes and loops that wait end with the program's own.
  void End() {
    window->EndNow();
    ended = true;
    // The system's own box waits in a loop of the system.
    if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->reject();
    QCoreApplication::exit();
  }

  QWidget* FrontWindow() const { return window ? window->FrontWindow() : nullptr; }

  Machine machine;
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
