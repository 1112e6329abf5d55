// SPDX-License-Identifier: Apache-2.0
/// @file
/// One window for one data folder: a second start asks the first window to come forward.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

namespace zorel {

/// Listens on a local socket named after the data folder in the user's runtime folder ($XDG_RUNTIME_DIR),
/// where nobody else can put one. Whoever answers or visits has to be a process of this user. Without such a
/// folder, every start opens a window of its own; the data stay whole, since programs lock them for each
/// action.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    explicit SingleInstance(const QString& dataDirectory);

    /// Whether a window with this data folder is open already; it has been asked to come forward then.
    [[nodiscard]] bool askOther() const;
    /// Becomes the window that others ask.
    void listen();

signals:
    void raiseRequested();

private:
    QString path_; ///< of the socket; empty without a runtime folder
    QLocalServer server_;
};

} // namespace zorel
