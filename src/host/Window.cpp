// SPDX-License-Identifier: Apache-2.0
#include "host/Window.h"

#include "host/Announcer.h"
#include "host/Host.h"

#include <QCoreApplication>
#include <QQuickItem>

namespace zorel {

Window::Window(Host& host, QSize size) {
    Host::registerTypes();
    setResizeMode(QQuickView::SizeRootObjectToView);
    setMinimumSize(QSize(320, 400));
    resize(size);
    setInitialProperties({{QStringLiteral("host"), QVariant::fromValue(&host)}});
    connect(&host, &Host::announced, this, [this](const QString& text) { announceTo(*this, text); });
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Zorel/Host/qml/Main.qml")));
}

/// Left to itself, Qt 6.4 deletes rows that have just been replaced later than the QML engine that they use.
Window::~Window() {
    delete rootObject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace zorel
