// SPDX-License-Identifier: MIT
#include <QApplication>
#include <cstdio>
#include <variant>

#include "app/batch_program.h"
#include "app/command_line.h"
#include "app/desk/version.h"
#include "app/program.h"
#include "instrument/viscometer_options.h"

namespace {

constexpr int kWrongUsage = 2;

int RefuseUsage(const std::string& why) {
  std::fprintf(stderr, "quenlor: %s (see quenlor --help)\n", why.c_str());
  return kWrongUsage;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quenlor;

  // Help, version and wrong usage need no display, so they are dealt with before Qt is.
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const app::CommandLine early = app::ParseCommandLine(arguments);
  if (early.help) return std::fputs(app::HelpText().c_str(), stdout) < 0;
  if (early.version) return std::printf("%s\n", app::WindowCaption(app::ThisVersion()).c_str()) < 0;
  if (!early.error.empty()) return RefuseUsage(early.error);
  if (early.batch.task != app::Task::kWindow)
    return static_cast<int>(app::RunBatchProgram(early, argc, argv));
  const auto viscometer = instrument::ParseOptions(early.instrument);
  if (const auto* error = std::get_if<instrument::OptionsError>(&viscometer)) return RefuseUsage(error->text);

  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quenlor"));
  app::Program program(early, std::get<instrument::ViscometerOptions>(viscometer));
  if (!early.files.empty()) program.Window().OpenFile(early.files.front());
  program.Window().show();
  return QApplication::exec();
}
