// SPDX-License-Identifier: MIT
//
// Every window as somebody meets it who works by keyboard, listens instead of looking, or sees little
// contrast.

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTextEdit>
#include <QToolButton>
#include <map>
#include <set>

#include <gmock/gmock.h>

#include "data/change_dialog.h"
#include "graph/palette_window.h"
#include "graph/readable_color.h"
#include "graph/screen_color.h"
#include "link/error_window.h"
#include "tests/app/window/window_test.h"
#include "tools/demo/dark_palette.h"

namespace quenlor::app {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

// Who a widget is, for whoever reads that a test has failed.
std::string Called(const QObject& object) {
  std::string name = object.metaObject()->className();
  for (const QObject* at = &object; at != nullptr; at = at->parent()) {
    if (!at->objectName().isEmpty()) return name + " in " + at->objectName().toStdString();
  }
  return name;
}

// What Qt puts into its own windows is Qt's.
bool IsOurs(const QWidget& widget) { return !widget.objectName().startsWith(QStringLiteral("qt_")); }

class AccessibilityTest : public WindowTest {
 protected:
  void SetUp() override { light_ = QApplication::palette(); }

  void TearDown() override {
    WindowTest::TearDown();
    QApplication::setPalette(light_);
  }

  // The main window with two runs, and beside it every other window of the program, open.
  void OpenEverything() {
    PutFile("run.csv", "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,0,30,mPa.s,25,C\r\n2,1,31,mPa.s,26,C\r\n");
    Open().OpenFile(std::string(kFolder) + "/run.csv");
    for (const char* item : {"mStatistics", "mColor", "mHelp"}) Choose(item);
    auto* errors = new link::ErrorWindow(window.get());
    errors->AppendLine(QStringLiteral("2026/11/21 09:30:00 1004"));
    errors->show();
    (new graph::PaletteWindow(
         1, QStringLiteral("No.1"), [](int, graph::Color) {}, window.get()))
        ->show();
    auto* change = new data::ChangeDialog("File Name", "run.csv", "of the document", window.get());
    change->setModal(false);
    change->show();
    auto* about = new QMessageBox(QMessageBox::Information, QStringLiteral("About Quenlor"), AboutText(),
                                  QMessageBox::Ok, window.get());
    about->setModal(false);
    about->show();
    QApplication::processEvents();
  }

  std::vector<QWidget*> Windows() const {
    std::vector<QWidget*> windows;
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->isVisible() && !qobject_cast<QMenu*>(top)) windows.push_back(top);
    }
    return windows;
  }

  QPalette light_;
};

bool IsControl(QAccessible::Role role) {
  static const std::set<QAccessible::Role> controls = {
      QAccessible::Button,   QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::ComboBox,
      QAccessible::Splitter, QAccessible::PageTab,  QAccessible::MenuItem,    QAccessible::EditableText,
      QAccessible::Table,    QAccessible::List,     QAccessible::Graphic};
  return controls.count(role) > 0;
}

// What a screen reader is told of a window, from the window down; not into tables, whose cells are texts.
class TreeWalk {
 public:
  void Walk(QAccessibleInterface* at) {
    if (at == nullptr || !at->isValid() || at->state().invisible) return;
    auto* widget = qobject_cast<QWidget*>(at->object());
    ++seen;
    if (qobject_cast<QScrollBar*>(widget) || (widget != nullptr && !IsOurs(*widget))) return;
    const bool focusable = widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) &&
                           !widget->isWindow() && widget->focusProxy() == nullptr;
    if (focusable || IsControl(at->role())) LookAt(*at, focusable);
    if (at->role() == QAccessible::Table) return;
    for (int i = 0; i < at->childCount(); ++i) Walk(at->child(i));
  }

  int seen = 0;
  std::vector<std::string> wrong;

 private:
  void LookAt(QAccessibleInterface& control, bool focusable) {
    const QString name = control.text(QAccessible::Name);
    const auto complain = [&](const char* what) {
      wrong.push_back(Called(*control.object()) + " \"" + name.toStdString() + "\": " + what);
    };
    const bool separator = control.role() == QAccessible::Separator;
    if (name.trimmed().isEmpty() && !separator) complain("no name");
    if (control.role() == QAccessible::NoRole || control.role() == QAccessible::Client) complain("no role");
    if (control.state().disabled || separator) return;
    QAccessibleActionInterface* actions = control.actionInterface();
    const bool has_cells = control.role() == QAccessible::Table;  // which are worked one by one
    if (!has_cells && (actions == nullptr || actions->actionNames().isEmpty())) complain("no action");
    // Tabs and menu items are reached by the arrows within what holds them.
    const bool in_another = control.role() == QAccessible::PageTab || control.role() == QAccessible::MenuItem;
    if (!in_another && !control.state().focusable && !focusable) complain("no focus");
  }
};

