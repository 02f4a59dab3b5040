// SPDX-License-Identifier: MIT
#include "tests/actions/player.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QWheelEvent>

#include "fuzz/promise.h"
#include "platform/serial_port.h"
#include "tests/actions/boxes.h"

namespace quenlor::actions {
namespace {

using platform::Answer;

constexpr Qt::Key kKeys[] = {Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Tab,   Qt::Key_Space, Qt::Key_Delete,
                             Qt::Key_F1,     Qt::Key_F2,       Qt::Key_F5,    Qt::Key_F6,    Qt::Key_Up,
                             Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right, Qt::Key_Home,  Qt::Key_End,
                             Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Menu,  Qt::Key_Plus,  Qt::Key_Minus,
                             Qt::Key_A,      Qt::Key_B,        Qt::Key_Comma};
constexpr Qt::Key kWithControl[] = {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_L,    Qt::Key_Z,
                                    Qt::Key_Y, Qt::Key_A, Qt::Key_C, Qt::Key_N,    Qt::Key_O,
                                    Qt::Key_S, Qt::Key_P, Qt::Key_T, Qt::Key_Home, Qt::Key_End};
constexpr Qt::Key kWithAlt[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_F, Qt::Key_R, Qt::Key_O, Qt::Key_M};
constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                        Qt::MiddleButton};
constexpr Qt::KeyboardModifiers kHeld[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                           Qt::ControlModifier};
constexpr const char* kTyped[] = {"0", "1", "5", "0.2", "0,3", "-1", "1e9", "QM", "STOP", "x;y", "a, b", "ä"};
constexpr const char* kLineEnds[] = {"\r", "\r\n", "\r\n", "\n\r"};
constexpr const char* kFields[] = {
    "25.0", "-1.5E+3", "1,5",  "",         " ",    "***", "nan", "99999999999999999999",
    "\x06", "a b",     "Over", "\xC3\xA4", "\xE4", "=",   ";",   "1;2"};
constexpr int kEvents[] = {2, 3, 7, 1001, 1002, 1003, 1004, 1006, 1007, 1008, 1009, 1010, 1011};
constexpr const char* kFiles[] = {"quenlor.ini", "Color.txt", "Recent.txt", "Saved.txt", "New.txt"};
constexpr const char* kSavedPath = "/lab/saved.csv";

const std::string kDataFile =
    "No.,Time,Viscosity,Temp,Torque\r\n1,00.0,1200,25.0,10\r\n1,05.0,1210,25.1,11\r\n2,00.0,900,30,9\r\n";

constexpr const char* kNames[] = {"start or stop",
                                  "click",
                                  "double click",
                                  "drag",
                                  "wheel",
                                  "key",
                                  "type",
                                  "choose",
                                  "open menu",
                                  "lines",
                                  "time",
                                  "set the clock",
                                  "port",
                                  "disk fails",
                                  "disk heals",
                                  "raw log changes",
                                  "save and read back",
                                  "resize",
                                  "end"};

}  // namespace

Player::Player() {
  bench_.PutFile("some.csv", kDataFile);
  bench_.PutFile("wide.csv", "No.,Time,A,B,C,D,E,F,G,H\r\n1,00.0,1,2,3,4,5,6,7,8\r\n");
  bench_.PutFile("noise.csv", std::string("\0\xFF,,,\r\n;;;\n1,2\r3", 17));
  bench_.PutFile("semicolon.csv", "No.;Time;Viscosity;Temp\r\n1;00.0;1,5;25,0\r\n1;00:00:07;1,6;25,1\r\n");
  Restart();
}

void Player::Restart() {
  bench_.window.reset();
  bench_.Open();
  for (const char* grid : {"Grid1", "Grid2", "Grid4"}) {
    QAbstractItemModel* model = bench_.Find<platform::qt::GridView>(grid)->model();
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal, model);
  }
  fuzz::Check(QTest::qWaitForWindowExposed(bench_.window.get()), "the window appears");
}

void Player::Do(const Action& action) {
  chance_ = Chance(action.seed);
  told_ = kNames[static_cast<std::size_t>(action.kind)];
  Script();
  {
    Boxes boxes(chance_);
    Act(action.kind);
    boxes.Settle();
  }
  bench_.dialogs = {};
  bench_.printer = {};
  if (!bench_.window->isVisible()) {
    fuzz::Check(!bench_.MSComm1.PortOpen(), "a program that was ended has closed its port");
    Restart();
    told_ += " (and began anew)";
  }
  LookAtPromises();
}

