// SPDX-License-Identifier: MIT
//
// The real program with a hand on its Start button, for tests that kill it.
//
// Usage: quenlor-road-driver FOLDER DEVICE [READINGS PATH]
// With these it stops after so many readings, saves as PATH and ends; before that it prints how many readings
// the table holds, whenever there are more. A box that is in the way ends it.

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "app/program.h"
#include "app/standard_streams.h"

namespace quenlor {
namespace {

// Whoever works with the window, looking at it every few milliseconds.
class Hand : public QObject {
 public:
  Hand(app::MainWindow& window, long long readings, QString path)
      : window_(window), readings_(readings), path_(std::move(path)) {
    look_.callOnTimeout(this, [this] { Look(); });
    look_.start(5);
  }

 private:
  void Look() {
    const long long readings = window_.Document().Grid1().EntryRow() - 1;
    if (std::exchange(told_, readings) != readings) {
      std::printf("%lld\n", readings);
      std::fflush(stdout);
    }
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      std::fprintf(stderr, "%s\n", qUtf8Printable(box->text()));
      std::_Exit(3);
    }
    if (readings < readings_) return;
    look_.stop();
    Answer();
    window_.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    window_.findChild<QAction*>(QStringLiteral("mSave"))->trigger();
    std::_Exit(window_.Document().DataChanged() ? 1 : 0);
  }

  // The boxes that Save brings up.
  void Answer() {
    QTimer::singleShot(5, this, [this] {
      Answer();
      QWidget* box = QApplication::activeModalWidget();
      if (auto* files = qobject_cast<QFileDialog*>(box)) {
        files->findChild<QLineEdit*>()->setText(path_);
        static_cast<QDialog*>(files)->accept();
      } else if (auto* question = qobject_cast<QMessageBox*>(box)) {
        question->button(QMessageBox::Yes)->click();
      }
    });
  }

  app::MainWindow& window_;
  long long readings_;
  QString path_;
  long long told_ = 0;
  QTimer look_;
};

}  // namespace
}  // namespace quenlor

int main(int argc, char** argv) {
  using namespace quenlor;
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // boxes that the hand can answer
  QApplication application(argc, argv);
  const std::vector<std::string> words = app::Arguments(argc, argv);
  if (words.size() != 2 && words.size() != 4) return 2;
  app::CommandLine line;
  line.folder = words[0];
  line.ports = {{1, words[1]}};
  app::Program program(line, {});
  program.Window().show();
  QTimer::singleShot(0,
                     [&] { program.Window().findChild<QPushButton*>(QStringLiteral("Command1"))->click(); });
  std::unique_ptr<Hand> hand;
  if (words.size() == 4)
    hand = std::make_unique<Hand>(program.Window(), std::stoll(words[2]), QString::fromStdString(words[3]));
  return program.Run();
}
