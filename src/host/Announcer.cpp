// SPDX-License-Identifier: Apache-2.0
#include "host/Announcer.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QWindow>

namespace zorel {

namespace {

/// The name by which Qt keeps its connection to the bus of screen readers.
constexpr const char* kBus = "a11y";
constexpr const char* kPath = "/org/a11y/atspi/accessible/%1";
constexpr const char* kEvents = "org.a11y.atspi.Event.Object";
constexpr int kPolite = 1; ///< said after what is being said

} // namespace

void announceTo(QWindow& window, const QString& text) {
    if (!QAccessible::isActive() || text.isEmpty()) {
        return;
    }
    QDBusConnection bus{QString::fromLatin1(kBus)};
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&window);
    if (!bus.isConnected() || told == nullptr) {
        return;
    }
    QDBusMessage event = QDBusMessage::createSignal(
        QString::fromLatin1(kPath).arg(QAccessible::uniqueId(told)), kEvents, QStringLiteral("Announcement"));
    event.setArguments({QString(), kPolite, 0, QVariant::fromValue(QDBusVariant(text)), QVariantMap()});
    bus.send(event);
}

} // namespace zorel
