// SPDX-License-Identifier: MIT
#include "platform/qt/line_errors.h"

#include <qt_windows.h>
#include <winioctl.h>

namespace quenlor::platform::qt {

namespace {

// As <ntddser.h> has them, which not every compiler's headers let a program include.
constexpr DWORD IOCTL_SERIAL_GET_STATS =
    CTL_CODE(FILE_DEVICE_SERIAL_PORT, 35, METHOD_BUFFERED, FILE_ANY_ACCESS);
struct SERIALPERF_STATS {
  ULONG ReceivedCount;
  ULONG TransmittedCount;
  ULONG FrameErrorCount;
  ULONG SerialOverrunErrorCount;
  ULONG BufferOverrunErrorCount;
  ULONG ParityErrorCount;
};

constexpr DWORD kPatience = 200;  // ms; a driver answers this from memory

}  // namespace

// The driver's counters, which nobody clears by looking: QSerialPort itself takes the flags that
// ClearCommError tells. They do not count breaks.
std::optional<LineErrors> SystemLineErrors(DeviceHandle handle) {
  const HANDLE done = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (done == nullptr) return std::nullopt;
  OVERLAPPED question{};
  // The lowest bit keeps the answer from those who wait for what is read and written.
  question.hEvent = reinterpret_cast<HANDLE>(reinterpret_cast<ULONG_PTR>(done) | 1);
  SERIALPERF_STATS counters{};
  DWORD size = 0;
  bool told = ::DeviceIoControl(handle, IOCTL_SERIAL_GET_STATS, nullptr, 0, &counters, sizeof counters, &size,
                                &question) != 0;
  if (!told && ::GetLastError() == ERROR_IO_PENDING) {
    if (::WaitForSingleObject(done, kPatience) != WAIT_OBJECT_0) ::CancelIoEx(handle, &question);
    told = ::GetOverlappedResult(handle, &question, &size, TRUE) != 0;
  }
  ::CloseHandle(done);
  if (!told || size < sizeof counters) return std::nullopt;
  LineErrors errors;
  errors.framing = static_cast<int>(counters.FrameErrorCount);
  errors.overrun = static_cast<int>(counters.SerialOverrunErrorCount);
  errors.receive_overflow = static_cast<int>(counters.BufferOverrunErrorCount);
  errors.parity = static_cast<int>(counters.ParityErrorCount);
  return errors;
}

}  // namespace quenlor::platform::qt
