// SPDX-License-Identifier: MIT
#include "app/batch_program.h"

#include <QGuiApplication>
#include <QHashSeed>
#include <algorithm>
#include <array>
#include <cstdio>

#include "app/decimal_point.h"
#include "app/program_folder.h"
#include "app/program_name.h"
#include "platform/qt/native_file.h"
#include "platform/qt/qt_file_system.h"
#include "platform/qt/system_reasons.h"

namespace quenlor::app {
namespace {

platform::Result<std::string> ReadStandardInput() {
  std::string bytes;
  std::array<char, 1 << 16> piece;
  while (const std::size_t read = std::fread(piece.data(), 1, piece.size(), stdin))
    bytes.append(piece.data(), read);
  if (std::ferror(stdin)) return platform::Cannot("read standard input", platform::qt::LastReason());
  return bytes;
}

platform::Done WriteStandardOutput(std::string_view text) {
  const bool written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (written) return std::nullopt;
  return platform::Cannot("write to standard output", platform::qt::LastReason());
}

// Always one line, whatever a file is called.
void Complain(std::string failure) {
  std::ranges::replace_if(
      failure, [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
  std::fprintf(stderr, "quenlor: %s\n", failure.c_str());
}

// What the toolkit remarks about a machine without a desktop is no failure of the command's.
void OnlyWhatIsFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) Complain(message.toStdString());
}

}  // namespace

ExitStatus RunBatchProgram(const CommandLine& line, int& argc, char** argv) {
  qInstallMessageHandler(OnlyWhatIsFatal);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QHashSeed::setDeterministicGlobalSeed();  // so that equal input gives equal bytes
  const QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationName(QStringLiteral("Quenlor"));
  platform::qt::SystemReasonsInEnglish();
  platform::qt::QtFileSystem files;
  return RunBatch(line,
                  {.files = files,
                   .place = {FolderToRead(QString::fromStdString(line.folder)).toStdString(), ProgramName()},
                   .system_writes_comma = SystemWritesComma(),
                   .read_standard_input = ReadStandardInput,
                   .write_standard_output = WriteStandardOutput,
                   .complain = Complain});
}

}  // namespace quenlor::app
