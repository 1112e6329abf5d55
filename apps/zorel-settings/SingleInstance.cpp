// SPDX-License-Identifier: Apache-2.0
#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorel {

namespace {

constexpr int kPatience = 500; ///< [ms]

/// Whether the folder is the user's own and closed to everybody else, as a runtime folder has to be.
bool isPrivate(const QByteArray& folder) {
    struct stat status {};
    return lstat(folder.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

QString socketPath(const QString& dataDirectory) {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.startsWith('/') || !isPrivate(runtime)) {
        return {};
    }
    const QByteArray folder = QDir(dataDirectory).absolutePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().left(16);
    return QFile::decodeName(runtime + "/zorel-settings-" + hash);
}

/// Whether the process at the other end runs for this user.
bool isOwnPeer(const QLocalSocket& socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) ==
               0 &&
           peer.uid == geteuid();
}

} // namespace

SingleInstance::SingleInstance(const QString& dataDirectory) : path_(socketPath(dataDirectory)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* visitor = server_.nextPendingConnection()) {
            visitor->deleteLater();
            if (isOwnPeer(*visitor)) {
                emit raiseRequested();
            }
        }
    });
}

bool SingleInstance::askOther() const {
    if (path_.isEmpty()) {
        return false;
    }
    QLocalSocket socket;
    socket.connectToServer(path_);
    return socket.waitForConnected(kPatience) && isOwnPeer(socket);
}

void SingleInstance::listen() {
    if (!path_.isEmpty() && !server_.listen(path_)) {
        // Left behind by a window that was killed: nobody answers there.
        QLocalServer::removeServer(path_);
        server_.listen(path_);
    }
}

} // namespace zorel
