// SPDX-License-Identifier: MIT
//
// Makes a whole measurement without anybody at the screen: two short runs against the virtual viscometer,
// saved as a data file, and a picture of the window. It presses the real window's buttons and fills in its
// real Save box.
//
// Usage: quenlor-demo DIR | --try-display

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cstdio>
#include <string_view>
#include <variant>

#include "app/program.h"
#include "tools/demo/hand.h"

namespace {

using namespace quenlor;
using demo::AnswerBox;
using demo::Wait;

constexpr int kRunMilliseconds = 9000;
constexpr int kFailed = 1;

// Both curves, over seconds, as long as the runs are.
void ChooseView(const app::MainWindow& window) {
  const auto choose = [&](const char* item) {
    window.findChild<QAction*>(QString::fromLatin1(item))->trigger();
  };
  choose("TimeS[0]");
  choose("MK[2]");
  window.findChild<QRadioButton*>(QStringLiteral("Option1[1]"))->click();
  AnswerBox(QStringLiteral("12"));
  choose("Range[1]");
}

bool MakeRun(app::MainWindow& window, int number) {
  auto* start_button = window.findChild<QPushButton*>(QStringLiteral("Command1"));
  const auto before = window.Document().Grid1().Rows();
  start_button->click();
  Wait(kRunMilliseconds);
  start_button->click();  // "Stop"; comes back when the port is closed
  const auto readings = window.Document().Grid1().Rows() - before;
  std::printf("run %d: %lld readings\n", number, static_cast<long long>(readings));
  return readings > 0;
}

int MakeDemo(const QString& folder) {
  QDir().mkpath(folder);
  const QString data_file = QDir(folder).absoluteFilePath(QStringLiteral("measurement.csv"));
  const QString picture = QDir(folder).absoluteFilePath(QStringLiteral("quenlor.png"));
  QFile::remove(data_file);

  const QTemporaryDir program_folder;
  app::CommandLine line;
  line.folder = program_folder.path().toStdString();
  line.virtual_ports = {1};
  const auto viscometer = instrument::ParseOptionsText(
      "--interval 0.5 --viscosity exp:1200:300:5 --temperature exp:20:25:8 --viscosity-noise 4 --seed 7");
  app::Program program(line, std::get<instrument::ViscometerOptions>(viscometer));
  app::MainWindow& window = program.Window();
  window.show();

  ChooseView(window);
  if (!MakeRun(window, 1) || !MakeRun(window, 2)) return kFailed;
  Wait(500);  // the last rows are shown a moment after they came
  AnswerBox(data_file);
  window.findChild<QAction*>(QStringLiteral("mSave"))->trigger();
  if (!QFileInfo::exists(data_file)) return kFailed;
  Wait(100);
  if (!window.grab().save(picture)) return kFailed;
  std::printf("wrote %s\nwrote %s\n", qPrintable(data_file), qPrintable(picture));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc == 2 && std::string_view(argv[1]) == "--try-display")
    return 0;  // there is one: this line was reached
  if (argc != 2) {
    std::fprintf(stderr, "Usage: quenlor-demo DIR | --try-display\n");
    return 2;
  }
  return MakeDemo(QString::fromLocal8Bit(argv[1]));
}
