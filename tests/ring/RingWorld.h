// SPDX-License-Identifier: Apache-2.0
/// @file
/// A ring service whose clock the test sets, whose plan the test writes and whose player only notes that it
/// was called.
#pragma once

#include "ring/RingService.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <sys/eventfd.h>
#include <vector>

namespace zorel::test {

using ring::Instant;
using ring::Plan;
using ring::Ring;

inline constexpr Instant kDawn{std::chrono::seconds(1'800'000'000)};

inline Ring ringAt(Instant at, const std::string& prayer = "fajr") {
    return {prayer,
            at,
            "Fajr 06:08",
            "Istanbul",
            "Fajr was at 06:08",
            "/tones/own.ogg",
            "/tones/b",
            std::chrono::seconds(30)};
}

inline Plan planOf(std::vector<Ring> rings) {
    Plan plan;
    plan.rings = std::move(rings);
    plan.stop = "Stop";
    plan.snooze = "Snooze";
    return plan;
}

/// Stands still until the test moves it.
class TestClock final : public ring::RingClock {
public:
    [[nodiscard]] Instant now() const override { return now_; }
    [[nodiscard]] int descriptor() const override { return descriptor_.get(); }
    [[nodiscard]] ring::Tick take() override {
        eventfd_t count = 0;
        eventfd_read(descriptor_.get(), &count);
        return std::exchange(tick_, ring::Tick::due);
    }
    void wait(std::optional<Instant> until) override {
        until_ = until;
        tickIfDue();
    }
    [[nodiscard]] bool wakes() const override { return false; }

    /// Time passes.
    void passTo(Instant now) {
        now_ = now;
        tickIfDue();
    }
    /// Somebody sets the clock, or the machine wakes up.
    void setTo(Instant now) {
        now_ = now;
        tick_ = ring::Tick::clockIsSet;
        eventfd_write(descriptor_.get(), 1);
    }
    [[nodiscard]] std::optional<Instant> until() const { return until_; }

private:
    void tickIfDue() {
        if (until_ && *until_ <= now_) {
            eventfd_write(descriptor_.get(), 1);
        }
    }

    Descriptor descriptor_{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    Instant now_ = kDawn - std::chrono::hours(1);
    std::optional<Instant> until_;
    ring::Tick tick_ = ring::Tick::due;
};

class RingWorld {
public:
    RingWorld() {
        sd_event* made = nullptr;
        sigset_t children;
        sigemptyset(&children);
        sigaddset(&children, SIGCHLD);
        sigprocmask(SIG_BLOCK, &children, nullptr);
        sd_event_new(&made);
        event.reset(made);
        std::filesystem::create_directories(folder.path("data/calendar"));
        program("planner", "echo asked \"$@\" >> " + folder.path("asked") + "; cat " + folder.path("plan") +
                               "; exit $(cat " + folder.path("status") + ")");
        program("player", "echo \"$@\" >> " + folder.path("played") + "; exec sleep 60");
        setStatus(0);
    }

    void program(const std::string& name, const std::string& text) const {
        writeFile(folder.path(name), "#!/bin/sh\n" + text + "\n");
        std::filesystem::permissions(folder.path(name), std::filesystem::perms::owner_all);
    }
    void setPlan(const Plan& plan) const { writeFile(folder.path("plan"), textOf(plan)); }
    void setStatus(int status) const { writeFile(folder.path("status"), std::to_string(status)); }

    /// The service starts, and has its first plan.
    void start() {
        const auto before = asked();
        service = std::make_unique<ring::RingService>(event.get(), nullptr, clock,
                                                      ring::ServiceFiles{{folder.path("planner")},
                                                                         folder.path("player"),
                                                                         folder.path("data"),
                                                                         folder.path("data/calendar"),
                                                                         folder.path("sources")});
        EXPECT_TRUE(runUntil([&] { return asked() > before; }));
        settle();
    }
    /// Lets the service work until something holds; false when it does not within five seconds.
    bool runUntil(const std::function<bool()>& holds) const {
        for (int round = 0; round < 500 && !holds(); ++round) {
            sd_event_run(event.get(), 10'000);
        }
        return holds();
    }
    /// Lets the service work until nothing has happened for 0.25 s.
    void settle() const {
        while (sd_event_run(event.get(), 250'000) > 0) {
        }
    }
    [[nodiscard]] std::size_t asked() const { return linesOf("asked"); }
    [[nodiscard]] std::size_t played() const { return linesOf("played"); }
    [[nodiscard]] std::size_t linesOf(const std::string& name) const {
        const std::string text = readFile(folder.path(name));
        return static_cast<std::size_t>(std::ranges::count(text, '\n'));
    }
    [[nodiscard]] bool waitsFor(Instant instant) const { return clock.until() == instant; }

    TemporaryFolder folder;
    TestClock clock;
    ring::Event event;
    std::unique_ptr<ring::RingService> service;
};

} // namespace zorel::test
