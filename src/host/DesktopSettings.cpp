// SPDX-License-Identifier: Apache-2.0
#include "host/DesktopSettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>
#include <QStandardPaths>

namespace zorel {

namespace {

using Spaces = QMap<QString, QVariantMap>;

constexpr const char* kPortal = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
constexpr uint kPreferred = 1; ///< of org.freedesktop.appearance: dark, more contrast, less motion

/// Whether a variable of the environment asks for something; nothing when it is not set.
std::optional<bool> asked(const char* variable, const char* wanted) {
    return qEnvironmentVariableIsSet(variable) ? std::optional(qgetenv(variable) == wanted) : std::nullopt;
}

bool isContrastTheme(const QString& name) {
    return name.startsWith(QStringLiteral("HighContrast"));
}

} // namespace

DesktopSettings::DesktopSettings()
    : forcedContrast_(asked("ZOREL_CONTRAST", "more")), forcedStillness_(asked("ZOREL_MOTION", "reduced")) {
    readGtkFile();
}

void DesktopSettings::readGtkFile() {
    const QString file =
        QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QStringLiteral("gtk-3.0/settings.ini"));
    if (!file.isEmpty()) {
        const QSettings settings(file, QSettings::IniFormat);
        still_ = !settings.value(QStringLiteral("Settings/gtk-enable-animations"), true).toBool();
        contrastTheme_ =
            isContrastTheme(settings.value(QStringLiteral("Settings/gtk-theme-name")).toString());
    }
}

void DesktopSettings::ask() {
    qDBusRegisterMetaType<Spaces>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(kPortal, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                SLOT(take(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(kPortal, kPath, kInterface, QStringLiteral("ReadAll"));
    question << QStringList{
        QStringLiteral("org.freedesktop.appearance"), QStringLiteral("org.gnome.desktop.interface"),
        QStringLiteral("org.gnome.desktop.a11y.interface"), QStringLiteral("org.kde.kdeglobals.KDE")};
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<Spaces> reply = *answer;
        answer->deleteLater();
        const Spaces spaces = reply.isValid() ? reply.value() : Spaces();
        bool any = false;
        for (auto space = spaces.begin(); space != spaces.end(); ++space) {
            for (auto value = space->begin(); value != space->end(); ++value) {
                any = keep(space.key(), value.key(), value.value()) || any;
            }
        }
        if (any) {
            emit changed();
        }
    });
}

void DesktopSettings::take(const QString& space, const QString& key, const QDBusVariant& value) {
    if (keep(space, key, value.variant())) {
        emit changed();
    }
}

bool DesktopSettings::keep(const QString& space, const QString& key, const QVariant& value) {
    if (space == QLatin1String("org.freedesktop.appearance")) {
        if (key == QLatin1String("contrast")) {
            contrast_ = value.toUInt() == kPreferred;
        } else if (key == QLatin1String("reduced-motion")) {
            stillOfPortal_ = value.toUInt() == kPreferred;
        } else if (key == QLatin1String("color-scheme")) {
            const uint scheme = value.toUInt();
            dark_ = scheme == 0 ? std::nullopt : std::optional(scheme == kPreferred);
        } else {
            return false;
        }
        return true;
    }
    if (key == QLatin1String("high-contrast")) {
        gnomeContrast_ = value.toBool();
    } else if (key == QLatin1String("gtk-theme")) {
        contrastTheme_ = isContrastTheme(value.toString());
    } else if (key == QLatin1String("enable-animations")) {
        still_ = !value.toBool();
    } else if (key == QLatin1String("AnimationDurationFactor")) {
        stillOfKde_ = value.toString().toDouble() == 0.0;
    } else {
        return false;
    }
    return true;
}

bool DesktopSettings::highContrast() const {
    return forcedContrast_.value_or(contrast_ || gnomeContrast_ || contrastTheme_);
}

bool DesktopSettings::reducedMotion() const {
    return forcedStillness_.value_or(still_ || stillOfKde_ || stillOfPortal_);
}

} // namespace zorel
