// SPDX-License-Identifier: Apache-2.0
/// @file
/// The door to the user's calendar.
#pragma once

#include "platform/eventkit/Calendar.h"
#include "platform/eventkit/EKEvent.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zorel {

/// How far a change of a repeated event reaches. The pane's events are never repeated.
enum class EKSpan { thisEvent };

/// Whose events are these? Names of letters and digits; they are part of the identifiers of events.
struct EventOwner {
    std::string name = "local";
    std::string formerName = {}; ///< earlier name of the same owner, whose events are its own too; "": none
};

/// Finds, saves and removes events in the calendar that is set for the whole process. A store is cheap: one
/// is made for every operation. No call throws.
class EKEventStore {
public:
    /// `owner`: tells the events of this program's user database from those of others (another machine that
    /// synchronises with the same server).
    explicit EKEventStore(EventOwner owner = {});

    /// The calendar of all stores from now on; nullptr: the folder "calendar" in the data directory.
    static void setCalendar(std::shared_ptr<Calendar> calendar);

    /// The event; nothing when the calendar does not hold it or cannot be asked. `error`: out, why it cannot
    /// be asked, untouched otherwise; may be nullptr.
    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(const std::string& identifier,
                                                             std::string* error = nullptr) const;
    /// The calendar behind this store; without a name when it cannot be asked.
    [[nodiscard]] EKCalendar defaultCalendarForNewEvents() const;
    /// Saves the event. A new event gets its `eventIdentifier` (in, out) when, and only when, it could be
    /// saved. `error`: out, why it failed; may be nullptr.
    bool saveEvent(EKEvent& event, EKSpan span, std::string* error) const;
    /// Removes the event; false when there is none or it could not be removed. `error` as for saveEvent.
    bool removeEvent(const EKEvent& event, EKSpan span, std::string* error) const;
    /// Removes the events of this store's owner whose identifiers are not among those to keep, and returns
    /// how many they were. A process that dies between saving an event and noting its identifier leaves such
    /// events behind.
    int removeEventsExcept(std::span<const std::string> identifiersToKeep) const;
    /// Identifiers of the events of this store's owner. `error` as for eventWithIdentifier.
    [[nodiscard]] std::vector<std::string> ownIdentifiers(std::string* error) const;
    /// Hands what the calendar now says to those who read it in another way (Calendar::publish). `error` as
    /// for saveEvent.
    bool publish(std::string* error) const;
    /// Whether they know. `error`: out, why not, untouched otherwise; may be nullptr.
    bool isPublished(std::string* error) const;

private:
    [[nodiscard]] std::string newIdentifier() const;

    EventOwner owner_;
    std::shared_ptr<Calendar> calendar_;
};

} // namespace zorel
