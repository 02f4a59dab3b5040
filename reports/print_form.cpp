// SPDX-License-Identifier: MIT
#include "reports/print_form.h"

#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

#include "platform/qt/page_painter.h"
#include "platform/qt/window_frame.h"

namespace quenlor::reports {

using platform::kTwipsPerPixel;

PrintForm::PrintForm(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setObjectName(QStringLiteral("Form3"));
  setWindowTitle(QStringLiteral("Print"));
  setAccessibleName(tr("The page as it will be printed"));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void PrintForm::ShowPage(const platform::PageSize& page) {
  size_ = page;
  page_ = PageRecord();
  picture_ = QPixmap();
  const QSize room = platform::qt::RoomFor(*this);
  const double wanted_width = std::max(1.0, page.width / kTwipsPerPixel);
  const double wanted_height = std::max(1.0, page.height / kTwipsPerPixel);
  const double fit = std::min({1.0, room.width() / wanted_width, room.height() / wanted_height});
  setFixedSize(std::max(1, static_cast<int>(wanted_width * fit)),
               std::max(1, static_cast<int>(wanted_height * fit)));
  move(screen()->availableGeometry().topLeft());
  show();
}

void PrintForm::Draw(const std::function<void(platform::DrawingSurface&)>& draw) {
  page_ = PageRecord(size_.width, size_.height, platform::qt::MeasureText);
  draw(page_);
  picture_ = QPixmap();
  update();
}

void PrintForm::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull()) {
    picture_ = QPixmap(size() * devicePixelRatioF());
    picture_.fill(Qt::white);
    QPainter painter(&picture_);
    platform::qt::PaintPage(painter, picture_.size(), page_.Whole(),
                            [this](platform::DrawingSurface& surface) { page_.Replay(surface); });
    painter.end();
    picture_.setDevicePixelRatio(devicePixelRatioF());
  }
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.drawPixmap(0, 0, picture_);
}

// The question beside it decides what becomes of the page.
void PrintForm::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace quenlor::reports
