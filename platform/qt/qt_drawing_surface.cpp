// SPDX-License-Identifier: MIT
#include "platform/qt/qt_drawing_surface.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/qt/line_coverage.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::platform::qt {
namespace {

QColor ColorOf(Rgb color) { return {color.red, color.green, color.blue}; }

QRect RectOf(const PixelRectangle& area) { return {area.left, area.top, area.width, area.height}; }

int AtLeastOne(double pixels) { return static_cast<int>(std::max(1L, std::lround(pixels))); }

int FlagOf(Across across) {
  switch (across) {
    case Across::kLeft:
      return Qt::AlignLeft;
    case Across::kCentre:
      return Qt::AlignHCenter;
    case Across::kRight:
      break;
  }
  return Qt::AlignRight;
}

int FlagOf(Down down) {
  switch (down) {
    case Down::kTop:
      return Qt::AlignTop;
    case Down::kCentre:
      return Qt::AlignVCenter;
    case Down::kBottom:
      break;
  }
  return Qt::AlignBottom;
}

// What is no character is a blank: each font shows something else for it, and no SVG file may hold it.
QString Drawable(std::string_view text) {
  QString drawable = ToQString(text);
  for (QChar& unit : drawable) {
    const bool control = unit.category() == QChar::Other_Control;
    const bool unknown = unit == QChar(0xFFFE) || unit == QChar(0xFFFF);
    if (control || unknown) unit = QLatin1Char(' ');
  }
  return drawable;
}

void DrawShape(QPainter& painter, QPoint centre, QSize half, bool circle) {
  const QPoint rising(half.width(), -half.height());
  const QPoint falling(half.width(), half.height());
  if (circle) {
    painter.drawEllipse(centre, half.width(), half.height());
  } else {
    painter.drawLine(centre - rising, centre + rising);
    painter.drawLine(centre - falling, centre + falling);
  }
}

// Where a text of no size stands, so that it grows away from the point on the side that its alignment says.
QRectF TextAnchor(QPointF point) { return {point, QSizeF(0, 0)}; }

}  // namespace

QtDrawingSurface::QtDrawingSurface(QPainter& painter, QSize size, double pen_scale)
    : painter_(painter), size_(size), pen_scale_(pen_scale), picture_(Picture()) {
  SetViewport({Whole(), {0, 0, std::max(1.0, 1.0 * size.width()), std::max(1.0, 1.0 * size.height())}});
  SetPen({});
}

const QImage* QtDrawingSurface::Picture() const {
  if (!painter_.isActive() || !PaintsPixels() || !painter_.deviceTransform().isIdentity()) return nullptr;
  if (painter_.device()->devType() != QInternal::Image) return nullptr;
  const auto* picture = static_cast<const QImage*>(painter_.device());
  const bool of_colors =
      picture->format() == QImage::Format_RGB32 || picture->format() == QImage::Format_ARGB32_Premultiplied;
  return of_colors && picture->size() == size_ ? picture : nullptr;
}

std::span<const std::uint32_t> QtDrawingSurface::PixelsOf(int row) const {
  if (picture_ == nullptr || row < 0 || row >= picture_->height()) return {};
  return {reinterpret_cast<const QRgb*>(picture_->constScanLine(row)),
          static_cast<std::size_t>(picture_->width())};
}

// The clip is set even where the area is all there is: with an explicit clip rectangle the raster painter
// draws the same pixels up to twice as fast.
void QtDrawingSurface::SetViewport(const Viewport& viewport) {
  viewport_ = viewport;
  if (painter_.isActive()) painter_.setClipRect(RectOf(viewport.Area()));
}

void QtDrawingSurface::SetPen(const Pen& pen) {
  pen_ = pen;
  if (!painter_.isActive()) return;
  QPen qt_pen(ColorOf(pen.color));
  qt_pen.setWidthF(pen.width * pen_scale_);
  // Square ends make wide lines meet without gaps, and a line without length a dot.
  qt_pen.setCapStyle(pen.smooth ? Qt::RoundCap : Qt::SquareCap);
  qt_pen.setJoinStyle(Qt::RoundJoin);
  if (pen.style == LineStyle::kDotted) {
    qt_pen.setCapStyle(Qt::FlatCap);
    qt_pen.setDashPattern({1, 2});
  }
  painter_.setPen(qt_pen);
  painter_.setBrush(Qt::NoBrush);
  painter_.setRenderHint(QPainter::Antialiasing, pen.smooth);
}

