// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the person has asked the desktop for: more contrast, less motion, a dark ground.
#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace zorel {

/// Reads the desktop portal (org.freedesktop.portal.Settings), which GNOME, KDE and others answer, and the
/// settings file of GTK where there is no portal; follows every change. ZOREL_CONTRAST (more, normal),
/// ZOREL_MOTION (reduced, normal) decide before both.
class DesktopSettings : public QObject {
    Q_OBJECT

public:
    /// Reads the environment and GTK's settings file.
    DesktopSettings();
    /// Asks the portal, without waiting for its answer.
    void ask();

    [[nodiscard]] bool highContrast() const;
    [[nodiscard]] bool reducedMotion() const;
    /// Whether a dark ground is preferred; nothing where the desktop does not say.
    [[nodiscard]] std::optional<bool> dark() const { return dark_; }

signals:
    void changed();

public slots:
    /// A setting as the portal names it; one that is not known here is left alone.
    void take(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void readGtkFile();
    [[nodiscard]] bool keep(const QString& space, const QString& key, const QVariant& value);

    std::optional<bool> forcedContrast_;
    std::optional<bool> forcedStillness_;
    bool contrast_ = false;      ///< org.freedesktop.appearance
    bool gnomeContrast_ = false; ///< org.gnome.desktop.a11y.interface
    bool contrastTheme_ = false; ///< a theme of GTK that is made for contrast
    bool still_ = false;         ///< animations are switched off
    bool stillOfKde_ = false;    ///< or last no time
    bool stillOfPortal_ = false; ///< or are to be few
    std::optional<bool> dark_;
};

} // namespace zorel
