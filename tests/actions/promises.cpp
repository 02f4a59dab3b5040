// SPDX-License-Identifier: MIT
#include "tests/actions/promises.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <algorithm>

#include "data/text_number.h"
#include "fuzz/promise.h"
#include "platform/qt/to_qstring.h"
#include "tests/actions/boxes.h"

namespace quenlor::actions {
namespace {

using fuzz::BrokenPromise;
using fuzz::Check;
using Row = data::Document::Row;

constexpr int kFirstNumber = 700'000;
constexpr int kDigits = 6;
constexpr int kManyColumns = 20;

template <class Widget>
Widget& Find(app::WindowBench& bench, const char* name) {
  auto* found = bench.window->findChild<Widget*>(QString::fromLatin1(name));
  if (found == nullptr) throw BrokenPromise(std::string("there is no ") + name);
  return *found;
}

bool IsPartOfANumber(char c) { return data::IsDigit(c) || c == '.' || c == ':'; }

// The cells that a view shows are those of the table, whose row r and column c are the view's r - 1 and c
// - 1.
template <class Text>
void CheckGrid(app::WindowBench& bench, const char* name, Row rows, int cols, const Text& text) {
  const QAbstractItemModel& model = *Find<platform::qt::GridView>(bench, name).model();
  const std::string grid(name);
  if (model.rowCount() != rows - 1)
    throw BrokenPromise(grid + " shows " + std::to_string(model.rowCount()) + " rows, not " +
                        std::to_string(rows - 1));
  if (model.columnCount() != cols - 1) throw BrokenPromise(grid + " shows other columns");
  for (Row row = 1; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      if (col == kManyColumns) col = std::max(col, cols - 2);  // one line of commas makes thousands
      const int at = static_cast<int>(row) - 1;
      const QVariant shown =
          col == 0 ? model.headerData(at, Qt::Vertical) : model.data(model.index(at, col - 1));
      if (shown.toString() != platform::qt::ToShortQString(text(row, col)))
        throw BrokenPromise(grid + " shows \"" + shown.toString().toStdString() + "\" in row " +
                            std::to_string(row) + ", column " + std::to_string(col));
    }
  }
}

void CheckValues(const graph::ValueArrays& values, const data::Document& document) {
  graph::ValueArrays anew;
  anew.CopyAll(document.Grid1(), document.ViscoColumn(), document.TempColumn());
  Check(values.Size() == document.Grid1().EntryRow() - 1, "the graph has as many readings as the table");
  Check(values.Size() == anew.Size(), "and as if it read them all again");
  for (graph::Index i = 0; i < values.Size(); ++i) {
    Check(values.Time()[i] == anew.Time()[i], "the graph's times are the table's");
    Check(values.Visco()[i] == anew.Visco()[i], "the graph's viscosities are the table's");
    Check(values.Temp()[i] == anew.Temp()[i], "the graph's temperatures are the table's");
  }
  Check(values.Runs().size() == anew.Runs().size(), "the graph's runs are the table's");
  for (std::size_t i = 0; i < values.Runs().size(); ++i)
    Check(values.Runs()[i].first == anew.Runs()[i].first && values.Runs()[i].number == anew.Runs()[i].number,
          "and begin where the table's do");
  for (int run = 1; run <= 10; ++run)
    Check(values.LastRow(run) == anew.LastRow(run), "and have the newest readings of the table's");
}

}  // namespace

std::string NumberedReading(int number) { return std::to_string(kFirstNumber + number); }

std::multiset<int> NumbersIn(const std::string& text) {
  std::multiset<int> numbers;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!data::IsDigit(text[at])) continue;
    std::size_t end = at;
    while (end < text.size() && IsPartOfANumber(text[end])) ++end;
    if (end - at == kDigits && text[at] == '7') {
      const std::string digits = text.substr(at, kDigits);
      if (digits.find_first_of(".:") == digits.npos) numbers.insert(std::stoi(digits) - kFirstNumber);
    }
    at = end;
  }
  return numbers;
}

