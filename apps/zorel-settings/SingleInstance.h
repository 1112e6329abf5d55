// SPDX-License-Identifier: Apache-2.0
/// @file
/// One window for one data folder: a second start asks the first window to come forward.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

namespace zorel {

/// Listens on a local socket whose name comes from the data folder and the user.
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
    QString name_;
    QLocalServer server_;
};

} // namespace zorel
