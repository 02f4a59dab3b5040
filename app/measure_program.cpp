// SPDX-License-Identifier: MIT
#include "app/measure_program.h"

#include <QCoreApplication>

#include "app/decimal_point.h"
#include "app/desk/unattended.h"
#include "app/machine.h"
#include "app/new_file.h"
#include "app/program_folder.h"
#include "app/program_name.h"
#include "app/standard_streams.h"
#include "platform/qt/end_signals.h"

namespace quenlor::app {

ExitStatus RunMeasureProgram(const CommandLine& line, const instrument::ViscometerOptions& viscometer,
                             int& argc, char** argv) {
  FailInsteadOfDying();
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Quenlor"));
  Machine machine(line, viscometer, ProgramFolder(line.folder), Machine::PortNumbers::kForgotten);
  if (const auto failed = CannotKeepFilesIn(machine.Folder())) {
    Complain(failed->text);
    return ExitStatus::kWrongUsage;
  }
  platform::qt::QtTimer turn;
  Unattended unattended({line.batch.output, line.batch.format, line.batch.measure},
                        {.measurement = machine.Measurement(),
                         .turn = turn,
                         .place = {machine.Folder(), ProgramName()},
                         .system_writes_comma = SystemWritesComma(),
                         .name_of_port = [&](int port) { return machine.NameOfPort(port); },
                         .why_not_written = WhyNoNewFile,
                         .write_standard_output = WriteStandardOutput,
                         .complain = Complain});
  const platform::qt::EndSignals signals_to_end([&] { unattended.Stop("asked to end"); });
  unattended.Begin([](ExitStatus status) { QCoreApplication::exit(static_cast<int>(status)); });
  return static_cast<ExitStatus>(QCoreApplication::exec());
}

}  // namespace quenlor::app