TEST_F(AccessibilityTest, EveryControlHasNameRoleActionAndFocus) {
  OpenEverything();
  ASSERT_GE(Windows().size(), 8U);
  for (QWidget* top : Windows()) {
    TreeWalk tree;
    tree.Walk(QAccessible::queryAccessibleInterface(top));
    EXPECT_THAT(tree.wrong, IsEmpty()) << Called(*top);
    const bool one_text = qobject_cast<QTextEdit*>(top) != nullptr;  // and nothing else
    EXPECT_GE(tree.seen, one_text ? 1 : 2) << Called(*top);
  }
}

TEST_F(AccessibilityTest, NoMnemonicIsUsedTwiceInAMenuOrAWindow) {
  OpenEverything();
  const auto find_twice = [](const std::vector<QString>& texts) {
    std::map<QString, int> uses;
    for (const QString& text : texts) {
      const QKeySequence key = QKeySequence::mnemonic(text);
      if (!key.isEmpty()) ++uses[key.toString()];
    }
    std::vector<std::string> twice;
    for (const auto& [key, count] : uses) {
      if (count > 1) twice.push_back(key.toStdString());
    }
    return twice;
  };
  for (QMenu* menu : window->findChildren<QMenu*>()) {
    std::vector<QString> texts;
    for (const QAction* item : menu->actions()) texts.push_back(item->text());
    EXPECT_THAT(find_twice(texts), IsEmpty()) << Called(*menu);
  }
  for (QWidget* top : Windows()) {
    std::vector<QString> texts;
    for (const QWidget* widget : top->findChildren<QWidget*>()) {
      if (widget->window() != top || !widget->isVisible()) continue;
      if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) texts.push_back(button->text());
      if (const auto* label = qobject_cast<const QLabel*>(widget);
          label != nullptr && label->buddy() != nullptr)
        texts.push_back(label->text());
      if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
        for (int i = 0; i < tabs->count(); ++i) texts.push_back(tabs->tabText(i));
      }
      if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
        for (const QAction* item : bar->actions()) texts.push_back(item->text());
      }
    }
    EXPECT_THAT(find_twice(texts), IsEmpty()) << Called(*top);
  }
}

TEST_F(AccessibilityTest, TabLeadsToEveryControlOfAWindowAndBack) {
  OpenEverything();
  for (QWidget* top : Windows()) {
    std::set<const QWidget*> to_be_met;
    for (const QWidget* widget : top->findChildren<QWidget*>()) {
      // Of radio buttons that belong together Tab leads to the chosen one.
      const auto* radio = qobject_cast<const QRadioButton*>(widget);
      const bool reached = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() &&
                           widget->isEnabled() && widget->focusProxy() == nullptr &&
                           (radio == nullptr || radio->isChecked());
      if (widget->window() == top && reached) to_be_met.insert(widget);
    }
    if (to_be_met.empty()) continue;
    if (top->focusWidget() == nullptr) const_cast<QWidget*>(*to_be_met.begin())->setFocus();
    QWidget* const first = top->focusWidget();
    ASSERT_NE(first, nullptr) << Called(*top);
    bool back = false;
    for (int presses = 0; presses < 200 && !back; ++presses) {
      to_be_met.erase(top->focusWidget());
      QTest::keyClick(top->focusWidget(), Qt::Key_Tab);
      back = top->focusWidget() == first;
    }
    EXPECT_TRUE(back) << Called(*top) << " keeps the focus in " << Called(*top->focusWidget());
    for (const QWidget* missed : to_be_met) ADD_FAILURE() << "Tab never leads to " << Called(*missed);
  }
}

