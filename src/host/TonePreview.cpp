// SPDX-License-Identifier: Apache-2.0
#include "host/TonePreview.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace zorel {

namespace {

constexpr const char* kSeconds = "6";
constexpr int kPatience = 1000; ///< for a sound that is asked to end [ms]

} // namespace

TonePreview::TonePreview(QString program) : program_(std::move(program)) {
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(QProcess::nullDevice());
    connect(&process_, &QProcess::finished, this, &TonePreview::end);
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            failed_ = true;
            emit changed();
        }
    });
}

TonePreview::~TonePreview() {
    process_.disconnect(this);
    if (playing()) {
        process_.terminate();
        process_.waitForFinished(kPatience);
    }
}

QString TonePreview::besideProgram() {
    const QString here = QCoreApplication::applicationDirPath();
    for (const char* place : {"/zorel-ring-play", "/../libexec/zorel/zorel-ring-play"}) {
        if (const QString file = here + QLatin1String(place); QFileInfo(file).isExecutable()) {
            return file;
        }
    }
    return {};
}

void TonePreview::play(const QString& file) {
    if (!available()) {
        return;
    }
    if (playing()) {
        const QSignalBlocker quiet(this);
        stopping_ = true;
        process_.terminate();
        process_.waitForFinished(kPatience);
    }
    failed_ = false;
    stopping_ = false;
    process_.start(program_, {QStringLiteral("--seconds"), QLatin1String(kSeconds), file});
    emit changed();
}

void TonePreview::stop() {
    if (playing()) {
        stopping_ = true;
        process_.terminate();
    }
}

void TonePreview::end() {
    const bool played = process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
    failed_ = !played && !stopping_;
    emit changed();
}

} // namespace zorel
