// SPDX-License-Identifier: Apache-2.0
/// @file
/// Whether the program that rings is running in this session, and starting it.
#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace zorel {

/// Asks zorel-ring, which stands beside this program or in the search path, without waiting for its answer.
class RingCheck : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool missing READ missing NOTIFY changed)

public:
    /// @param program of the ring service. @param dataDirectory whose alarms it has to ring
    RingCheck(QString program, QString dataDirectory);
    /// The zorel-ring that belongs to this program; empty when there is none.
    [[nodiscard]] static QString besideProgram();

    /// Whether it is known that it does not run for this data. False until it has been asked.
    [[nodiscard]] bool missing() const { return missing_; }
    void ask();
    Q_INVOKABLE void start();

signals:
    void changed();

private:
    void run(const QStringList& words);
    void take();

    QString program_;
    QString dataDirectory_;
    QProcess process_;
    bool asking_ = false;
    bool missing_ = false;
};

} // namespace zorel
