// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QApplication>
#include <QTest>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "app/window/main_window.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_port.h"
#include "platform/memory/scripted_dialogs.h"
#include "platform/memory/test_clipboard.h"
#include "platform/memory/test_clock.h"
#include "platform/memory/test_desktop.h"
#include "platform/memory/test_event_loop.h"
#include "platform/memory/test_printer.h"

namespace quenlor::app {

using platform::qt::GridView;

// The real main window on a bench: line, clock, disk and boxes are the test's.
struct WindowBench {
  static constexpr const char* kFolder = "/lab";

  platform::memory::MemorySerialPort MSComm1;
  platform::memory::TestClock clock{platform::memory::MomentAt(2026, 11, 21, 9, 30)};
  platform::memory::TestTimer Timer1{clock};
  platform::memory::TestTimer Timer2{clock};
  platform::memory::TestEventLoop loop{clock};
  platform::memory::MemoryFileSystem files{&clock};
  platform::memory::ScriptedDialogs dialogs;
  platform::memory::TestPrinter printer;
  platform::memory::TestClipboard clipboard;
  platform::memory::TestDesktop desktop;
  bool system_writes_comma = false;
  std::map<int, std::string> devices{{1, "/dev/ttyV1"}};
  int looks_for_devices = 0;
  platform::Done ports_trouble;
  std::unique_ptr<MainWindow> window;

  MainWindow& Open() {
    window = std::make_unique<MainWindow>(MainWindowPorts{
        .measurement = {MSComm1, clock, Timer1, Timer2, loop, files},
        .dialogs = dialogs,
        .printer = printer,
        .clipboard = clipboard,
        .desktop = desktop,
        .place = {kFolder},
        .system_writes_comma = system_writes_comma,
        .look_for_devices =
            [this] {
              ++looks_for_devices;
              return ports_trouble;
            },
        .name_of_port = [this](int port) { return devices.count(port) ? devices[port] : std::string(); }});
    window->show();
    return *window;
  }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = window->findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }

  void Click(const char* button) { QTest::mouseClick(Find<QWidget>(button), Qt::LeftButton); }
  void Choose(const char* item) { Find<QAction>(item)->trigger(); }
  void Tick(const char* box) {
    auto* button = Find<QAbstractButton>(box);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
  }

  void Start() { Click("Command1"); }
  void Line(const std::string& text) { MSComm1.Feed(text + "\r\n"); }
  void Reading(const std::string& text) {
    Line(text);
    clock.Advance(1.0);
  }

  // Rows of Grid1 as one text, cells divided by blanks, without titles.
  std::string Readings() {
    const data::MeasurementTable& table = window->Document().Grid1();
    std::string text;
    for (data::Document::Row row = 1; row < table.EntryRow(); ++row) {
      table.AppendLine(row, '|', text);
      text += "\n";
    }
    return text;
  }

  std::string File(const std::string& name) { return files.Content(std::string(kFolder) + "/" + name); }
  void PutFile(const std::string& name, const std::string& bytes) {
    files.Put(std::string(kFolder) + "/" + name, bytes);
  }
  std::string Setting(int element) {
    data::SettingsList list;
    list.Parse(File("quenlor.ini"), false);
    return list[element];
  }
  bool Running() { return MSComm1.PortOpen(); }
};

inline bool WaitFor(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 10'000); }

}  // namespace quenlor::app