std::string TableText(const data::MeasurementTable& table, char divider) {
  std::string text;
  for (Row row = 0; row < table.EntryRow(); ++row) {
    table.AppendLine(row, divider, text);
    text += '\n';
  }
  return text;
}

void HeldReadings::Note(const data::MeasurementTable& table) {
  now_ = NumbersIn(TableText(table, ','));
  for (const int number : now_) most_[number] = std::max(most_[number], now_.count(number));
}

void CheckState(app::WindowBench& bench) {
  if (const QWidget* box = WaitingBox())
    throw BrokenPromise("a box is left: " + box->objectName().toStdString() + " \"" +
                        box->windowTitle().toStdString() + "\"");
  Check(bench.window->isVisible(), "the window is there");
  Check(bench.window->isEnabled() && bench.window->menuBar()->isEnabled(), "the window can be used");
  Check(QApplication::overrideCursor() == nullptr, "the pointer is the usual one");
  const bool open = bench.MSComm1.PortOpen();
  const auto& button = Find<QPushButton>(bench, "Command1");
  Check(button.isEnabled(), "Start or Stop can be pressed");
  Check((button.text() == QLatin1String("Stop")) == open, "Start's caption is Stop while the port is open");
  Check(Find<QPushButton>(bench, "Command2").isEnabled() == open, "commands go out while the port is open");
  Check(Find<QMenu>(bench, "mRS").isEnabled() != open, "the line is chosen while the port is closed");
  Check(open || (!bench.Timer1.Enabled() && !bench.Timer2.Enabled()), "no timer outlives the measurement");
  Check(!open || bench.MSComm1.RTS() == true, "RTS is on while the port is open");
}

void CheckViews(app::WindowBench& bench) {
  QMetaObject::invokeMethod(&Find<QTimer>(bench, "Refresh"), "timeout");  // shows what has come
  const data::Document& document = bench.window->Document();
  const data::MeasurementTable& table = document.Grid1();
  const int chosen[] = {0, 1, document.ViscoColumn(), document.TempColumn()};
  CheckGrid(bench, "Grid1", table.Rows(), table.Cols(),
            [&](Row row, int col) { return table.TextMatrix(row, col); });
  CheckGrid(bench, "Grid2", table.Rows(), 4,
            [&](Row row, int col) { return table.TextMatrix(row, chosen[col]); });
  CheckGrid(bench, "Grid4", document.Grid4().Rows(), document.Grid4().Cols(),
            [&](Row row, int col) { return document.Grid4().TextMatrix(static_cast<int>(row), col); });
  CheckValues(bench.window->Graph().Values(), document);
}

void CheckRawLog(app::WindowBench& bench, const HeldReadings& held) {
  if (!bench.MSComm1.PortOpen()) return;
  const std::string log = bench.File("Com_" + std::to_string(bench.MSComm1.CommPort()) + ".txt");
  const std::multiset<int> logged = NumbersIn(log);
  for (const int number : held.Now()) {
    const std::size_t times = logged.count(number);
    if (times < held.Now().count(number) || times > held.Most(number))
      throw BrokenPromise("reading " + NumberedReading(number) + " stands " + std::to_string(times) +
                          " times in the raw log:\n" + log);
  }
}

// A cell that holds what divides the cells of the file cannot come back whole.
void CheckSaved(app::WindowBench& bench, const std::string& path) {
  const data::Document& document = bench.window->Document();
  const std::string before = TableText(document.Grid1(), '\x1f');
  if (before.find(document.FieldSeparator()) != before.npos) return;
  const auto read = data::ParseDataFile(bench.files.Content(path));
  const std::string after = TableText(read.table, '\x1f');
  if (after == before) return;
  const auto differs = std::ranges::mismatch(before, after).in1 - before.begin();
  const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(differs - 60, 0));
  throw BrokenPromise("what was saved reads back otherwise at \"" + before.substr(from, 120) + "\": \"" +
                      after.substr(std::min(from, after.size()), 120) + "\"");
}

}  // namespace quenlor::actions
