// SPDX-License-Identifier: MIT
#include "graph/plot_picture.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QStyleHints>
#include <QStyleOptionFocusRect>
#include <utility>

#include "graph/draw_on_image.h"
#include "graph/screen_color.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::graph {
namespace {

// With fewer readings a redraw is over before a pointer could change.
constexpr Index kManyReadings = 200'000;

constexpr double kNotch = 120;          // of a wheel, in Qt's eighths of a degree
constexpr int kRestMilliseconds = 800;  // between two turns of a wheel that are no longer one
constexpr double kKeyShove = 0.1;       // of the plot, by an arrow

// An image for whoever cannot see it, and what its keys are.
QAccessibleInterface* Describe(const QString& /*class_name*/, QObject* object) {
  auto* plot = qobject_cast<PlotPicture*>(object);
  return plot != nullptr ? new QAccessibleWidget(plot, QAccessible::Graphic) : nullptr;
}

Along AlongOf(Qt::KeyboardModifiers keys) {
  if (keys.testFlag(Qt::ShiftModifier)) return Along::Across;
  return keys.testFlag(Qt::ControlModifier) ? Along::Up : Along::Both;
}

}  // namespace

PlotPicture::PlotPicture(const Plot& plot, const data::Document& document, LiveGraph& graph,
                         const ColorSettings& colors, QWidget* parent)
    : QWidget(parent),
      graph_(graph),
      colors_(colors),
      kept_(plot),
      runs_(plot, graph.Values()),
      overlay_(plot, document, graph, colors),
      hand_(graph) {
  // Before anything is told of it, for what it is then stays.
  static const bool installed = (QAccessible::installFactory(Describe), true);
  Q_UNUSED(installed)
  setObjectName(QStringLiteral("Picture2"));
  setAccessibleName(tr("Graph"));
  const QString keys =
      tr("Wheel, plus and minus zoom (with Shift along the lower axis only, with Ctrl upwards only).\n"
         "A drag zooms into a box; the middle button, Space and a drag, or the arrows shove.\n"
         "A click selects the reading at the pointer, two clicks with Ctrl compare two.\n"
         "A double click or Esc shows the whole; Alt+Left and Alt+Right walk through earlier views.");
  setAccessibleDescription(keys);
  setToolTip(keys);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  grabGesture(Qt::PinchGesture);
}

void PlotPicture::DrawWhole() {
  whole_ = true;
  DrawNew();
}

void PlotPicture::DrawNew() {
  stale_ = true;
  update();
}

void PlotPicture::Hold(bool hold) {
  held_ = hold;
  if (hold) EndDrag();
}

void PlotPicture::resizeEvent(QResizeEvent* /*event*/) { stale_ = true; }

void PlotPicture::paintEvent(QPaintEvent* /*event*/) {
  const bool other_screen = image_.size() != size() * devicePixelRatioF();
  if (!held_ && (stale_ || other_screen)) Draw();
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(colors_.BackColor()));
  painter.drawImage(0, 0, runs_image_.isNull() ? shown_ : runs_image_);
  overlay_.Paint(painter, palette(), devicePixelRatioF());
  PaintHand(painter);
}

void PlotPicture::Draw() {
  stale_ = false;
  overlay_.Follow(size(), Alone());
  const QSize pixels = size() * devicePixelRatioF();
  if (image_.size() != pixels) {
    image_ = QImage(pixels, QImage::Format_RGB32);
    kept_.Forget();
  }
  shown_ = {};  // or the picture would be copied in order to be drawn on
  if (image_.isNull()) return;
  const bool busy = std::exchange(whole_, false) && graph_.Values().Size() > kManyReadings;
  if (busy) QApplication::setOverrideCursor(Qt::WaitCursor);
  const double ratio = devicePixelRatioF();
  DrawOnImage(image_, ratio,
              [this](platform::DrawingSurface& surface) { kept_.Update(surface, surface.Whole()); });
  shown_ = image_;
  if (kept_.LacksNewest()) {
    DrawOnImage(shown_, ratio,
                [this](platform::DrawingSurface& surface) { kept_.DrawNewest(surface, surface.Whole()); });
  }
  DrawRuns();
  if (busy) QApplication::restoreOverrideCursor();
}

