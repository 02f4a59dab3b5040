// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>
#include <string>

#include "app/window/main_window.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/scripted_dialogs.h"
#include "platform/memory/test_clipboard.h"
#include "platform/memory/test_desktop.h"
#include "platform/memory/test_printer.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_file_system.h"
#include "platform/qt/qt_timer.h"

namespace quenlor::bench {

// The program's own window on real files, a real clock and a line that the benchmark feeds.
struct WindowOfBench {
  const QTemporaryDir folder;
  platform::memory::MemorySerialPort MSComm1;
  platform::qt::QtClock clock;
  platform::qt::QtTimer Timer1;
  platform::qt::QtTimer Timer2;
  platform::qt::QtEventLoop loop;
  platform::qt::QtFileSystem files;
  platform::memory::ScriptedDialogs dialogs;
  platform::memory::TestPrinter printer;
  platform::memory::TestClipboard clipboard;
  platform::memory::TestDesktop desktop;
  app::MainWindow window{{.measurement = {MSComm1, clock, Timer1, Timer2, loop, files},
                          .dialogs = dialogs,
                          .printer = printer,
                          .clipboard = clipboard,
                          .desktop = desktop,
                          .place = {folder.path().toStdString()},
                          .look_for_devices = [] { return platform::Done(); },
                          .name_of_port = [](int) { return std::string(); }}};

  // Writes a data file into the folder; its path.
  std::string Put(const std::string& bytes) {
    const std::string path = folder.filePath(QStringLiteral("readings.csv")).toStdString();
    files.Replace(path, bytes);
    return path;
  }
};

}  // namespace quenlor::bench
