// SPDX-License-Identifier: MIT
#include "platform/qt/end_signals.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <mutex>
#include <utility>

#include <qt_windows.h>

namespace quenlor::platform::qt {
namespace {

constexpr wchar_t kWindow[] = L"QuenlorEnd";

// Guards who listens: the console tells on a thread of its own.
std::mutex listening;
QObject* listener = nullptr;
std::function<void()>* wish = nullptr;

// Asks once, from the event loop. False when nobody listens any more.
bool AskOnce() {
  const std::lock_guard held(listening);
  if (listener == nullptr) return false;
  QMetaObject::invokeMethod(
      std::exchange(listener, nullptr), [asked = *wish] { asked(); }, Qt::QueuedConnection);
  return true;
}

BOOL WINAPI ConsoleAsks(DWORD event) {
  if (!AskOnce()) return FALSE;
  // When this returns from the last three, the system ends the program, whatever is still to be written.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
  return TRUE;
}

// A window that is never shown: by it a program without any other is told that the session ends, or asked by
// others to close.
LRESULT CALLBACK WindowAsks(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_CLOSE) {
    AskOnce();
    return 0;
  }
  if (message == WM_ENDSESSION && first != 0) {
    // The system ends the program soon after the answer: the wish is fulfilled before.
    AskOnce();
    QEventLoop().exec();
    return 0;
  }
  return ::DefWindowProcW(window, message, first, second);
}

}  // namespace

struct EndSignals::Parts {
  std::function<void()> asked;
  QObject here;
  HWND window = nullptr;
};

EndSignals::EndSignals(std::function<void()> asked) : parts_(std::make_unique<Parts>()) {
  parts_->asked = std::move(asked);
  {
    const std::lock_guard held(listening);
    listener = &parts_->here;
    wish = &parts_->asked;
  }
  ::SetConsoleCtrlHandler(ConsoleAsks, TRUE);
  WNDCLASSW shape{};
  shape.lpfnWndProc = WindowAsks;
  shape.hInstance = ::GetModuleHandleW(nullptr);
  shape.lpszClassName = kWindow;
  ::RegisterClassW(&shape);
  parts_->window = ::CreateWindowExW(0, kWindow, L"Quenlor", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                                     shape.hInstance, nullptr);
}

EndSignals::~EndSignals() {
  ::SetConsoleCtrlHandler(ConsoleAsks, FALSE);
  {
    const std::lock_guard held(listening);
    listener = nullptr;
    wish = nullptr;
  }
  ::DestroyWindow(parts_->window);
  ::UnregisterClassW(kWindow, ::GetModuleHandleW(nullptr));
}

}  // namespace quenlor::platform::qt