void PlotPicture::DrawRuns() {
  runs_image_ = shown_;
  if (!runs_.Draw(runs_image_, ToQColor(colors_.BackColor()))) runs_image_ = {};
}

void PlotPicture::BringToFront(int run) {
  if (held_ || !runs_.BringToFront(run)) return;
  if (!stale_) DrawRuns();
  update();
}

void PlotPicture::ShowAlone(int run) {
  runs_.ShowAlone(run);
  DrawNew();
}

// What the hand does now: its rectangle, and where keys go.
void PlotPicture::PaintHand(QPainter& painter) const {
  if (drag_ == Drag::Box) {
    QColor ink = ToQColor(colors_.GridColor());
    painter.setPen(QPen(ink, 1, Qt::DashLine));
    ink.setAlphaF(0.08F);
    painter.setBrush(ink);
    painter.drawRect(QRectF(pressed_, pointer_).normalized());
  }
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  focus.backgroundColor = ToQColor(colors_.BackColor());
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

// The plot's coordinates have a margin of a hundredth around the axes.
PlotPlace PlotPicture::PlaceOf(QPointF at) const {
  constexpr double kMargin = 0.01;
  constexpr double kWhole = 1 + 2 * kMargin;
  return {at.x() / std::max(1, width()) * kWhole - kMargin,
          1 + kMargin - at.y() / std::max(1, height()) * kWhole};
}

PlotPlace PlotPicture::ShoveTo(QPointF at) const {
  const PlotPlace from = PlaceOf(pressed_);
  const PlotPlace to = PlaceOf(at);
  return {to.across - from.across, to.up - from.up};
}

// How far a hand goes that means to stay.
PlotPlace PlotPicture::Steady() const {
  const double way = QApplication::startDragDistance();
  return {way / std::max(1, width()), way / std::max(1, height())};
}

void PlotPicture::BeginUnlessGoingOn() {
  if (!since_turn_.isValid() || since_turn_.elapsed() > kRestMilliseconds) hand_.Begin();
  since_turn_.start();
}

void PlotPicture::Turn(QWheelEvent* event, QPointF at) {
  const QPoint angle = event->angleDelta();
  const int turned = angle.y() != 0 ? angle.y() : angle.x();  // some desktops turn it sideways with a key
  event->accept();
  if (turned == 0 || held_ || drag_ != Drag::None) return;
  BeginUnlessGoingOn();
  hand_.Zoom(PlaceOf(at), AlongOf(event->modifiers()), turned / kNotch);
  emit ViewMoved();
}

void PlotPicture::wheelEvent(QWheelEvent* event) { Turn(event, event->position()); }

void PlotPicture::MarkRows(data::Document::Row first, data::Document::Row last) {
  overlay_.Mark(first - 1, last - 1);
  update();
}

QString PlotPicture::Told() const {
  QStringList lines;
  for (const auto& told : {overlay_.Told(), overlay_.Compared()})
    for (const std::string& line : told) lines += platform::qt::ToQString(line);
  return lines.join(QLatin1Char('\n'));
}

void PlotPicture::PointAt(std::optional<QPointF> pointer) {
  if (held_) return;
  overlay_.Point(pointer);
  update();
}

void PlotPicture::leaveEvent(QEvent* /*event*/) { PointAt({}); }

void PlotPicture::ClickOn(QPointF at, bool compare) {
  PointAt(at);
  const std::optional<Index> near = overlay_.Near();
  if (compare) return overlay_.Compare();
  if (near) emit ReadingChosen(*near + 1);
}

bool PlotPicture::event(QEvent* event) {
  // A tip would cover what the plate says.
  if (event->type() == QEvent::ToolTip && overlay_.Near()) return true;
  if (event->type() == QEvent::Gesture) return Pinch(static_cast<QGestureEvent*>(event));
  if (event->type() == QEvent::NativeGesture && Spread(*static_cast<QNativeGestureEvent*>(event)))
    return true;
  return QWidget::event(event);
}

bool PlotPicture::Pinch(QGestureEvent* event) {
  auto* pinch = static_cast<QPinchGesture*>(event->gesture(Qt::PinchGesture));
  if (pinch == nullptr || held_) return false;
  event->accept(pinch);
  EndDrag();  // which the first finger may have begun
  BeginUnlessGoingOn();
  const QPointF at = mapFromGlobal(pinch->hotSpot());
  hand_.Spread(PlaceOf(at), pinch->scaleFactor());
  emit ViewMoved();
  return true;
}

bool PlotPicture::Spread(const QNativeGestureEvent& event) {
  if (event.gestureType() != Qt::ZoomNativeGesture || held_) return false;
  BeginUnlessGoingOn();
  hand_.Spread(PlaceOf(event.position()), 1 + event.value());
  emit ViewMoved();
  return true;
}

void PlotPicture::mousePressEvent(QMouseEvent* event) {
  if (drag_ != Drag::None || held_) return;
  if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && space_)) {
    BeginDrag(Drag::Shove, event->position());
  } else if (event->button() == Qt::LeftButton) {
    BeginDrag(Drag::Press, event->position());
  } else {
    return event->ignore();
  }
  dragging_ = event->button();
}

