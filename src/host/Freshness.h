// SPDX-License-Identifier: Apache-2.0
/// @file
/// Says when what a window shows has become old.
#pragma once

#include "platform/foundation/Clock.h"

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>

namespace zorel {

/// Calls a function when a new day has begun, and when another program has written a file. The day is looked
/// at every half minute; the file when the window comes to the front, so that nothing moves under the user's
/// hand.
class Freshness : public QObject {
public:
    /// @param file path, may be missing
    Freshness(const QString& file, std::function<void()> renew);

    /// Compares the day, and the file as well when asked to.
    void look(bool atFile);

private:
    [[nodiscard]] QDateTime written() const;

    QString file_;
    std::function<void()> renew_;
    LocalDateTime day_;
    QDateTime written_;
    QTimer timer_;
};

} // namespace zorel