// Where a widget shows text of its own, in the window's colours; nothing where it shows none.
QRect TextOf(const QWidget& widget) {
  const QRect whole = widget.rect();
  QStyleOptionButton button;
  button.initFrom(&widget);
  if (const auto* check = qobject_cast<const QCheckBox*>(&widget); check && !check->text().isEmpty())
    return widget.style()->subElementRect(QStyle::SE_CheckBoxContents, &button, &widget);
  if (const auto* radio = qobject_cast<const QRadioButton*>(&widget); radio && !radio->text().isEmpty())
    return widget.style()->subElementRect(QStyle::SE_RadioButtonContents, &button, &widget);
  if (const auto* push = qobject_cast<const QPushButton*>(&widget); push && !push->text().isEmpty()) {
    // Styles shade a button from its upper to its lower edge.
    const int beside = (whole.height() - push->fontMetrics().height()) / 2;
    return whole.adjusted(6, beside, -6, -beside);
  }
  if (const auto* label = qobject_cast<const QLabel*>(&widget); label && !label->text().trimmed().isEmpty())
    return whole;
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget); edit && !edit->text().isEmpty())
    return whole.adjusted(3, 3, -3, -3);
  if (const auto* text = qobject_cast<const QTextEdit*>(&widget)) return text->viewport()->geometry();
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget); box && !box->title().isEmpty())
    return {12, 0, box->fontMetrics().horizontalAdvance(box->title()), box->fontMetrics().height()};
  if (const auto* menu = qobject_cast<const QMenuBar*>(&widget))
    return menu->actionGeometry(menu->actions().first());
  return {};
}

// The contrast of what stands out most against what there is most of.
double ContrastIn(const QImage& image) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  const auto ground = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
  double contrast = 1;
  for (const auto& [color, count] : counts)
    contrast = std::max(
        contrast, graph::Contrast(graph::ToColor(QColor(color)), graph::ToColor(QColor(ground->first))));
  return contrast;
}

TEST_F(AccessibilityTest, TextsAreReadableInALightAndInADarkScheme) {
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? demo::DarkPalette() : light_);
    OpenEverything();
    int texts = 0;
    for (QWidget* top : Windows()) {
      for (QWidget* widget : top->findChildren<QWidget*>()) {
        const QRect text = TextOf(*widget) & widget->rect();
        // What is off is pale so that it can be told from what is on.
        if (widget->window() != top || !widget->isVisible() || !widget->isEnabled() || text.isEmpty())
          continue;
        if (qobject_cast<graph::Caption*>(widget)) continue;  // in the colours that the operator has chosen
        if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->deselect();  // colours of the desktop
        ++texts;
        const QImage shown = top->grab(QRect(widget->mapTo(top, text.topLeft()), text.size())).toImage();
        // A sign is no text.
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool sign = label != nullptr && label->text().size() == 1;
        EXPECT_GE(ContrastIn(shown), sign ? 3.0 : 4.5) << Called(*widget) << (dark ? ", dark" : ", light");
      }
    }
    EXPECT_GT(texts, 40);
    window.reset();
  }
}

class Hearing : public AccessibilityTest {
 protected:
  void Listen() {
    Open();
    const auto* announcer = window->findChild<Announcer*>();
    ASSERT_NE(announcer, nullptr);
    QObject::connect(announcer, &Announcer::Announced, announcer, [this](const QWidget& shown) {
      const auto* label = qobject_cast<const QLabel*>(&shown);
      heard.push_back((label != nullptr ? label->text() : shown.accessibleName()).toStdString());
    });
  }

  std::vector<std::string> heard;
};

TEST_F(Hearing, ReadingsAreToldOnceASecondAtMostAndTheNewestOfThem) {
  Listen();
  Start();
  Reading("30.5 mPa.s,25.1 C");
  ASSERT_TRUE(WaitFor([&] { return !heard.empty(); }));
  EXPECT_THAT(heard[0], testing::StartsWith("30.5 mPa.s, 25.1 C"));
  for (const char* reading : {"31.5 mPa.s,25.1 C", "32.5 mPa.s,25.1 C", "33.5 mPa.s,25.1 C"}) {
    Reading(reading);
    QTest::qWait(100);  // each of them is shown
  }
  EXPECT_THAT(heard, SizeIs(1));
  ASSERT_TRUE(WaitFor([&] { return heard.size() >= 2; }));
  EXPECT_THAT(heard[1], testing::StartsWith("33.5 mPa.s"));
}

TEST_F(Hearing, AnEndIsToldAlsoRightAfterAReading) {
  Listen();
  Start();
  Reading("30.5 mPa.s,25.1 C");
  ASSERT_TRUE(WaitFor([&] { return !heard.empty(); }));
  Click("Command1");  // "Stop"
  ASSERT_TRUE(WaitFor([&] { return heard.size() >= 2; }));
  EXPECT_THAT(heard[1], testing::HasSubstr("The measurement has ended at"));
}

}  // namespace
}  // namespace quenlor::app
