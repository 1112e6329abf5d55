// SPDX-License-Identifier: Apache-2.0
#include "host/Window.h"

#include "host/Host.h"

#include <QCoreApplication>
#include <QtQml/qqmlextensionplugin.h>

namespace zorel {

Window::Window(Host& host, QSize size) {
    Host::registerTypes();
    setResizeMode(QQuickView::SizeRootObjectToView);
    setMinimumSize(QSize(320, 400));
    resize(size);
    setInitialProperties({{QStringLiteral("host"), QVariant::fromValue(&host)}});
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Zorel/Host/qml/Main.qml")));
}

} // namespace zorel
