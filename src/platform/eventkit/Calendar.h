// SPDX-License-Identifier: Apache-2.0
/// @file
/// What an event store needs of the calendar behind it.
#pragma once

#include "platform/eventkit/EKEvent.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel {

/// A calendar that keeps events. tests/eventkit/calendar_contract_test.cpp says what every one of them must
/// do.
///
/// Identifiers are chosen by the store (an event keeps its own for life). After a failed call the calendar is
/// as it was before. A calendar that cannot be read is not an empty one: a question that it cannot answer
/// throws a std::exception that says why.
class Calendar {
public:
    Calendar() = default;
    Calendar(const Calendar&) = delete;
    Calendar& operator=(const Calendar&) = delete;
    virtual ~Calendar() = default;

    [[nodiscard]] virtual EKCalendar description() const = 0;
    /// The event, or nothing when the calendar does not hold it.
    [[nodiscard]] virtual std::optional<EKEvent> eventWithIdentifier(const std::string& identifier) = 0;
    /// Adds the event or overwrites the one with its identifier. `error`: out, why it failed.
    virtual bool saveEvent(const EKEvent& event, std::string& error) = 0;
    /// False when there is no such event or it could not be removed. `error`: out, why it failed.
    virtual bool removeEvent(const std::string& identifier, std::string& error) = 0;
    /// Identifiers of the events that begin with the text.
    [[nodiscard]] virtual std::vector<std::string> identifiersWithPrefix(const std::string& prefix) = 0;

    /// Hands what the events now are to those who read them in another way, once after all changes of an
    /// action: each of them then sees the state before it or after it, nothing in between. Does nothing where
    /// they know. `error`: out, why it failed.
    virtual bool publish(std::string& /*error*/) { return true; }
    /// Whether publish would do nothing.
    [[nodiscard]] virtual bool isPublished() { return true; }
};

} // namespace zorel