void QtDrawingSurface::Clear(Rgb color) {
  if (painter_.isActive()) painter_.fillRect(RectOf(viewport_.Area()), ColorOf(color));
}

void QtDrawingSurface::DrawLines(std::span<const Segment> lines) {
  if (!painter_.isActive()) return;
  if (!pen_.smooth) return DrawPixelLines(lines);
  if (PaintsPixels() && pen_.style == LineStyle::kSolid) return DrawCoverage(lines);
  smooth_lines_.clear();
  for (const Segment& line : lines) smooth_lines_.emplace_back(PlaceOf(line.from), PlaceOf(line.to));
  painter_.drawLines(smooth_lines_.data(), static_cast<int>(smooth_lines_.size()));
}

// Drawn one by one, lines would darken each other's edges where they meet; and the painter takes a hundred
// times as long for a tangle of them in one.
void QtDrawingSurface::DrawCoverage(std::span<const Segment> lines) {
  std::vector<Segment> places;
  places.reserve(lines.size());
  const auto place = [this](Point point) {
    const QPointF on_device = PlaceOf(point);
    return Point{on_device.x(), on_device.y()};
  };
  for (const Segment& line : lines) places.push_back({place(line.from), place(line.to)});
  const LineCoverage coverage(places, painter_.pen().widthF(), viewport_.Area());
  const PixelRectangle& area = coverage.Area();
  if (area.Empty()) return;

  std::array<QRgb, 256> inks{};
  for (int part = 0; part < 256; ++part) {
    inks[static_cast<std::size_t>(part)] =
        qPremultiply(qRgba(pen_.color.red, pen_.color.green, pen_.color.blue, part));
  }
  QImage picture(area.width, area.height, QImage::Format_ARGB32_Premultiplied);
  for (int row = 0; row < area.height; ++row) {
    auto* const pixels = reinterpret_cast<QRgb*>(picture.scanLine(row));
    for (int column = 0; column < area.width; ++column) pixels[column] = inks[coverage.At(column, row)];
  }
  painter_.drawImage(area.left, area.top, picture);
}

void QtDrawingSurface::DrawPixelLines(std::span<const Segment> lines) {
  const int width = painter_.pen().width();
  const bool fill_upright =
      PaintsPixels() && pen_.style == LineStyle::kSolid && width >= 2 && painter_.pen().widthF() == width;
  pixel_lines_.clear();
  for (const Segment& line : lines) {
    const QLine pixels(PixelAt(line.from), PixelAt(line.to));
    if (fill_upright && pixels.x1() == pixels.x2()) {
      // The pixels of the line; a wide pen takes many times as long for them.
      const auto [top, bottom] = std::minmax({pixels.y1(), pixels.y2()});
      const QRect rect(pixels.x1() - width / 2, top - width / 2, width, bottom - top + width);
      painter_.fillRect(rect, painter_.pen().color());
    } else {
      pixel_lines_.push_back(pixels);
    }
  }
  painter_.drawLines(pixel_lines_.data(), static_cast<int>(pixel_lines_.size()));
}

void QtDrawingSurface::DrawCircle(Point centre, double radius) {
  const double pixels = viewport_.Round(radius);
  if (!painter_.isActive() || OutOfSight(centre, pixels, pixels)) return;
  if (pen_.smooth) {
    painter_.drawEllipse(PlaceOf(centre), pixels, pixels);
  } else {
    DrawMarker(PixelAt(centre), {AtLeastOne(pixels), AtLeastOne(pixels)}, true);
  }
}

void QtDrawingSurface::DrawCross(Point centre, double half_width, double half_height) {
  const double across = viewport_.Across(half_width);
  const double down = viewport_.Down(half_height);
  if (!painter_.isActive() || OutOfSight(centre, across, down)) return;
  if (pen_.smooth) {
    const QPointF half(across, down);
    const QPointF other(across, -down);
    const QPointF middle = PlaceOf(centre);
    painter_.drawLine(middle - other, middle + other);
    painter_.drawLine(middle - half, middle + half);
  } else {
    DrawMarker(PixelAt(centre), {AtLeastOne(across), AtLeastOne(down)}, false);
  }
}

void QtDrawingSurface::DrawMarker(QPoint centre, QSize half, bool circle) {
  // Larger ones are few, and would be large pictures.
  constexpr int kLargestStamp = 40;
  if (PaintsPixels() && std::max(half.width(), half.height()) <= kLargestStamp) {
    const QImage& stamp = StampOf(half, circle);
    painter_.drawImage(centre - QPoint(stamp.width() / 2, stamp.height() / 2), stamp);
  } else {
    DrawShape(painter_, centre, half, circle);
  }
}

