// SPDX-License-Identifier: Apache-2.0
/// @file
/// Waits for the alarms and rings.
#pragma once

#include "ring/Child.h"
#include "ring/RingClock.h"
#include "ring/Ringer.h"
#include "ring/RungLog.h"
#include "ring/Schedule.h"
#include "ring/Watch.h"

#include <memory>
#include <string>
#include <vector>

namespace zorel::ring {

struct ServiceFiles {
    std::vector<std::string> planner; ///< program that prints the plan, and its arguments
    std::string player;               ///< program that plays a ringtone
    std::string data;                 ///< folder of the user database
    std::string calendar;             ///< folder of the events
    std::string gnome;                ///< folder of the calendars that GNOME knows of; empty: not watched
};

/// The loop of the ring service. It reads no alarm itself: a program that lives for some milliseconds brings
/// the calendar in step with the alarms and prints what shall ring, and one that lives while it rings plays.
///
/// The alarms are looked at again when their files or the time zone changed, when the clock was set or the
/// machine has slept, when an event is over, and when the plan asks for it (midnight). A plan that cannot be
/// had leaves the one before in force, and is asked for again after a while.
class RingService {
public:
    /// @param bus may be null: then there are no notifications, and nobody can ask this service anything.
    /// @throws std::system_error when the system gives no timer or watch.
    RingService(sd_event* event, sd_bus* bus, RingClock& clock, ServiceFiles files);

    void stop() { ringer_.stop(); }
    bool snooze() { return ringer_.snooze(); }
    /// Rings an alarm now, as it would. False when there is no such prayer.
    void test(const std::string& prayer);
    /// Lines of a word, a tab and a text.
    [[nodiscard]] std::string status() const;

private:
    static int ticked(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int changed(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int settled(sd_event_source* source, std::uint64_t now, void* self);
    void listen();
    void lookSoon();
    void look();
    void takePlan(const Child::Result& result);
    void keepPlan(const std::string& why);
    void act();

    sd_event* event_;
    RingClock& clock_;
    ServiceFiles files_;
    Watch watch_;
    RungLog log_;
    Schedule schedule_;
    Ringer ringer_;
    std::unique_ptr<Child> planning_;
    std::unique_ptr<Child> testing_;
    bool lookAgain_ = false; ///< something changed while the planner ran
    std::chrono::seconds patience_;
    std::string trouble_;
    EventSource ticks_;
    EventSource changes_;
    EventSource settling_;
};

} // namespace zorel::ring
