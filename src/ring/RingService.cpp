// SPDX-License-Identifier: Apache-2.0
#include "ring/RingService.h"

#include "ring/Lines.h"

#include <algorithm>
#include <cstdio>
#include <sys/epoll.h>
#include <utility>

namespace zorel::ring {
namespace {

constexpr std::uint64_t kSettling = 150'000; // [us] an action of a person changes several files
constexpr std::chrono::seconds kFirstPatience{10};
constexpr std::chrono::seconds kLongestPatience{3600};

std::vector<Watch::Place> watchedPlaces(const ServiceFiles& files) {
    const auto slash = files.calendar.find_last_of('/');
    const std::string calendar = files.calendar.substr(slash + 1);
    return {{files.data, {"user.sqlite", "user.sqlite-journal"}, ""},
            {files.calendar, {}, ".ics"},
            {files.calendar.substr(0, slash), {calendar, calendar + ".ics"}, ""},
            {files.gnome, {}, ".source"},
            {"/etc", {"localtime", "timezone"}, ""}};
}

} // namespace

RingService::RingService(sd_event* event, sd_bus* bus, RingClock& clock, ServiceFiles files)
    : event_(event), clock_(clock), files_(std::move(files)), watch_(watchedPlaces(files_)),
      log_(files_.data + "/rung.txt"), schedule_(log_), ringer_(event, bus, files_.player,
                                                                [this](const Ring& ring) {
                                                                    schedule_.snooze(ring, clock_.now());
                                                                    act();
                                                                }),
      patience_(kFirstPatience) {
    listen();
    look();
}

void RingService::listen() {
    sd_event_source* source = nullptr;
    if (sd_event_add_io(event_, &source, clock_.descriptor(), EPOLLIN, ticked, this) >= 0) {
        ticks_.reset(source);
    }
    if (sd_event_add_io(event_, &source, watch_.descriptor(), EPOLLIN, changed, this) >= 0) {
        changes_.reset(source);
    }
}

int RingService::ticked(sd_event_source* /*source*/, int /*descriptor*/, std::uint32_t /*events*/,
                        void* self) {
    auto* const service = static_cast<RingService*>(self);
    const Tick tick = service->clock_.take();
    service->act();
    if (tick == Tick::clockIsSet) {
        service->look();
    }
    return 0;
}

int RingService::changed(sd_event_source* /*source*/, int /*descriptor*/, std::uint32_t /*events*/,
                         void* self) {
    auto* const service = static_cast<RingService*>(self);
    if (service->watch_.take()) {
        service->lookSoon();
    }
    return 0;
}

int RingService::settled(sd_event_source* /*source*/, std::uint64_t /*now*/, void* self) {
    auto* const service = static_cast<RingService*>(self);
    service->settling_.reset();
    service->look();
    return 0;
}

void RingService::lookSoon() {
    sd_event_source* source = nullptr;
    if (!settling_ &&
        sd_event_add_time_relative(event_, &source, CLOCK_MONOTONIC, kSettling, 1000, settled, this) >= 0) {
        settling_.reset(source);
    }
}

void RingService::look() {
    if (planning_) {
        lookAgain_ = true;
        return;
    }
    lookAgain_ = false;
    planning_ =
        std::make_unique<Child>(event_, files_.planner, [this](const auto& result) { takePlan(result); });
}

void RingService::takePlan(const Child::Result& result) {
    const auto ended = std::exchange(planning_, nullptr);
    act(); // what fell due under the plan before
    auto plan = planOfText(result.output);
    if (result.status == 0 && plan) {
        trouble_ = plan->trouble;
        patience_ = kFirstPatience;
        ringer_.setLabels(plan->stop, plan->snooze);
        schedule_.setPlan(*std::move(plan));
    } else {
        keepPlan(plan && !plan->trouble.empty() ? plan->trouble : "the alarms could not be read");
    }
    watch_.renew();
    act();
    if (lookAgain_) {
        lookSoon();
    }
}

void RingService::keepPlan(const std::string& why) {
    if (why != trouble_) {
        std::fprintf(stderr, "zorel-ring: %s\n", why.c_str());
    }
    trouble_ = why;
    Plan plan = schedule_.plan();
    plan.again = clock_.now() + patience_;
    patience_ = std::min(patience_ * 2, kLongestPatience);
    schedule_.setPlan(std::move(plan));
}

void RingService::act() {
    const Step step = schedule_.step(clock_.now());
    clock_.wait(step.next);
    for (const Ring& ring : step.missed) {
        ringer_.tellMissed(ring);
    }
    for (const Ring& ring : step.ring) {
        ringer_.ring(ring);
    }
    if (step.wantsPlan) {
        look();
    }
}

void RingService::test(const std::string& prayer) {
    std::vector<std::string> words = files_.planner;
    words.insert(words.end(), {"--test", prayer});
    testing_ = std::make_unique<Child>(event_, words, [this](const Child::Result& result) {
        const auto ended = std::exchange(testing_, nullptr);
        const auto plan = planOfText(result.output);
        if (result.status == 0 && plan && !plan->rings.empty()) {
            ringer_.setLabels(plan->stop, plan->snooze);
            ringer_.ring(plan->rings.front());
        }
    });
}

std::string RingService::status() const {
    std::string text;
    if (const Ring* next = schedule_.upcoming(clock_.now())) {
        text += joined({"next", next->prayer, textOf(next->at)}) + '\n';
    }
    text += joined({"data", files_.data}) + '\n';
    text += joined({"wakes", clock_.wakes() ? "yes" : "no"}) + '\n';
    const std::string& noteTrouble = schedule_.trouble();
    for (const auto& [word, value] : {std::pair<std::string, std::string>{"keeper", schedule_.plan().keeper},
                                      {"last", ringer_.lastRing()},
                                      {"trouble", trouble_.empty() ? noteTrouble : trouble_}}) {
        text += value.empty() ? "" : joined({word, value}) + '\n';
    }
    return text;
}

} // namespace zorel::ring
