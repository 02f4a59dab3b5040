// SPDX-License-Identifier: MIT
#include "app/standard_streams.h"

#include <QString>
#include <algorithm>
#include <array>

#include <fcntl.h>
#include <io.h>
#include <qt_windows.h>
#include <shellapi.h>

#include "app/batch_options.h"
#include "app/terminal.h"

namespace quenlor::app {
namespace {

struct Stream {
  DWORD number;
  std::FILE* file;
  const wchar_t* console;
  const wchar_t* mode;
};

bool IsThere(DWORD stream) {
  const HANDLE handle = ::GetStdHandle(stream);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE && ::GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

}  // namespace

// In UTF-16 the system has them as they were typed; what main is given has been through the code page.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(QString::fromWCharArray(words[i]).toStdString());
  ::LocalFree(words);
  return arguments;
}

// A window program has no console of its own: it speaks to the one that it was started from, if there is one,
// through each stream that leads nowhere else. Bytes pass as they are.
void GuardClosedStreams() {
  const std::array<Stream, 3> streams = {{{STD_INPUT_HANDLE, stdin, L"CONIN$", L"rb"},
                                          {STD_OUTPUT_HANDLE, stdout, L"CONOUT$", L"wb"},
                                          {STD_ERROR_HANDLE, stderr, L"CONOUT$", L"wb"}}};
  std::array<bool, streams.size()> is_there{};
  for (std::size_t i = 0; i < streams.size(); ++i) is_there[i] = IsThere(streams[i].number);
  const bool attached = ::AttachConsole(ATTACH_PARENT_PROCESS) != 0;
  for (std::size_t i = 0; i < streams.size(); ++i) {
    if (is_there[i])
      ::_setmode(::_fileno(streams[i].file), _O_BINARY);
    else if (attached)
      ::_wfreopen(streams[i].console, streams[i].mode, streams[i].file);
  }
}

bool IsTerminal(std::FILE* stream) {
  const int descriptor = ::_fileno(stream);
  DWORD mode = 0;
  return descriptor >= 0 &&
         ::GetConsoleMode(reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)), &mode) != 0;
}

bool WriteToTerminal(std::FILE* terminal, std::string_view text) {
  const std::wstring shown =
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdWString();
  constexpr std::size_t kPiece = 8192;  // a console takes no text of any length at once
  const auto console = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(terminal)));
  std::fflush(terminal);
  for (std::size_t at = 0; at < shown.size();) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(kPiece, shown.size() - at));
    if (::WriteConsoleW(console, shown.data() + at, size, &written, nullptr) == 0 || written == 0)
      return false;
    at += written;
  }
  return true;
}

void LeaveConsole() { ::FreeConsole(); }

void FailInsteadOfDying() {}  // as it is here anyway

bool IsStream(const std::string& name) { return name == kStandardInput; }

}  // namespace quenlor::app
