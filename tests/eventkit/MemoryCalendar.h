// SPDX-License-Identifier: Apache-2.0
/// @file
/// A calendar for tests: events in memory, with switches that make it refuse.
#pragma once

#include "platform/eventkit/Calendar.h"

#include <map>
#include <string>
#include <vector>

namespace zorel {

class MemoryCalendar final : public Calendar {
public:
    std::map<std::string, EKEvent> events;
    std::vector<EKEvent> handedOver; ///< every event that came to saveEvent, as it came
    bool refusesSaving = false;
    bool refusesRemoving = false;
    bool refusesPublishing = false;
    bool published = true; ///< whether nothing has changed since
    int publications = 0;

    [[nodiscard]] EKCalendar description() const override { return {"memory", "Memory"}; }

    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(const std::string& identifier) override {
        const auto found = events.find(identifier);
        return found == events.end() ? std::nullopt : std::optional(found->second);
    }

    bool saveEvent(const EKEvent& event, std::string& error) override {
        handedOver.push_back(event);
        if (refusesSaving || event.eventIdentifier.empty()) {
            error = "refused";
            return false;
        }
        EKEvent kept = withEndAfterStart(event);
        kept.calendar = description();
        events[event.eventIdentifier] = kept;
        published = false;
        return true;
    }

    bool removeEvent(const std::string& identifier, std::string& error) override {
        if (refusesRemoving || events.erase(identifier) == 0) {
            error = "refused";
            return false;
        }
        published = false;
        return true;
    }

    bool publish(std::string& error) override {
        if (refusesPublishing) {
            error = "nobody listens";
            return false;
        }
        publications += published ? 0 : 1;
        published = true;
        return true;
    }
    [[nodiscard]] bool isPublished() override { return published; }

    [[nodiscard]] std::vector<std::string> identifiersWithPrefix(const std::string& prefix) override {
        std::vector<std::string> identifiers;
        for (const auto& [identifier, event] : events) {
            if (identifier.starts_with(prefix)) {
                identifiers.push_back(identifier);
            }
        }
        return identifiers;
    }
};

} // namespace zorel
