// SPDX-License-Identifier: Apache-2.0
#include "ring/Schedule.h"

#include <algorithm>
#include <utility>

namespace zorel::ring {
namespace {

void takeEarlier(std::optional<Instant>& earliest, Instant instant) {
    if (!earliest || instant < *earliest) {
        earliest = instant;
    }
}

} // namespace

void Schedule::setPlan(Plan plan) {
    plan_ = std::move(plan);
    again_ = plan_.again;
}

const Ring* Schedule::upcoming(Instant now) const {
    const Ring* first = nullptr;
    for (const Ring& ring : plan_.rings) {
        if (ring.at > now && !log_.has(ring) && (first == nullptr || ring.at < first->at)) {
            first = &ring;
        }
    }
    return first;
}

Step Schedule::step(Instant now) {
    Step step;
    if (plan_.keeper.empty()) {
        takePlanned(now, step);
        takeSnoozed(now, step);
    }
    step.wantsPlan = wantsPlan(now);
    step.next = nextAfter(now);
    return step;
}

void Schedule::snooze(const Ring& ring, Instant now) {
    note(log_.snooze(ring, now + kSnooze));
}

void Schedule::takeDue(const Ring& ring, Instant due, Instant now, Step& step) const {
    const auto late = now - due;
    if (late <= kOnTime) {
        step.ring.push_back(ring);
    } else if (late <= kStillTold) {
        step.missed.push_back(ring);
    }
}

void Schedule::takePlanned(Instant now, Step& step) {
    for (const Ring& ring : plan_.rings) {
        if (ring.at <= now && now - ring.at <= kStillTold && !log_.has(ring)) {
            note(log_.add(ring));
            takeDue(ring, ring.at, now, step);
            takeEarlier(again_, ring.at + kEventLasts);
        }
    }
}

void Schedule::takeSnoozed(Instant now, Step& step) {
    for (const Snoozed& each : std::vector<Snoozed>(log_.snoozed())) {
        if (each.until <= now) {
            note(log_.forgetSnooze(each.ring.prayer));
            takeDue(each.ring, each.until, now, step);
        }
    }
}

bool Schedule::wantsPlan(Instant now) {
    const bool isDue = again_ && *again_ <= now;
    if (isDue) {
        again_.reset();
    }
    return isDue;
}

std::optional<Instant> Schedule::nextAfter(Instant now) const {
    std::optional<Instant> next = again_;
    if (plan_.keeper.empty()) {
        if (const Ring* ring = upcoming(now)) {
            takeEarlier(next, ring->at);
        }
        for (const Snoozed& each : log_.snoozed()) {
            takeEarlier(next, each.until);
        }
    }
    return next;
}

void Schedule::note(std::error_code error) {
    trouble_ = error ? "what has rung cannot be noted: " + error.message() : "";
}

} // namespace zorel::ring