void Player::LookAtPromises() {
  CheckState(bench_);
  CheckViews(bench_);
  held_.Note(bench_.window->Document().Grid1());
  if (disk_is_well_ && !log_is_due_) CheckRawLog(bench_, held_);
}

void Player::Act(Kind kind) {
  switch (kind) {
    case Kind::kStartOrStop:
      return StartOrStop();
    case Kind::kClick:
      return Click();
    case Kind::kDoubleClick:
      return DoubleClick();
    case Kind::kDrag:
      return Drag();
    case Kind::kWheel:
      return Wheel();
    case Kind::kKey:
      return Key();
    case Kind::kType:
      return Type();
    case Kind::kMenu:
      return ChooseFromMenu();
    case Kind::kOpenMenu:
      return OpenMenu();
    case Kind::kLines:
      return SendLines();
    case Kind::kTime:
      return bench_.clock.Advance(0.05 * (1 + chance_.Below(240)));
    case Kind::kSetClock:
      return SetClock();
    case Kind::kPort:
      return DisturbPort();
    case Kind::kDiskFails:
      return DisturbDisk();
    case Kind::kDiskHeals:
      return HealDisk();
    case Kind::kRawLogChanges:
      return ChangeRawLog();
    case Kind::kSave:
      return SaveAndReadBack();
    case Kind::kResize:
      return Resize();
    case Kind::kEndOfProgram:
      return EndProgram();
  }
}

void Player::Script() {
  constexpr Answer kAnswers[] = {Answer::kOk, Answer::kYes, Answer::kNo, Answer::kCancel};
  // Nobody but ChangeRawLog writes over the raw log in use.
  const std::string raw_log = bench_.MSComm1.PortOpen() ? kSavedPath : "/lab/Com_1.txt";
  const std::string paths[] = {"/lab/some.csv", "/lab/wide.csv", "/lab/noise.csv",   "/lab/semicolon.csv",
                               kSavedPath,      raw_log,         "/lab/missing.csv", "/lab/other.csv"};
  for (int box = 0; box < 3; ++box) {
    bench_.dialogs.Answer(chance_.Of(kAnswers), [this] { Meanwhile(); });
    if (chance_.OneIn(4)) {
      bench_.dialogs.Cancel([this] { Meanwhile(); });
    } else {
      bench_.dialogs.Path(chance_.Of(paths), [this] { Meanwhile(); });
    }
    if (chance_.OneIn(2)) bench_.printer.Accept(1, [this] { Meanwhile(); });
  }
  bench_.loop.during_wait = [this] { Meanwhile(); };
}

void Player::Meanwhile() {
  if (chance_.OneIn(2)) bench_.MSComm1.Feed(NumberedReading(++readings_) + ",25.0\r");
  if (chance_.OneIn(3)) bench_.clock.Advance(0.05 * (1 + chance_.Below(120)));
  if (chance_.OneIn(8)) bench_.MSComm1.Raise(chance_.Of(kEvents));
  if (chance_.OneIn(20)) bench_.MSComm1.VanishDevice();
}

QWidget& Player::AnyWindow() {
  if (chance_.OneIn(4)) {
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](QWidget* one) { return !one->isVisible() || one->windowHandle() == nullptr; });
    std::ranges::sort(windows, {}, [](QWidget* one) { return one->objectName(); });
    if (!windows.isEmpty()) return *chance_.Of(windows);
  }
  return *bench_.window;
}

QPoint Player::Within(const QWidget& widget) {
  return {chance_.Below(std::max(widget.width(), 1)), chance_.Below(std::max(widget.height(), 1))};
}

void Player::StartOrStop() {
  if (!bench_.MSComm1.PortOpen() || chance_.OneIn(3)) bench_.Click("Command1");
}

void Player::Click() {
  QWidget& window = AnyWindow();
  QList<QWidget*> widgets = window.findChildren<QWidget*>();
  widgets.removeIf([&](QWidget* one) { return !one->isVisible() || one->window() != &window; });
  if (widgets.isEmpty()) return;
  const QWidget* widget = chance_.Of(widgets);
  const QPoint at = widget->mapTo(&window, Within(*widget));
  told_ += " " + widget->objectName().toStdString() + " of " + window.objectName().toStdString();
  QTest::mouseClick(window.windowHandle(), chance_.Of(kButtons), chance_.Of(kHeld), at);
}

