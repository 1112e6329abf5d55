// SPDX-License-Identifier: Apache-2.0
// The loop of the ring service with a clock that the test sets. What is heard and seen is in session_test.py.
#include "tests/ring/RingWorld.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/wait.h>

namespace zorel::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

struct ServiceTest : testing::Test, RingWorld {
    void startWith(std::vector<Ring> rings) {
        setPlan(planOf(std::move(rings)));
        start();
    }
    /// Changes a file that the alarms live in.
    void edit(const std::string& name) const { std::ofstream(folder.path(name), std::ios::app) << "x"; }
};

TEST_F(ServiceTest, PlaysTheRingtoneForItsTimeWhenItIsDue) {
    startWith({ringAt(kDawn)});
    EXPECT_TRUE(waitsFor(kDawn));
    EXPECT_EQ(played(), 0U);
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    EXPECT_EQ(readFile(folder.path("played")), "--seconds 30 /tones/own.ogg /tones/b\n");
    settle();
    EXPECT_EQ(played(), 1U);
}

TEST_F(ServiceTest, ReadsTheAlarmsAgainWhenTheirFilesChange) {
    startWith({ringAt(kDawn)});
    setPlan(planOf({ringAt(kDawn + 7min)}));
    edit("data/user.sqlite");
    EXPECT_TRUE(runUntil([&] { return waitsFor(kDawn + 7min); }));
    setPlan(planOf({ringAt(kDawn + 9min)}));
    edit("data/calendar/event.ics");
    EXPECT_TRUE(runUntil([&] { return waitsFor(kDawn + 9min); }));
}

TEST_F(ServiceTest, OtherFilesOfTheFoldersMatterNot) {
    startWith({ringAt(kDawn)});
    const auto before = asked();
    for (const char* name :
         {"data/SettingsLog.txt", "data/rung.txt", "data/calendar/.tmp", "data/user.sqlite.lock"}) {
        edit(name);
    }
    settle();
    EXPECT_EQ(asked(), before);
}

TEST_F(ServiceTest, ACalendarFolderThatIsMadeLaterIsWatched) {
    std::filesystem::remove(folder.path("data/calendar"));
    startWith({});
    std::filesystem::create_directory(folder.path("data/calendar"));
    const auto before = asked();
    EXPECT_TRUE(runUntil([&] { return asked() > before; }));
    settle();
    setPlan(planOf({ringAt(kDawn)}));
    edit("data/calendar/event.ics");
    EXPECT_TRUE(runUntil([&] { return waitsFor(kDawn); }));
}

/// Somebody else may take GNOME's calendar away: this service has to ring again at once.
TEST_F(ServiceTest, TheCalendarsThatGnomeKnowsOfAreWatched) {
    std::filesystem::create_directory(folder.path("sources"));
    startWith({ringAt(kDawn)});
    setPlan(planOf({ringAt(kDawn + 1h)}));
    edit("sources/zorel-alarms.source");
    EXPECT_TRUE(runUntil([&] { return waitsFor(kDawn + 1h); }));
}

TEST_F(ServiceTest, AClockSetForwardsTellsWhatWasMissedAndPlaysNothing) {
    startWith({ringAt(kDawn)});
    const auto before = asked();
    clock.setTo(kDawn + 4min);
    EXPECT_TRUE(runUntil([&] { return asked() > before; }));
    settle();
    EXPECT_EQ(played(), 0U);
    EXPECT_THAT(service->status(), HasSubstr("was missed"));
}

TEST_F(ServiceTest, AClockSetBackRingsNothingTwice) {
    startWith({ringAt(kDawn)});
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    clock.setTo(kDawn - 2h);
    settle();
    clock.passTo(kDawn);
    settle();
    EXPECT_EQ(played(), 1U);
}

TEST_F(ServiceTest, AnEndedServiceRingsNothingTwice) {
    startWith({ringAt(kDawn)});
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    service.reset();
    start();
    settle();
    EXPECT_EQ(played(), 1U);
}

TEST_F(ServiceTest, AServiceThatStartsTooLateTellsWhatWasMissed) {
    clock.passTo(kDawn + 4min);
    startWith({ringAt(kDawn), ringAt(kDawn + 24h)});
    EXPECT_EQ(played(), 0U);
    EXPECT_THAT(service->status(), HasSubstr("was missed"));
    EXPECT_TRUE(waitsFor(kDawn + 60s) || waitsFor(kDawn + 24h));
}

TEST_F(ServiceTest, StopEndsThePlayerAndSnoozeRingsAgain) {
    startWith({ringAt(kDawn)});
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    EXPECT_TRUE(service->snooze());
    EXPECT_TRUE(runUntil([&] { return service->status().find("sound ended") != std::string::npos; }));
    clock.passTo(kDawn + 5min);
    EXPECT_TRUE(runUntil([&] { return played() == 2; }));
    service->stop();
    settle();
    clock.passTo(kDawn + 10min);
    settle();
    EXPECT_EQ(played(), 2U);
}

TEST_F(ServiceTest, TheNextRingTakesTheSoundOverAndLeavesNoDeadProcess) {
    startWith({ringAt(kDawn), ringAt(kDawn + 10s, "tulu")});
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    clock.passTo(kDawn + 10s);
    EXPECT_TRUE(runUntil([&] { return played() == 2; }));
    settle();
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), 0); // one lives, none is dead
}

TEST_F(ServiceTest, AlarmsThatCannotBeReadLeaveThePlanInForce) {
    startWith({ringAt(kDawn)});
    setStatus(1);
    Plan broken;
    broken.trouble = "busy";
    setPlan(broken);
    edit("data/user.sqlite");
    EXPECT_TRUE(runUntil([&] { return service->status().find("busy") != std::string::npos; }));
    EXPECT_TRUE(waitsFor(clock.now() + 10s));
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
}

TEST_F(ServiceTest, APlannerThatIsMissingIsSaid) {
    setPlan(planOf({}));
    start();
    std::filesystem::remove(folder.path("planner"));
    edit("data/user.sqlite");
    EXPECT_TRUE(runUntil([&] { return service->status().find("could not be read") != std::string::npos; }));
}

TEST_F(ServiceTest, ATestRingsNowAndCountsForNothing) {
    startWith({ringAt(kDawn)});
    service->test("fajr");
    EXPECT_TRUE(runUntil([&] { return played() == 1; }));
    EXPECT_THAT(readFile(folder.path("asked")), HasSubstr("--test fajr"));
    clock.passTo(kDawn);
    EXPECT_TRUE(runUntil([&] { return played() == 2; }));
}

TEST_F(ServiceTest, MidnightBringsANewPlan) {
    Plan plan = planOf({});
    plan.again = kDawn - 5min;
    setPlan(plan);
    start();
    const auto before = asked();
    setPlan(planOf({ringAt(kDawn)}));
    clock.passTo(kDawn - 5min);
    EXPECT_TRUE(runUntil([&] { return asked() == before + 1 && waitsFor(kDawn); }));
}

} // namespace
} // namespace zorel::test
