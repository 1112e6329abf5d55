// SPDX-License-Identifier: Apache-2.0
#include "host/RingCheck.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace zorel {

RingCheck::RingCheck(QString program, QString dataDirectory)
    : program_(std::move(program)), dataDirectory_(std::move(dataDirectory)) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    connect(&process_, &QProcess::finished, this, &RingCheck::take);
}

QString RingCheck::besideProgram() {
    const QString name = QStringLiteral("zorel-ring");
    const QString beside = QCoreApplication::applicationDirPath() + '/' + name;
    return QFileInfo(beside).isExecutable() ? beside : QStandardPaths::findExecutable(name);
}

void RingCheck::run(const QStringList& words) {
    if (!program_.isEmpty() && process_.state() == QProcess::NotRunning) {
        process_.start(program_, words);
    }
}

void RingCheck::ask() {
    asking_ = true;
    run({QStringLiteral("--status")});
}

void RingCheck::start() {
    asking_ = false;
    run({QStringLiteral("--start")});
}

/// The service tells whose alarms it rings as "data", a tab and the folder.
void RingCheck::take() {
    if (!asking_) {
        ask();
        return;
    }
    const bool answered = process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
    const QStringList lines = QString::fromUtf8(process_.readAllStandardOutput()).split('\n');
    const bool missing = !answered || !lines.contains(QStringLiteral("data\t") + dataDirectory_);
    if (missing != missing_) {
        missing_ = missing;
        emit changed();
    }
}

} // namespace zorel
