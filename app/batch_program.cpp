// SPDX-License-Identifier: MIT
#include "app/batch_program.h"

#include <QGuiApplication>
#include <QHashSeed>
#include <QStandardPaths>
#include <cstdlib>

#include "app/decimal_point.h"
#include "app/new_file.h"
#include "app/program_folder.h"
#include "app/program_name.h"
#include "app/standard_streams.h"
#include "platform/qt/qt_file_system.h"
#include "platform/qt/system_reasons.h"

namespace quenlor::app {
namespace {

// What the toolkit remarks about a machine without a desktop is no failure of the command's. What is fatal,
// such as a toolkit that is not installed whole, ends the program without the abort that would follow.
void OnlyWhatIsFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type != QtFatalMsg) return;
  Complain(message.toStdString());
  std::_Exit(static_cast<int>(ExitStatus::kCannotWrite));
}

}  // namespace

ExitStatus RunBatchProgram(const CommandLine& line, int& argc, char** argv) {
  qInstallMessageHandler(OnlyWhatIsFatal);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the user says about a screen would change the letters of a picture, which is for none.
  for (const char* name :
       {"QT_FONT_DPI", "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_USE_PHYSICAL_DPI",
        "QT_ENABLE_HIGHDPI_SCALING", "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_QPA_PLATFORMTHEME"})
    qunsetenv(name);
#ifdef Q_OS_WIN
  // Without a screen the toolkit looks for fonts in one folder alone, which it is told by this.
  if (!qEnvironmentVariableIsSet("QT_QPA_FONTDIR"))
    qputenv("QT_QPA_FONTDIR",
            QStandardPaths::standardLocations(QStandardPaths::FontsLocation).value(0).toLocal8Bit());
#endif
  QHashSeed::setDeterministicGlobalSeed();  // so that equal input gives equal bytes
  const QGuiApplication application(argc, argv);
  QGuiApplication::setApplicationName(QStringLiteral("Quenlor"));
  platform::qt::SystemReasonsInEnglish();
  platform::qt::QtFileSystem files;
  return RunBatch(line, {.files = files,
                         .place = {FolderToRead(line.folder), ProgramName()},
                         .system_writes_comma = SystemWritesComma(),
                         .is_stream = IsStream,
                         .read_stream = ReadStream,
                         .write_standard_output = WriteStandardOutput,
                         .why_no_new_file = WhyNoNewFile,
                         .complain = Complain});
}

}  // namespace quenlor::app
