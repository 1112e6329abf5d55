// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/EKEventStore.h"

#include "platform/eventkit/FolderCalendar.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/RandomText.h"
#include "words/Tr.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

namespace zorel {
namespace {

std::shared_ptr<Calendar>& chosenCalendar() {
    static std::shared_ptr<Calendar> calendar;
    return calendar;
}

/// The folder calendar of the present data directory; made once for each directory, so that it sweeps once.
std::shared_ptr<Calendar> defaultCalendar() {
    static std::shared_ptr<FolderCalendar> calendar;
    const std::string folder = Locations::current().data + "/calendar";
    if (!calendar || calendar->folder() != folder) {
        calendar = std::make_shared<FolderCalendar>(folder);
    }
    return calendar;
}

std::string prefixOf(const std::string& owner) {
    return "zorel-" + owner + "-";
}

/// Runs a calendar's operation; an exception counts as a failure that says why.
template <typename Operation> bool guarded(Operation operation, std::string* error) {
    std::string reason;
    bool done = false;
    try {
        done = operation(reason);
    } catch (const std::exception& exception) {
        reason = exception.what();
    }
    if (error != nullptr && !done) {
        *error = reason;
    }
    return done;
}

} // namespace

EKEventStore::EKEventStore(EventOwner owner)
    : owner_(std::move(owner)), calendar_(chosenCalendar() ? chosenCalendar() : defaultCalendar()) {}

void EKEventStore::setCalendar(std::shared_ptr<Calendar> calendar) {
    chosenCalendar() = std::move(calendar);
}

std::optional<EKEvent> EKEventStore::eventWithIdentifier(const std::string& identifier,
                                                         std::string* error) const {
    std::optional<EKEvent> event;
    guarded(
        [&](std::string&) {
            event = identifier.empty() ? std::nullopt : calendar_->eventWithIdentifier(identifier);
            return true;
        },
        error);
    return event;
}

EKCalendar EKEventStore::defaultCalendarForNewEvents() const {
    EKCalendar calendar;
    guarded(
        [&](std::string&) {
            calendar = calendar_->description();
            return true;
        },
        nullptr);
    return calendar;
}

std::string EKEventStore::newIdentifier() const {
    return prefixOf(owner_.name) + randomHexadecimal() + randomHexadecimal();
}

bool EKEventStore::saveEvent(EKEvent& event, EKSpan /*span*/, std::string* error) const {
    return guarded(
        [&](std::string& reason) {
            if (!event.calendar) {
                reason = tr("the event has no calendar");
                return false;
            }
            EKEvent candidate = event;
            if (candidate.eventIdentifier.empty()) {
                candidate.eventIdentifier = newIdentifier();
            }
            if (!calendar_->saveEvent(candidate, reason)) {
                return false;
            }
            event.eventIdentifier = candidate.eventIdentifier;
            return true;
        },
        error);
}

bool EKEventStore::removeEvent(const EKEvent& event, EKSpan /*span*/, std::string* error) const {
    return guarded([&](std::string& reason) { return calendar_->removeEvent(event.eventIdentifier, reason); },
                   error);
}

int EKEventStore::removeEventsExcept(std::span<const std::string> identifiersToKeep) const {
    int removed = 0;
    guarded(
        [&](std::string& reason) {
            for (const std::string& identifier : ownIdentifiers(&reason)) {
                const bool keep = std::ranges::find(identifiersToKeep, identifier) != identifiersToKeep.end();
                removed += !keep && calendar_->removeEvent(identifier, reason) ? 1 : 0;
            }
            return true;
        },
        nullptr);
    return removed;
}

std::vector<std::string> EKEventStore::ownIdentifiers(std::string* error) const {
    std::vector<std::string> identifiers;
    guarded(
        [&](std::string&) {
            identifiers = calendar_->identifiersWithPrefix(prefixOf(owner_.name));
            if (!owner_.formerName.empty()) {
                std::ranges::move(calendar_->identifiersWithPrefix(prefixOf(owner_.formerName)),
                                  std::back_inserter(identifiers));
            }
            return true;
        },
        error);
    return identifiers;
}

bool EKEventStore::publish(std::string* error) const {
    return guarded([&](std::string& reason) { return calendar_->publish(reason); }, error);
}

bool EKEventStore::isPublished(std::string* error) const {
    return guarded(
        [&](std::string& reason) {
            reason = "another program that rings was not told of the latest change";
            return calendar_->isPublished();
        },
        error);
}

} // namespace zorel
