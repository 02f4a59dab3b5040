// SPDX-License-Identifier: MIT
#include "graph/caption.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <cmath>

#include "graph/caption_painter.h"
#include "graph/screen_color.h"
#include "platform/qt/qt_drawing_surface.h"

namespace quenlor::graph {
namespace {

using platform::kTwipsPerPixel;

class CaptionInterface : public QAccessibleWidget {
 public:
  explicit CaptionInterface(Caption* caption)
      : QAccessibleWidget(caption,
                          caption->What().isEmpty() ? QAccessible::StaticText : QAccessible::Button) {}

  QString text(QAccessible::Text text) const override {
    const QString shown = Of()->text().simplified();
    if (text == QAccessible::Name)
      return Of()->What().isEmpty() ? shown : Of()->What() + QStringLiteral(": ") + shown;
    if (text == QAccessible::Description && !Of()->What().isEmpty()) return Caption::tr("Enter changes it");
    return QAccessibleWidget::text(text);
  }
  QStringList actionNames() const override {
    if (Of()->What().isEmpty()) return QAccessibleWidget::actionNames();
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name == pressAction()) return Of()->DblClick();
    QAccessibleWidget::doAction(name);
  }

 private:
  Caption* Of() const { return static_cast<Caption*>(widget()); }
};

QAccessibleInterface* Describe(const QString& /*class_name*/, QObject* object) {
  auto* caption = qobject_cast<Caption*>(object);
  return caption != nullptr ? new CaptionInterface(caption) : nullptr;
}

}  // namespace

Caption::Caption(QWidget* parent) : QLabel(parent) {
  static const bool installed = (QAccessible::installFactory(Describe), true);
  Q_UNUSED(installed)
  setTextFormat(Qt::PlainText);
}

void Caption::MayBeChanged(const QString& what) {
  what_ = what;
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setStatusTip(tr("%1: a double click changes it").arg(what));
}

void Caption::Place(const PlacedLabel& placed, Color ground) {
  setVisible(placed.visible && !text().isEmpty());
  if (placed_ == placed && ground_ == ground) return;
  placed_ = placed;
  ground_ = ground;
  // Some letters, and all outlines, reach a little beyond the width of their text, or below it.
  const auto& box = placed.box;
  const QRectF place(box.left / kTwipsPerPixel, box.top / kTwipsPerPixel, box.width / kTwipsPerPixel,
                     box.height / kTwipsPerPixel);
  setGeometry(place.toAlignedRect().adjusted(-1, 0, 1, 1));
  update();
}

void Caption::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (hasFocus()) {
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.backgroundColor = ToQColor(ground_);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
  const double ratio = devicePixelRatioF();
  painter.scale(1 / ratio, 1 / ratio);
  platform::qt::QtDrawingSurface surface(painter, size() * ratio, ratio);
  // This is a window onto Picture1, so that every letter has the place that it has in a picture.
  const QSize whole = parentWidget()->size();
  const auto pixels = [ratio](int length) { return static_cast<int>(std::lround(length * ratio)); };
  surface.SetViewport({{-pixels(x()), -pixels(y()), pixels(whole.width()), pixels(whole.height())},
                       {0, 0, whole.width() * kTwipsPerPixel, whole.height() * kTwipsPerPixel}});
  DrawCaption(surface, placed_, ToColor(palette().color(QPalette::WindowText)), ground_);
}

void Caption::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit DblClick();
}

void Caption::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
    case Qt::Key_Space:
      if (!what_.isEmpty()) return DblClick();
      break;
    default:
      break;
  }
  QLabel::keyPressEvent(event);
}

}  // namespace quenlor::graph
