// SPDX-License-Identifier: Apache-2.0
// The window and a timer, say, work on the same alarms at the same time.
#include "tests/alarms/CalendarFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel {
namespace {

constexpr std::array<double, 6> kTimes{13.0, 14.0, 15.0, 16.0, 17.0, 18.0};
constexpr int kRounds = 12;

class AlarmProcesses : public testing::Test {
protected:
    /// Runs the function, given its number, in several processes at once; how many of them came to the end.
    static int runAtOnce(int processes, const std::function<void(int)>& function) {
        for (int number = 0; number < processes; ++number) {
            if (fork() == 0) {
                function(number);
                _exit(0);
            }
        }
        int finished = 0;
        for (int number = 0; number < processes; ++number) {
            int status = 0;
            wait(&status);
            finished += WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 1 : 0;
        }
        return finished;
    }

    void place(int index) {
        world.functions.updateAlarmDefinitions(200 + index, 0, kTimes[static_cast<std::size_t>(index)],
                                               "Chime", 1);
    }

    ClockOverride clock{test::localInstant(2026, 11, 20, 12, 0)};
    test::AlarmWorld world;
};

TEST_F(AlarmProcesses, PlacingTheSameAlarmMakesOneEvent) {
    EXPECT_EQ(runAtOnce(4, [this](int) { place(2); }), 4);
    test::expectInStep(world, "four processes, one alarm");
    EXPECT_EQ(world.log(), "") << "no statement met a locked database";
}

TEST_F(AlarmProcesses, PlacingDifferentAlarmsKeepsAll) {
    EXPECT_EQ(runAtOnce(3,
                        [this](int number) {
                            for (int round = 0; round < kRounds; ++round) {
                                place((round + number * 2) % 6);
                            }
                        }),
              3);
    test::expectInStep(world, "three processes, six alarms");
    EXPECT_EQ(test::CalendarFolder(world.path("calendar")).events.size(), 6U);
}

TEST_F(AlarmProcesses, PlacingAndRemovingStayInStep) {
    EXPECT_EQ(runAtOnce(3,
                        [this](int number) {
                            for (int round = 0; round < kRounds; ++round) {
                                if (number == 0) {
                                    world.functions.deleteAlarm(200 + round % 6);
                                } else if (number == 1 && round % 4 == 3) {
                                    world.functions.clearAllAlarms(true);
                                } else {
                                    place(round % 6);
                                }
                            }
                        }),
              3);
    test::expectInStep(world, "placing, deleting and clearing");
}

} // namespace
} // namespace zorel
