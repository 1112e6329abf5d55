// SPDX-License-Identifier: Apache-2.0
/// @file
/// Says when what a window shows has become old.
#pragma once

#include "platform/foundation/Clock.h"

#include <QDateTime>
#include <QObject>

#include <chrono>
#include <functional>
#include <string>

namespace zorel {

/// Calls a function when what depends on the moment has changed (a new day, an alarm that has rung), when the
/// clock of the machine was set or the machine has slept, and when another program has written a file.
/// Whoever watches the clock asks for the moment; the file is looked at when the window comes to the front,
/// so that nothing moves under the user's hand.
class Freshness : public QObject {
public:
    /// @param file path, may be missing. @param moment a text that changes when what is shown has become old.
    Freshness(const QString& file, std::function<std::string()> moment, std::function<void()> renew);

    /// Compares the moment, and the file as well when asked to.
    void look(bool atFile);

private:
    [[nodiscard]] QDateTime written() const;
    /// Whether the clock has gone on otherwise than time since the last look.
    [[nodiscard]] bool clockWasSet();

    QString file_;
    std::function<std::string()> moment_;
    std::function<void()> renew_;
    std::string shown_;
    Instant clock_ = now();
    std::chrono::steady_clock::time_point time_ = std::chrono::steady_clock::now();
    QDateTime written_;
};

} // namespace zorel
