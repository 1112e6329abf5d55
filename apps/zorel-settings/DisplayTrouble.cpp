// SPDX-License-Identifier: Apache-2.0
#include "DisplayTrouble.h"

#include "words/Tr.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <cstdlib>
#include <iostream>

namespace zorel {

namespace {

QStringList& heldMessages() {
    static QStringList messages;
    return messages;
}

std::string environment(const char* name) {
    return qEnvironmentVariable(name).toStdString();
}

/// A plug-in that is not installed is no trouble as long as Qt finds another one.
void hold(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        std::cerr << "zorel-settings: "
                  << displayTrouble(environment("QT_QPA_PLATFORM"), environment("WAYLAND_DISPLAY"),
                                    environment("DISPLAY"))
                  << std::endl;
        std::_Exit(kNoDisplay);
    }
    if (context.category == nullptr || QLatin1String(context.category) != QLatin1String("qt.qpa.plugin")) {
        heldMessages() << message;
    }
}

} // namespace

std::string displayTrouble(const std::string& platform, const std::string& waylandDisplay,
                           const std::string& display) {
    const std::string remedy =
        ' ' + tr("Without a display: zorel --help, or zorel-settings --screenshot FILE.");
    const bool wayland = platform.empty() ? !waylandDisplay.empty() : platform.starts_with("wayland");
    if (wayland) {
        return tr("No window can be opened in this Wayland session. Install Qt's Wayland plugin (Debian: "
                  "qt6-wayland).") +
               remedy;
    }
    if (!platform.empty() && !platform.starts_with("xcb")) {
        return tr("No window can be opened: QT_QPA_PLATFORM is {}. Unset it.", platform) + remedy;
    }
    if (display.empty()) {
        return tr("No window can be opened: there is no display here (DISPLAY is not set). "
                  "Start it in a desktop session.") +
               remedy;
    }
    return tr("No window can be opened: the display {} does not answer, or refuses you. Start it in a "
              "desktop session of "
              "your own.",
              display) +
           remedy;
}

DisplayGuard::DisplayGuard() {
    qInstallMessageHandler(hold);
}

DisplayGuard::~DisplayGuard() {
    qInstallMessageHandler(nullptr);
    for (const QString& message : heldMessages()) {
        qWarning("%s", qUtf8Printable(message));
    }
    heldMessages().clear();
}

} // namespace zorel
