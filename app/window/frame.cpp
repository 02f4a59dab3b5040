// SPDX-License-Identifier: MIT
#include "app/window/frame.h"

#include <QApplication>
#include <QLayout>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionGroupBox>

namespace quenlor::app {
namespace {

// Other styles put a frame's caption above it, which costs a line, and none where there is no caption.
class FrameStyle : public QProxyStyle {
 public:
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || box == nullptr)
      return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect frame = box->rect.adjusted(0, box->fontMetrics.height() / 2, 0, 0);
    if (part == SC_GroupBoxContents) return frame.adjusted(1, 1, -1, -1);
    if (part != SC_GroupBoxLabel) return frame;
    const QRect label(kEdge, 0, box->fontMetrics.horizontalAdvance(box->text) + 2 * kGap,
                      box->fontMetrics.height());
    return visualRect(box->direction, box->rect, label);
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || box == nullptr)
      return QProxyStyle::drawComplexControl(control, option, painter, widget);
    const QRect frame = subControlRect(control, option, SC_GroupBoxFrame, widget);
    const QRect label = subControlRect(control, option, SC_GroupBoxLabel, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (!box->text.isEmpty()) painter->setClipRegion(QRegion(box->rect) - label);
    painter->setPen(box->palette.color(QPalette::Mid));
    painter->drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter->setClipping(false);
    painter->setPen(box->palette.color(QPalette::WindowText));
    painter->drawText(label.adjusted(kGap, 0, kGap, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, box->text);
    painter->restore();
  }

 private:
  static constexpr int kGap = 3;
  static constexpr int kRadius = 4;
};

}  // namespace

QGroupBox* NewFrame(const char* name, const QString& caption, QWidget* parent) {
  auto* frame = new QGroupBox(caption, parent);
  frame->setObjectName(QString::fromLatin1(name));
  static FrameStyle* const style = [] {
    auto* made = new FrameStyle;
    made->setParent(qApp);
    return made;
  }();
  frame->setStyle(style);
  return frame;
}

void SetFrameLayout(QGroupBox* frame, QLayout* layout) {
  const int room = frame->fontMetrics().height() / 2;
  layout->setContentsMargins(kEdge, room, kEdge, room);
  layout->setSpacing(kSpacing * 3 / 4);
  frame->setLayout(layout);
}

}  // namespace quenlor::app
