// SPDX-License-Identifier: Apache-2.0
// Programs that are killed at any moment. ZOREL_KILLS sets how many.
#include "tests/faults/Stage.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

namespace zorel {
namespace {

using test::Ended;
using test::Outcome;
using test::Stage;

constexpr std::array kCommands{"cities home 2950159",     "cities home 745044",        "alarms on dhuhr",
                               "alarms off dhuhr",        "alarms offset asr 7",       "alarms offset asr -7",
                               "alarms refresh",          "cities add 323786",         "cities remove 323786",
                               "alarms on isha",          "alarms ringtone asr Flute", "alarms skip asr",
                               "alarms pause --until +2", "alarms pause --off",        "alarms clear",
                               "import {import}",         "alarms connect gnome",      "alarms connect none"};

int kills() {
    const char* wanted = std::getenv("ZOREL_KILLS");
    return wanted != nullptr ? std::atoi(wanted) : 300;
}

TEST(RandomKills, AreHealedByTheNextStartAndTheHomeIsTheOldOrTheNewOne) {
    std::mt19937 random{20261122};
    const auto upTo = [&random](std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(random);
    };
    Stage stage;
    for (const char* command :
         {"cities add 745044", "cities add 2950159", "alarms on fajr", "alarms on asr"}) {
        ASSERT_EQ(stage.run(command).status, 0);
    }
    int died = 0;
    for (int kill = 0; kill < kills() && !HasFailure(); ++kill) {
        const std::string command = kCommands[upTo(kCommands.size() - 1)];
        const Outcome before = stage.look();
        const pid_t process = stage.start(command);
        std::this_thread::sleep_for(std::chrono::microseconds(upTo(25'000)));
        ::kill(process, SIGKILL);
        died += stage.wait(process).status == -SIGKILL ? 1 : 0;
        const Outcome after = stage.look();
        const std::string wanted = command.starts_with("cities home ") ? command.substr(12)
                                   : command.starts_with("import")     ? "2643743"
                                                                       : before.home;
        EXPECT_TRUE(after.home == before.home || after.home == wanted) << command << ": " << after.home;
        const Ended healing = stage.run("alarms refresh");
        EXPECT_EQ(healing.status, 0) << command << healing.err;
        EXPECT_TRUE(stage.look().isGood) << command << stage.look().alarms;
    }
    std::printf("[  KILLS   ] %d programs were killed before their end\n", died);
    EXPECT_GT(died, kills() / 5);
}

} // namespace
} // namespace zorel
