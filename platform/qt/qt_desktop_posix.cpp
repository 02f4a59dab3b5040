// SPDX-License-Identifier: MIT
#include "platform/qt/qt_desktop.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QGuiApplication>
#include <QString>
#include <QVariantMap>

namespace quenlor::platform::qt {

// logind keeps the machine awake as long as this descriptor is open.
struct QtDesktop::Hold {
  QDBusUnixFileDescriptor descriptor;
};

void QtDesktop::KeepAwake(bool awake) {
  if (!awake) return hold_.reset();
  if (hold_) return;
  hold_ = std::make_shared<Hold>();
  QDBusMessage inhibit = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
      QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
  inhibit << QStringLiteral("sleep:idle") << QCoreApplication::applicationName()
          << QStringLiteral("A measurement runs") << QStringLiteral("block");
  auto* answer = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(inhibit));
  // A measurement that is over by then wants none any longer.
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, held = std::weak_ptr(hold_)] {
    const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *answer;
    if (const auto hold = held.lock(); hold && reply.isValid()) hold->descriptor = reply.value();
    answer->deleteLater();
  });
}

void QtDesktop::Notify(const std::string& title, const std::string& text) {
  QDBusMessage notify = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
  constexpr int kStays = 0;  // until it is dismissed
  notify << QCoreApplication::applicationName() << uint{0} << QGuiApplication::desktopFileName()
         << QString::fromStdString(title) << QString::fromStdString(text) << QStringList()
         << QVariantMap{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}} << kStays;
  QDBusConnection::sessionBus().asyncCall(notify);
}

QtDesktop::QtDesktop() = default;
QtDesktop::~QtDesktop() = default;

}  // namespace quenlor::platform::qt
