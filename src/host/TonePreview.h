// SPDX-License-Identifier: Apache-2.0
/// @file
/// Plays a ringtone for some seconds, so that a person hears what is chosen.
#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace zorel {

/// Runs zorel-ring-play, the program by which alarms sound, and ends it when asked to.
class TonePreview : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool playing READ playing NOTIFY changed)
    Q_PROPERTY(bool failed READ failed NOTIFY changed)

public:
    /// @param program that plays; empty: there is none.
    explicit TonePreview(QString program);
    ~TonePreview() override;
    /// The zorel-ring-play that belongs to this program; empty when there is none.
    [[nodiscard]] static QString besideProgram();

    [[nodiscard]] bool available() const { return !program_.isEmpty(); }
    [[nodiscard]] bool playing() const { return process_.state() != QProcess::NotRunning; }
    /// Whether the last tone could not be played.
    [[nodiscard]] bool failed() const { return failed_; }
    /// Plays a file, instead of one that still sounds.
    void play(const QString& file);
    /// Silence; the sound ends softly.
    void stop();

signals:
    void changed();

private:
    void end();

    QString program_;
    QProcess process_;
    bool stopping_ = false;
    bool failed_ = false;
};

} // namespace zorel
