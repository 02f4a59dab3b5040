// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QTimer>
#include <cstdlib>
#include <variant>

#include "app/batch_program.h"
#include "app/command_line.h"
#include "app/desk/version.h"
#include "app/measure_program.h"
#include "app/program.h"
#include "app/program_folder.h"
#include "app/standard_streams.h"
#include "instrument/viscometer_options.h"

namespace quenlor {
namespace {

int RefuseUsage(const std::string& why) {
  app::Complain(why + " (see quenlor --help)");
  return static_cast<int>(app::ExitStatus::kWrongUsage);
}

// The status of a program that has nothing to do but say that.
int Say(const std::string& text) {
  const platform::Done failed = app::WriteStandardOutput(text);
  if (!failed) return static_cast<int>(app::ExitStatus::kDone);
  app::Complain(failed->text);
  return static_cast<int>(app::ExitStatus::kCannotWrite);
}

// The toolkit aborts where it cannot show windows, after many words of its own; this is said in their place.
void NoDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type != QtFatalMsg) return;
  app::Complain(
      "there is no display to show a window on; --measure, --report, --graph, --statistics and --merge need "
      "none");
  std::_Exit(static_cast<int>(app::ExitStatus::kWrongUsage));
}

}  // namespace
}  // namespace quenlor

int main(int argc, char** argv) {
  using namespace quenlor;

  app::GuardClosedStreams();
  // Help, version and wrong usage need no display, so they are dealt with before Qt is.
  const std::vector<std::string> arguments = app::Arguments(argc, argv);
  const app::CommandLine line = app::ParseCommandLine(arguments);
  if (line.help) return Say(app::HelpText());
  if (line.version) return Say(app::VersionText(app::ThisVersion(), qVersion()));
  if (!line.error.empty()) return RefuseUsage(line.error);
  if (const auto failed = app::CannotUseFolder(line.folder)) return RefuseUsage(failed->text);
  const auto viscometer = instrument::ParseOptions(line.instrument);
  if (const auto* error = std::get_if<instrument::OptionsError>(&viscometer)) return RefuseUsage(error->text);
  const auto& virtual_viscometer = *std::get_if<instrument::ViscometerOptions>(&viscometer);
  if (line.batch.task == app::Task::kMeasure)
    return static_cast<int>(app::RunMeasureProgram(line, virtual_viscometer, argc, argv));
  if (line.batch.task != app::Task::kWindow) return static_cast<int>(app::RunBatchProgram(line, argc, argv));
  if (!line.files.empty() && app::IsStream(line.files.front()))
    return RefuseUsage("only batch commands read a pipe: " + line.files.front());

  const QtMessageHandler usual = qInstallMessageHandler(NoDisplay);
  QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QApplication::setApplicationName(QStringLiteral("Quenlor"));
  if (const auto failed = app::CannotKeepFilesIn(app::ProgramFolder(line.folder)))
    return RefuseUsage(failed->text);
  app::Program program(line, virtual_viscometer);
  program.Window().show();
  // In the loop, where a bar shows how far it is and the close box ends it.
  if (!line.files.empty())
    QTimer::singleShot(0, &program.Window(), [&] { program.Window().OpenFile(line.files.front()); });
  app::LeaveConsole();
  return program.Run();
}