void Player::DoubleClick() {
  QWidget& window = AnyWindow();
  QPoint at = Within(window);
  if (chance_.OneIn(2)) {
    constexpr const char* kEdited[] = {"Grid1",     "Picture2",  "Label6[4]",
                                       "Label6[6]", "Label5[0]", "Label10[1]"};
    const char* name = chance_.Of(kEdited);
    if (const auto* widget = window.findChild<QWidget*>(QString::fromLatin1(name)))
      at = widget->mapTo(&window, Within(*widget));
  }
  told_ += " at " + std::to_string(at.x()) + ", " + std::to_string(at.y());
  QTest::mouseDClick(window.windowHandle(), chance_.Of(kButtons), {}, at);
}

void Player::Drag() {
  QWidget& window = AnyWindow();
  const Qt::MouseButton button = chance_.Of(kButtons);
  const Qt::KeyboardModifiers held = chance_.Of(kHeld);
  QTest::mousePress(window.windowHandle(), button, held, Within(window));
  for (int move = chance_.Below(4); move >= 0; --move) {
    QTest::mouseMove(window.windowHandle(), Within(window));
    if (chance_.OneIn(6)) Meanwhile();
  }
  QTest::mouseRelease(window.windowHandle(), button, held, Within(window));
}

void Player::Wheel() {
  QWidget& window = AnyWindow();
  const QPoint at = Within(window);
  QWidget* under = window.childAt(at);
  if (under == nullptr) return;
  QWheelEvent event(under->mapFrom(&window, at), window.mapToGlobal(at), {},
                    {0, 120 * (chance_.Below(21) - 10)}, Qt::NoButton, chance_.Of(kHeld), Qt::NoScrollPhase,
                    false);
  QSpontaneKeyEvent::setSpontaneous(&event);  // one that no widget takes goes on to its parent
  qApp->notify(under, &event);
}

void Player::Key() {
  QWindow* window = AnyWindow().windowHandle();
  const int which = chance_.Below(5);
  const Qt::Key key = which == 0   ? chance_.Of(kWithAlt)
                      : which <= 2 ? chance_.Of(kWithControl)
                                   : chance_.Of(kKeys);
  const Qt::KeyboardModifiers held = which == 0   ? Qt::KeyboardModifiers(Qt::AltModifier)
                                     : which <= 2 ? Qt::KeyboardModifiers(Qt::ControlModifier)
                                                  : Qt::KeyboardModifiers(Qt::NoModifier);
  told_ += " " + QKeySequence(QKeyCombination(held, key)).toString().toStdString();
  QTest::keyClick(window, key, held);
}

void Player::Type() {
  constexpr const char* kBoxes[] = {"Text1", "Text2"};
  const char* text = chance_.Of(kTyped);
  if (chance_.OneIn(3)) {
    bench_.Find<QComboBox>("Combo1")->setEditText(QString::fromUtf8(text));
  } else {
    bench_.Find<QLineEdit>(chance_.Of(kBoxes))->setText(QString::fromUtf8(text));
  }
  told_ += std::string(" ") + text;
}

void Player::ChooseFromMenu() {
  QList<QAction*> items;
  for (QMenu* menu : bench_.window->menuBar()->findChildren<QMenu*>()) {
    bool enabled = bench_.window->menuBar()->isEnabled();
    for (QWidget* around = menu; around != nullptr && enabled; around = around->parentWidget())
      enabled = qobject_cast<QMenu*>(around) == nullptr || around->isEnabled();
    if (!enabled) continue;
    if (chance_.OneIn(8)) QMetaObject::invokeMethod(menu, "aboutToShow");
    for (QAction* item : menu->actions()) {
      if (item->isEnabled() && item->menu() == nullptr && !item->isSeparator()) items.append(item);
    }
  }
  QAction* item = chance_.Of(items);
  told_ += " " + item->objectName().toStdString();
  item->trigger();
}

void Player::OpenMenu() {
  QList<QMenu*> menus = bench_.window->menuBar()->findChildren<QMenu*>();
  menus.removeIf([](QMenu* menu) { return !menu->isEnabled(); });
  QMenu* menu = chance_.Of(menus);
  told_ += " " + menu->objectName().toStdString();
  menu->popup(bench_.window->mapToGlobal(QPoint(10, 10)));
}