void PlotPicture::BeginDrag(Drag drag, QPointF at) {
  drag_ = drag;
  PointAt({});
  pressed_ = pointer_ = at;
  hand_.Begin();
  since_turn_.invalidate();
  ShowCursor();
}

void PlotPicture::EndDrag() {
  if (std::exchange(drag_, Drag::None) == Drag::None) return;
  PointAt(pointer_);
  update();
  ShowCursor();
}

void PlotPicture::ShowCursor() {
  if (drag_ == Drag::Shove) return setCursor(Qt::ClosedHandCursor);
  setCursor(space_ ? Qt::OpenHandCursor : Qt::CrossCursor);
}

void PlotPicture::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position();
  if (drag_ == Drag::Shove) {
    hand_.Shove(ShoveTo(pointer_), Steady());
    emit ViewMoved();
    return;
  }
  const bool far = (pointer_ - pressed_).manhattanLength() >= QApplication::startDragDistance();
  if (drag_ == Drag::Press && far) drag_ = Drag::Box;
  if (drag_ == Drag::Box) update();
  if (drag_ == Drag::None) PointAt(pointer_);
}

void PlotPicture::mouseReleaseEvent(QMouseEvent* event) {
  if (drag_ == Drag::None || event->button() != dragging_) return event->ignore();
  const Drag ended = drag_;
  EndDrag();
  if (ended == Drag::Press) ClickOn(event->position(), event->modifiers().testFlag(Qt::ControlModifier));
  if (ended != Drag::Box) return;
  hand_.ZoomTo(PlaceOf(pressed_), PlaceOf(event->position()), Steady());
  emit ViewMoved();
}

void PlotPicture::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || held_) return event->ignore();
  ShowWhole();
}

void PlotPicture::ShowWhole() {
  ShowAlone(0);
  graph_.ShowWhole();
  emit ViewMoved();
}

void PlotPicture::focusOutEvent(QFocusEvent* event) {
  space_ = false;
  ShowCursor();
  QWidget::focusOutEvent(event);
}

void PlotPicture::keyPressEvent(QKeyEvent* event) {
  const auto zoom = [&](double notches) {
    BeginUnlessGoingOn();
    const bool up = event->modifiers().testFlag(Qt::ControlModifier);
    hand_.Zoom({0.5, 0.5}, up ? Along::Up : Along::Both, notches);
    emit ViewMoved();
  };
  const auto shove = [&](double across, double up) {
    hand_.Begin();
    hand_.Shove({across, up}, {});
    emit ViewMoved();
  };
  if (held_) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return zoom(1);
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      return zoom(-1);
    case Qt::Key_Left:
      return shove(kKeyShove, 0);
    case Qt::Key_Right:
      return shove(-kKeyShove, 0);
    case Qt::Key_Up:
      return shove(0, -kKeyShove);
    case Qt::Key_Down:
      return shove(0, kKeyShove);
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) space_ = true;
      return ShowCursor();
    case Qt::Key_Escape:
      if (drag_ != Drag::None) return EndDrag();
      overlay_.Forget();
      return ShowWhole();
    default:
      QWidget::keyPressEvent(event);
  }
}

void PlotPicture::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return QWidget::keyReleaseEvent(event);
  if (event->isAutoRepeat()) return;
  space_ = false;
  ShowCursor();
}

}  // namespace quenlor::graph
