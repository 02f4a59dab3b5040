// SPDX-License-Identifier: MIT
//
// Makes pictures of the real program as its user meets it, one a scene.
//
// Usage: quenlor-pictures OUT WIDTHxHEIGHT light|dark SECONDS FEW.csv MANY.csv
// OUT is a folder, the size is the window's in pixels of the picture, SECONDS is how long the measurement of
// the pictures lasts. It begins after the runs of FEW; MANY is shown alone.

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>
#include <variant>
#include <vector>

#include "app/program.h"
#include "graph/graph_pane.h"
#include "tools/demo/dark_palette.h"
#include "tools/demo/hand.h"

namespace {

using namespace quenlor;
using demo::Wait;
using demo::WhenABoxIsUp;

constexpr int kShown = 300;  // milliseconds until what was asked for is shown

struct Wanted {
  QString folder;
  QSize size;
  bool dark = false;
  int milliseconds = 0;
  QString few;
  QString many;
};

class Scenes {
 public:
  explicit Scenes(const Wanted& wanted) : wanted_(wanted) {
    line_.folder = folder_.path().toStdString();
    line_.virtual_ports = {1};
    Begin();
  }

  void TakeAll() {
    Take("empty", Window());
    TakeMenu("com-port", {"mRS", "RS0"});
    TakeMenu("line-settings", {"mRS", "RS1"});
    ShowMany();
    Measure();
    ShowStatistics();
    ShowReport();
    ShowBoxes();
    // What was measured was not saved, and the program ends without a word.
    program_.reset();
    Begin();
    Take("left-readings", *Window().statusBar());
  }

 private:
  void Begin() {
    const auto viscometer = instrument::ParseOptionsText(
        "--interval 1 --viscosity exp:180:1050:28 --temperature exp:25:28:60 --viscosity-noise 3 --seed 7");
    program_ = std::make_unique<app::Program>(line_, std::get<instrument::ViscometerOptions>(viscometer));
    Window().resize(wanted_.size / Window().devicePixelRatioF());
    Window().show();
    Wait(2 * kShown);
  }

  app::MainWindow& Window() { return program_->Window(); }

  template <class T>
  T& Find(const char* name) {
    return *Window().findChild<T*>(QString::fromLatin1(name));
  }

  void Keep(const char* name, const QPixmap& picture) {
    const QString file = QDir(wanted_.folder).filePath(QString::fromLatin1(name) + QStringLiteral(".png"));
    if (!picture.save(file)) std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
  }

  void Take(const char* name, QWidget& widget) {
    Wait(kShown);
    Keep(name, widget.grab());
  }

  // The window's upper left corner with menus opened one out of the other.
  void TakeMenu(const char* name, const std::vector<const char*>& path) {
    QPixmap picture = Window().grab();
    QPainter painter(&picture);
    QPoint at = Window().menuBar()->actionGeometry(Find<QMenu>(path[0]).menuAction()).bottomLeft();
    QPoint corner;
    for (std::size_t level = 0; level < path.size(); ++level) {
      QMenu& menu = Find<QMenu>(path[level]);
      menu.popup(Window().mapToGlobal(at));
      if (level + 1 < path.size()) menu.setActiveAction(Find<QMenu>(path[level + 1]).menuAction());
      Wait(kShown);
      painter.drawPixmap(at, menu.grab());
      corner = at + QPoint(menu.width(), menu.height());
      if (level + 1 < path.size()) {
        const QRect item = menu.actionGeometry(Find<QMenu>(path[level + 1]).menuAction());
        at += item.topRight();
      }
    }
    painter.end();
    for (auto level = path.rbegin(); level != path.rend(); ++level) Find<QMenu>(*level).close();
    const double scale = picture.devicePixelRatio();
    const QRect part(QPoint(), QPoint(corner.x() + 300, corner.y() + 40));
    Keep(name, picture.copy(QRect(part.topLeft() * scale, part.size() * scale)));
  }

  void ShowMany() {
    Window().OpenFile(wanted_.many.toStdString());
    Find<QAction>("TimeS[1]").trigger();  // minutes
    Find<QRadioButton>("Option1[1]").click();
    Take("ten-runs", Window());
    Find<QAction>("mLog[1]").trigger();
    Find<QRadioButton>("Option1[0]").click();
    Take("log", Window());
    Find<QAction>("mLog[0]").trigger();
  }

  void Measure() {
    Window().OpenFile(wanted_.few.toStdString());
    Find<QAction>("TimeS[0]").trigger();  // seconds
    Find<QRadioButton>("Option1[1]").click();
    Find<QCheckBox>("Check1").setChecked(false);  // this instrument sends by itself
    auto& start = Find<QPushButton>("Command1");
    start.click();
    Wait(wanted_.milliseconds);
    Take("measuring", Window());
    Take("status", *Window().statusBar());
    start.click();  // "Stop"; comes back when the port is closed
    Take("measured", Window());
  }

  void ShowStatistics() {
    Find<QAction>("mStatistics").trigger();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() != QStringLiteral("Form4")) continue;
      Take("statistics", *window);
      window->close();
    }
  }

  void ShowReport() {
    WhenABoxIsUp([this](QDialog& choice) {
      Take("printer", choice);
      WhenABoxIsUp([this](QDialog& question) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
          if (window->objectName() == QStringLiteral("Form3")) Take("report", *window);
        }
        Take("question", question);
        question.reject();
      });
      choice.reject();
    });
    Find<QAction>("mPrint").trigger();
  }

  void ShowBoxes() {
    WhenABoxIsUp([this](QDialog& box) {
      Take("change", box);
      box.reject();
    });
    emit Find<graph::GraphPane>("Picture1").Label5_DblClick(1);
    WhenABoxIsUp([this](QDialog& box) {
      Take("about", box);
      box.accept();
    });
    Find<QAction>("mAbout").trigger();
    WhenABoxIsUp([this](QDialog& box) {
      Take("save", box);
      box.reject();
    });
    Find<QAction>("mSave").trigger();
    TakeNewWindow("color", "mColor");
    TakeNewWindow("guide", "mHelp");
  }

  void TakeNewWindow(const char* name, const char* item) {
    const QWidgetList before = QApplication::topLevelWidgets();
    Find<QAction>(item).trigger();
    Wait(kShown);
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (before.contains(window) || !window->isVisible()) continue;
      Take(name, *window);
      window->close();
    }
  }

  const Wanted& wanted_;
  const QTemporaryDir folder_;
  app::CommandLine line_;
  std::unique_ptr<app::Program> program_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  const QStringList size = words.value(2).split('x');
  if (words.size() != 7 || size.size() != 2) {
    std::fprintf(stderr, "Usage: quenlor-pictures OUT WIDTHxHEIGHT light|dark SECONDS FEW.csv MANY.csv\n");
    return 2;
  }
  QApplication::setApplicationName(QStringLiteral("Quenlor"));
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const Wanted wanted{.folder = words[1],
                      .size = {size[0].toInt(), size[1].toInt()},
                      .dark = words[3] == QStringLiteral("dark"),
                      .milliseconds = static_cast<int>(words[4].toDouble() * 1000),
                      .few = words[5],
                      .many = words[6]};
  if (wanted.dark) QApplication::setPalette(demo::DarkPalette());
  QDir().mkpath(wanted.folder);
  Scenes(wanted).TakeAll();
  return 0;
}