const QImage& QtDrawingSurface::StampOf(QSize half, bool circle) {
  constexpr std::size_t kMostStamps = 64;
  const auto found = std::ranges::find_if(stamps_, [&](const Stamp& stamp) {
    return stamp.pen == pen_ && stamp.half == half && stamp.circle == circle;
  });
  if (found != stamps_.end()) return found->picture;

  const int margin = painter_.pen().width() + 2;
  QImage picture(half * 2 + QSize(2 * margin, 2 * margin), QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(painter_.pen());
  DrawShape(painter, {picture.width() / 2, picture.height() / 2}, half, circle);
  painter.end();
  if (stamps_.size() >= kMostStamps) stamps_.clear();
  return stamps_.emplace_back(Stamp{pen_, half, circle, picture}).picture;
}

bool QtDrawingSurface::PaintsPixels() const { return painter_.paintEngine()->type() == QPaintEngine::Raster; }

void QtDrawingSurface::DrawText(Point position, Across across, Down down, std::string_view text,
                                double height) {
  if (!painter_.isActive()) return;
  const QFont font = FontOf(height);
  const int flags = FlagOf(across) | FlagOf(down) | Qt::TextDontClip | Qt::TextSingleLine;
  const QRectF anchor = TextAnchor(PlaceOf(position));
  const QString drawable = Drawable(text);
  painter_.setFont(font);
  if (pen_.outline) DrawOutline(painter_.boundingRect(anchor, flags, drawable), drawable);
  painter_.drawText(anchor, flags, drawable);
}

// Shapes of small letters depend on what has been drawn in them before; those of large ones do not.
void QtDrawingSurface::DrawOutline(const QRectF& place, const QString& text) {
  constexpr int kLarge = 1024;
  const QFont font = painter_.font();
  QFont large = font;
  large.setPixelSize(kLarge);
  const double large_width = QFontMetricsF(large).horizontalAdvance(text);
  if (!(large_width > 0)) return;
  QPainterPath letters;
  letters.addText(0, 0, large, text);
  QTransform shrink = QTransform::fromTranslate(place.left(), place.top() + QFontMetricsF(font).ascent());
  shrink.scale(place.width() / large_width, 1.0 * font.pixelSize() / kLarge);

  constexpr double kWidth = 0.1;  // of the letters' height; half of it is hidden by them
  const QPen outline(ColorOf(*pen_.outline), kWidth * font.pixelSize(), Qt::SolidLine, Qt::RoundCap,
                     Qt::RoundJoin);
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.strokePath(shrink.map(letters), outline);
  painter_.setRenderHint(QPainter::Antialiasing, pen_.smooth);
}

double QtDrawingSurface::TextWidth(std::string_view text, double height) const {
  const double across = viewport_.Across(1);
  if (!painter_.isActive() || !(across > 0)) return 0;
  return TextWidthIn(painter_.font(), text, viewport_.Down(height)) / across;
}

double QtDrawingSurface::TextWidthIn(const QFont& font, std::string_view text, double pixels) {
  return QFontMetricsF(FontOf(font, pixels)).horizontalAdvance(Drawable(text));
}

QFont QtDrawingSurface::FontOf(QFont font, double pixels) {
  constexpr double kLargest = 1e4;
  font.setPixelSize(AtLeastOne(std::min(pixels, kLargest)));
  // Ligatures would be found as single characters by whoever searches a PDF for words.
  font.setStyleStrategy(QFont::PreferNoShaping);
  return font;
}

bool QtDrawingSurface::OutOfSight(Point centre, double half_width, double half_height) const {
  const PixelRectangle& area = viewport_.Area();
  const double pen = pen_.width * pen_scale_ + 1;
  const auto [x, y] = PlaceOf(centre);
  return x < area.left - half_width - pen || x > area.left + area.width + half_width + pen ||
         y < area.top - half_height - pen || y > area.top + area.height + half_height + pen;
}

QPointF QtDrawingSurface::PlaceOf(Point point) const {
  const auto bounded = [](double position) {
    constexpr double kFarthest = Viewport::kFarthest;
    return std::isnan(position) ? -kFarthest : std::clamp(position, -kFarthest, kFarthest);
  };
  return {bounded(viewport_.DeviceX(point.x)), bounded(viewport_.DeviceY(point.y))};
}

}  // namespace quenlor::platform::qt