void Player::SendLines() {
  std::string bytes;
  int lines = chance_.OneIn(8) ? 40 : 1 + chance_.Below(4);
  const int count = lines;
  for (; lines > 0; --lines) {
    bytes += NumberedReading(++readings_);
    for (int field = chance_.Below(5); field > 0; --field) {
      bytes += chance_.OneIn(3) ? " " : ",";
      bytes += chance_.Of(kFields);
    }
    bytes += chance_.OneIn(500) ? std::string(300, ',') : "";
    bytes += chance_.Of(kLineEnds);
  }
  if (chance_.OneIn(10)) bytes += ",";  // the beginning of the next line
  told_ += " " + std::to_string(count) + " up to " + std::to_string(readings_);
  const auto before = bench_.window->Document().Grid1().Rows();
  const bool heard = bench_.MSComm1.PortOpen();
  bench_.MSComm1.Feed(bytes);
  if (heard && bench_.MSComm1.PortOpen())
    fuzz::Check(bench_.window->Document().Grid1().Rows() == before + count, "every line is a reading");
}

void Player::SetClock() {
  constexpr double kSteps[] = {-31'536'000, -3600, -1, 1, 3600, 31'536'000};
  data::Moment now = bench_.clock.Now();
  const double by = chance_.Of(kSteps);
  now.seconds += by;
  now.local_second += static_cast<std::int64_t>(by);
  bench_.clock.SetNow(now);
  told_ += " by " + std::to_string(by);
}

void Player::DisturbPort() {
  switch (chance_.Below(7)) {
    case 0:
      return bench_.MSComm1.VanishDevice();
    case 1:
      return bench_.MSComm1.RefuseOpen({"/dev/ttyV1", "Device or resource busy", ""});
    case 2:
      return bench_.MSComm1.AllowOpen();
    case 3:
      return bench_.MSComm1.HoldOutput(chance_.OneIn(2));
    case 4:
      bench_.devices = {{1, "/dev/ttyV1"}, {3, "/dev/ttyUSB0"}};
      return;
    case 5:
      return bench_.devices.clear();
    default:
      return bench_.MSComm1.Raise(chance_.Of(kEvents));
  }
}

void Player::DisturbDisk() {
  disk_is_well_ = false;
  log_is_due_ = true;
  switch (chance_.Below(5)) {
    case 0:
      return bench_.files.FailAfter(static_cast<std::uint64_t>(chance_.Below(3000)));
    case 1:
      return bench_.files.Refuse("/lab", "Input/output error", platform::FailureKind::kOther);
    case 2:
      return bench_.files.RefuseSync(true);
    case 3:
      return bench_.files.FailToClose();
    default:
      return bench_.files.Unreadable(std::string("/lab/") + chance_.Of(kFiles));
  }
}

// What was missing is there a second and a reading later.
void Player::HealDisk() {
  bench_.files.MakeRoom();
  bench_.files.Allow("/lab");
  bench_.files.RefuseSync(false);
  for (const char* file : kFiles) bench_.files.Readable(std::string("/lab/") + file);
  const std::string scrap = "/elsewhere/scrap";  // a closing that is still to fail fails here
  bench_.files.Put(scrap, "");
  bench_.files.Append(scrap, "1");
  disk_is_well_ = true;
  bench_.clock.Advance(1.1);
  bench_.MSComm1.Feed(NumberedReading(++readings_) + "\r");
  bench_.clock.Advance(1.1);
  bench_.MSComm1.Feed(NumberedReading(++readings_) + "\r");
  log_is_due_ = false;
}

// By somebody else; the next reading makes it whole.
void Player::ChangeRawLog() {
  const std::string name = "Com_" + std::to_string(std::max(bench_.MSComm1.CommPort(), 1)) + ".txt";
  const std::string path = "/lab/" + name;
  switch (chance_.Below(3)) {
    case 0:
      bench_.files.Remove(path);
      break;
    case 1:
      bench_.files.Put(path, bench_.File(name) + "1,2,3\r\n");
      break;
    default:
      bench_.files.Put(path, bench_.File(name).substr(0, bench_.File(name).size() / 2));
      break;
  }
  if (disk_is_well_) {
    bench_.MSComm1.Feed("\r");
  } else {
    log_is_due_ = true;
  }
}

void Player::SaveAndReadBack() {
  HealDisk();
  bench_.dialogs = {};
  bench_.dialogs.Path(kSavedPath);
  bench_.Choose("mSave");
  CheckSaved(bench_, kSavedPath);
}

void Player::Resize() {
  bench_.window->resize(200 + chance_.Below(2200), 150 + chance_.Below(1500));
  auto* tabs = bench_.Find<QTabWidget>("Tables");
  tabs->setCurrentIndex(chance_.Below(tabs->count()));
}

void Player::EndProgram() { bench_.window->close(); }

void Player::End() {
  Do({Kind::kSave, 1});
  bench_.window.reset();
}

}  // namespace quenlor::actions
