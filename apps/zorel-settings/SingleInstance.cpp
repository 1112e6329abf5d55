// SPDX-License-Identifier: Apache-2.0
#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

#include <unistd.h>

namespace zorel {

namespace {

constexpr int kPatience = 500; ///< [ms]

QString socketName(const QString& dataDirectory) {
    const QByteArray folder = QDir(dataDirectory).absolutePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("zorel-settings-%1-%2").arg(getuid()).arg(QString::fromLatin1(hash));
}

} // namespace

SingleInstance::SingleInstance(const QString& dataDirectory) : name_(socketName(dataDirectory)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* visitor = server_.nextPendingConnection()) {
            visitor->deleteLater();
            emit raiseRequested();
        }
    });
}

bool SingleInstance::askOther() const {
    QLocalSocket socket;
    socket.connectToServer(name_);
    return socket.waitForConnected(kPatience);
}

void SingleInstance::listen() {
    if (!server_.listen(name_)) {
        // Left behind by a window that was killed: nobody answers there.
        QLocalServer::removeServer(name_);
        server_.listen(name_);
    }
}

} // namespace zorel
