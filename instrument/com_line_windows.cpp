// SPDX-License-Identifier: MIT
#include "instrument/com_line.h"

#include <array>
#include <system_error>

#include <windows.h>

namespace quenlor::instrument {
namespace {

constexpr DWORD kPatienceMs = 1000;  // with a line that takes nothing

std::string Failed(const std::string& what) {
  return "cannot " + what + ": " + std::system_category().message(static_cast<int>(::GetLastError()));
}

}  // namespace

ComLine::~ComLine() {
  if (handle_ != nullptr) ::CloseHandle(handle_);
}

std::optional<std::string> ComLine::Open(const std::string& port, const std::string& settings) {
  DCB line{};
  line.DCBlength = sizeof line;
  if (::BuildCommDCBA(settings.c_str(), &line) == 0) return Failed("understand \"" + settings + "\"");
  line.fBinary = TRUE;

  const std::string name = R"(\\.\)" + port;  // a port beyond COM9 has no other name
  const HANDLE handle =
      ::CreateFileA(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return Failed("open " + port);
  handle_ = handle;
  COMMTIMEOUTS at_once{};
  at_once.ReadIntervalTimeout = MAXDWORD;
  at_once.WriteTotalTimeoutConstant = kPatienceMs;
  if (::SetCommState(handle, &line) == 0 || ::SetCommTimeouts(handle, &at_once) == 0)
    return Failed("set up " + port);
  return std::nullopt;
}

bool ComLine::Read(std::string& bytes) {
  std::array<char, 4096> buffer;
  DWORD count = 0;
  const bool whole = ::ReadFile(handle_, buffer.data(), buffer.size(), &count, nullptr) != 0;
  bytes.assign(buffer.data(), whole ? count : 0);
  return whole;
}

bool ComLine::Write(std::string_view bytes) {
  DWORD count = 0;
  return ::WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0;
}

}  // namespace quenlor::instrument
