// SPDX-License-Identifier: Apache-2.0
// Sixteen programs at once, readers beside them all the time: every action is done, and
// none is lost.
#include "tests/faults/Stage.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

namespace zorel {
namespace {

using test::Ended;
using test::Stage;

constexpr std::array kActions{
    "cities add 2950159", "cities add 323786",  "cities add 2643743", "cities add 2729907",
    "cities add 548408",  "cities add 3553478", "alarms on fajr",     "alarms on sunrise",
    "alarms on dhuhr",    "alarms on asr",      "alarms on maghrib",  "alarms on isha",
    "alarms refresh",     "cities home 745044", "alarms refresh",     "cities add 2673730"};

TEST(Contention, SixteenProgramsAtOnceLoseNoAction) {
    Stage stage;
    ASSERT_EQ(stage.run("cities add 745044").status, 0);
    std::atomic<bool> working = true;
    std::atomic<int> looks = 0;
    std::atomic<int> refused = 0;
    std::thread reader([&] {
        while (working) {
            ++looks;
            const pid_t process = stage.start("today --short");
            refused += stage.wait(process).status == 0 ? 0 : 1;
        }
    });
    std::vector<pid_t> processes;
    for (const char* action : kActions) {
        processes.push_back(stage.start(action));
    }
    for (std::size_t place = 0; place < kActions.size(); ++place) {
        EXPECT_EQ(stage.wait(processes[place]).status, 0) << kActions[place];
    }
    working = false;
    reader.join();
    const test::Outcome outcome = stage.look();
    EXPECT_TRUE(outcome.isGood);
    EXPECT_EQ(outcome.home, "745044");
    for (const char* id :
         {"745044", "2950159", "323786", "2643743", "2729907", "548408", "3553478", "2673730"}) {
        EXPECT_NE(outcome.cities.find(id), std::string::npos) << id;
    }
    EXPECT_EQ(stage.run("alarms").status, 0);
    std::size_t active = 0;
    for (std::size_t place = 0; (place = outcome.alarms.find("true ", place)) != std::string::npos; ++place) {
        ++active;
    }
    EXPECT_EQ(active, 6U) << outcome.alarms;
    EXPECT_GT(looks, 0);
    EXPECT_EQ(refused, 0);
}

} // namespace
} // namespace zorel
