// SPDX-License-Identifier: MIT
#include "app/window/status_line.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "app/window/frame.h"
#include "platform/qt/plain_tip.h"
#include "platform/qt/to_qstring.h"

namespace quenlor::app {
namespace {

using platform::qt::ToQString;

constexpr int kTickMilliseconds = 1000;
constexpr double kMessageShare = 0.4;  // of the bar, that fields leave to the message

// A field, apart from its neighbour by a thin line.
class FieldLabel : public QLabel {
 public:
  explicit FieldLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(kSpacing, 0, kSpacing, 0);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 2, 0, height() - 3);
  }
};

}  // namespace

StatusLine::StatusLine(Status& status, QStatusBar* bar)
    : QObject(bar),
      status_(status),
      bar_(bar),
      message_(new QLabel(bar)),
      offer_(new QLabel(bar)),
      room_(new QWidget(bar)),
      sign_(new QLabel(QStringLiteral("\u25CF"), room_)) {
  message_->setObjectName(QStringLiteral("Status"));
  message_->setTextFormat(Qt::PlainText);
  message_->setTextInteractionFlags(Qt::TextSelectableByMouse);  // a command in it is there to be copied
  message_->setFocusPolicy(Qt::NoFocus);
  message_->setContentsMargins(kEdge - 2, 0, 0, 0);
  // As high without a text as with one, so that the window is not laid out anew when the first one comes.
  message_->setMinimumSize(1, message_->fontMetrics().height() + 4);
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  auto* layout = new QHBoxLayout(room_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  struct Place {
    Field field;
    const char* name;
    QString tip;
  };
  // From left to right.
  const Place places[] = {
      {kErrors, "StatusErrors",
       tr("Errors of the serial line in this measurement; the Error window lists them")},
      {kState, "StatusState", tr("What the measurement does, or how the last one ended")},
      {kPort, "StatusPort", tr("Port, device and line settings, in use or for the next Start")},
      {kRun, "StatusRun", tr("The run that is measured, its readings and its time")},
      {kAges, "StatusAges", tr("How long ago the last reading came, and when the next request goes out")},
      {kDocument, "StatusDocument", tr("The document, and what a save would keep of it")},
  };
  for (const Place& place : places) {
    auto* label = new FieldLabel(room_);
    label->setObjectName(QString::fromLatin1(place.name));
    label->setAccessibleDescription(place.tip);
    label->setToolTip(place.tip);
    fields_[place.field] = label;
    if (place.field == kState) layout->addWidget(sign_);
    layout->addWidget(label);
  }
  sign_->setContentsMargins(kSpacing, 0, 0, 0);
  offer_->setObjectName(QStringLiteral("StatusOffer"));
  offer_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  offer_->setAccessibleName(tr("What can be done about the message"));
  offer_->hide();
  // What was chosen may say something else, which ends the offer.
  connect(offer_, &QLabel::linkActivated, this, [this](const QString& chosen) {
    const auto deed = chosen == QLatin1String("take") ? take_ : dismiss_;
    status_.Say({});
    deed();
  });
  bar_->addWidget(message_, 1);
  bar_->addWidget(offer_);
  bar_->addPermanentWidget(room_);
  bar_->installEventFilter(this);

  soon_.setSingleShot(true);
  connect(&soon_, &QTimer::timeout, this, &StatusLine::Show);
  tick_.setInterval(kTickMilliseconds);
  connect(&tick_, &QTimer::timeout, this, &StatusLine::Show);
  status_.OnChange([this] { Changed(); });
  Show();
}

// What was said is shown at once; it may be the last thing before a box or a long work.
void StatusLine::Changed() {
  if (message_->text() != ToQString(status_.Said())) return Show();
  if (!soon_.isActive()) soon_.start(0);
}

void StatusLine::Offer(const std::string& text, const QString& deed, std::function<void()> take,
                       std::function<void()> dismiss) {
  take_ = std::move(take);
  dismiss_ = std::move(dismiss);
  offered_ = text;
  offer_->setText(
      QStringLiteral("<a href=\"take\">%1</a>&nbsp; <a href=\"dismiss\">%2</a>").arg(deed, tr("Dismiss")));
  offer_->setAccessibleName(ToQString(text));
  status_.Say(text);
}

void StatusLine::Set(QLabel* label, const QString& text) {
  if (label->text() != text) label->setText(text);
}

void StatusLine::Show() {
  const StatusFields now = status_.Fields();
  if (!now.running) {
    tick_.stop();
  } else if (!tick_.isActive()) {
    tick_.start();
  }
  Set(message_, ToQString(now.message));
  message_->setToolTip(platform::qt::PlainTip(message_->text()));
  offer_->setVisible(!offered_.empty() && offered_ == status_.Said());
  const std::array<const std::string*, kFields> texts = {&now.state, &now.document, &now.errors,
                                                         &now.port,  &now.run,      &now.ages};
  for (std::size_t i = 0; i < texts.size(); ++i) Set(fields_[i], ToQString(*texts[i]));
  const QColor colors[] = {QColor(0x80, 0x80, 0x80), QColor(0x2E, 0xA0, 0x43), QColor(0xD9, 0x7A, 0x00)};
  QPalette palette = sign_->palette();
  palette.setColor(QPalette::WindowText, colors[static_cast<int>(now.tone)]);
  sign_->setPalette(palette);
  FitFields();
}

void StatusLine::FitFields() {
  int room = bar_->width() - sign_->sizeHint().width() - 3 * kEdge;
  if (!message_->text().isEmpty()) {
    const int wanted = message_->fontMetrics().horizontalAdvance(message_->text()) + kSpacing;
    room -= std::min(wanted, static_cast<int>(bar_->width() * kMessageShare));
  }
  bool fits = true;
  for (QLabel* field : fields_) {
    const bool empty = field->text().isEmpty();
    if (!empty) room -= field->sizeHint().width();
    fits = fits && (room >= 0 || field == fields_[kState]);
    field->setVisible(!empty && fits);
  }
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event) {
  if (watched == bar_ && event->type() == QEvent::Resize) FitFields();
  return QObject::eventFilter(watched, event);
}

}  // namespace quenlor::app
