// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tells a person that an alarm rings: a sound and a notification.
#pragma once

#include "ring/Child.h"
#include "ring/Notifications.h"
#include "ring/Plan.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorel::ring {

/// Sounds one ring at a time; the next one takes the sound over. Each way works without the other: without a
/// sound server there is a notification, without a notification server a sound.
class Ringer {
public:
    using PutOff = std::function<void(const Ring&)>;

    /// @param bus may be null: then there are no notifications. @param player program that plays a ringtone.
    /// @param putOff is called when a person wants a ring again later.
    Ringer(sd_event* event, sd_bus* bus, std::string player, PutOff putOff);

    /// Labels of the buttons, in the user's language.
    void setLabels(std::string stop, std::string snooze);

    /// Sound and notification. No sound where the person wants to be left alone.
    void ring(const Ring& ring);
    /// A notification that says when it was.
    void tellMissed(const Ring& ring);
    /// Silence. False when nothing sounded.
    bool stop();
    /// Silence, and once more later. False when nothing rings and none rang before.
    bool snooze();

    /// How the last ring went, for people; empty before the first.
    [[nodiscard]] const std::string& lastRing() const { return last_; }

private:
    void sound(const Ring& ring);
    void showRing(const Ring& ring);
    void answer(const Ring& ring, const NotificationReply& reply);
    void soundEnded(const Child::Result& result);
    void closeNotification();
    void say(const std::string& text);

    sd_event* event_;
    Notifications notifications_;
    std::string player_;
    PutOff putOff_;
    std::string stopLabel_ = "Stop";
    std::string snoozeLabel_ = "Snooze 5 min";
    std::optional<Ring> current_; ///< the newest one
    std::optional<std::uint32_t> shown_;
    std::unique_ptr<Child> playing_;
    std::string last_;
};

} // namespace zorel::ring
