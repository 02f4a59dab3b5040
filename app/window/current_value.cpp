// SPDX-License-Identifier: MIT
#include "app/window/current_value.h"

#include <QPainter>

#include "data/run_table.h"
#include "data/unit_beside.h"
#include "graph/readable_color.h"
#include "graph/screen_color.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

using platform::qt::ToShortQString;

constexpr int kLeast = 120;  // pixels; what is narrower shows nothing
constexpr double kLarge = 2.6;
constexpr double kMiddle = 1.6;

QFont Sized(const QFont& font, double factor) {
  QFont sized = font;
  if (font.pointSizeF() > 0) {
    sized.setPointSizeF(font.pointSizeF() * factor);
  } else {
    sized.setPixelSize(static_cast<int>(font.pixelSize() * factor));
  }
  return sized;
}

}  // namespace

CurrentValue::CurrentValue(const Session& session, QWidget* parent) : QWidget(parent), session_(session) {
  setObjectName(QStringLiteral("CurrentValue"));
  setToolTip(tr("The newest reading"));
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

CurrentValue::Value CurrentValue::Newest(int column) const {
  const data::MeasurementTable& table = session_.Document().Grid1();
  const auto row = table.EntryRow() - 1;
  if (row < 1) return {};
  return {ToShortQString(data::Trimmed(table.TextMatrix(row, column))),
          ToShortQString(UnitBeside(session_.Document(), row, column))};
}

void CurrentValue::ShowNewest() {
  const data::Document& document = session_.Document();
  visco_ = Newest(document.ViscoColumn());
  temp_ = Newest(document.TempColumn());
  whose_.clear();
  const auto row = document.Grid1().EntryRow() - 1;
  if (row >= 1) {
    const int run = data::RunNumber(document.Grid1().TextMatrix(row, 0));
    color_ = graph::ToQColor(graph::RunColor(session_.Colors().Colors(), run));
    whose_ = ToShortQString(document.Grid4().TextMatrix(run, 1));
    if (!whose_.isEmpty()) whose_ += QStringLiteral(" \u00B7 ");
    whose_ += ToShortQString(document.Grid1().TextMatrix(row, 1));
  }
  update();
}

QString CurrentValue::Spoken() const {
  if (whose_.isEmpty()) return {};
  return QStringLiteral("%1 %2, %3 %4, %5")
      .arg(visco_.number, visco_.unit, temp_.number, temp_.unit, whose_)
      .simplified();
}

// Right-aligned lines, as large as the height allows; a number that does not fit is not shown at all.
void CurrentValue::paintEvent(QPaintEvent* /*event*/) {
  if (whose_.isEmpty() || width() < kLeast) return;
  const QFont large = Sized(font(), kLarge);
  const QFont middle = Sized(font(), kMiddle);
  const int gap = QFontMetrics(font()).averageCharWidth();
  const auto width_of = [&](const Value& value, const QFont& number_font) {
    const int unit = value.unit.isEmpty() ? 0 : gap + fontMetrics().horizontalAdvance(value.unit);
    return QFontMetrics(number_font).horizontalAdvance(value.number) + unit;
  };
  const int bar = fontMetrics().height() * 2 / 3;
  if (width_of(visco_, large) + bar + 2 * gap > width() || width_of(temp_, middle) > width()) return;

  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  const bool readable = graph::CanBeRead(graph::ToColor(color_), graph::ToColor(ground));
  const auto draw = [&](const Value& value, const QFont& number_font, int baseline,
                        const QColor& number_color) {
    int right = width();
    if (!value.unit.isEmpty()) {
      painter.setFont(font());
      painter.setPen(ink);
      right -= fontMetrics().horizontalAdvance(value.unit);
      painter.drawText(right, baseline, value.unit);
      right -= gap;
    }
    painter.setFont(number_font);
    painter.setPen(number_color);
    right -= QFontMetrics(number_font).horizontalAdvance(value.number);
    painter.drawText(right, baseline, value.number);
    return right;
  };
  const int ascent = QFontMetrics(large).ascent();
  const int rows = ascent + QFontMetrics(middle).height() + fontMetrics().height();
  const int top = std::max((height() - rows) / 2, 0);
  const int left = draw(visco_, large, top + ascent, readable ? color_ : ink);
  painter.fillRect(left - gap - bar, top + ascent - bar * 9 / 4, bar, bar * 9 / 4, color_);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(left - gap - bar, top + ascent - bar * 9 / 4, bar, bar * 9 / 4);
  const int second = top + ascent + QFontMetrics(middle).ascent() + gap / 2;
  draw(temp_, middle, second, ink);
  painter.setFont(font());
  painter.setPen(ink);
  const int third = second + fontMetrics().height() + gap / 4;
  const QString whose = fontMetrics().elidedText(whose_, Qt::ElideLeft, width());
  painter.drawText(width() - fontMetrics().horizontalAdvance(whose), third, whose);
}

}  // namespace quenlor::app
