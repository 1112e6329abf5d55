// SPDX-License-Identifier: Apache-2.0
/// @file
/// Says when what a window shows has become old.
#pragma once

#include "almanac/Time.h"

#include <QDateTime>
#include <QObject>

#include <functional>

namespace zorel {

/// Calls a function when a new day has begun where the times are told for, and when another program has
/// written a file. Whoever watches the clock asks for the day; the file is looked at when the window comes to
/// the front, so that nothing moves under the user's hand.
class Freshness : public QObject {
public:
    /// @param file path, may be missing. @param today the present date.
    Freshness(const QString& file, std::function<almanac::Date()> today, std::function<void()> renew);

    /// Compares the day, and the file as well when asked to.
    void look(bool atFile);

private:
    [[nodiscard]] QDateTime written() const;

    QString file_;
    std::function<almanac::Date()> today_;
    std::function<void()> renew_;
    almanac::Date day_;
    QDateTime written_;
};

} // namespace zorel
