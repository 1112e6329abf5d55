// SPDX-License-Identifier: Apache-2.0
// Every operation of the alarms with a fault at its first, second, third ... change to the file system, until
// the operation passes: a process that dies, one that dies in the middle of a write, a disk that fills up, a
// sector that fails.
#include "tests/alarms/CalendarFolder.h"
#include "tests/support/FaultPoints.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

namespace zorel {
namespace {

using test::AlarmWorld;
using test::CalendarFolder;
using test::localInstant;

constexpr std::array<double, 6> kMorning{13.0, 14.0, 15.0, 16.0, 17.0, 18.0};
constexpr std::array<double, 6> kEvening{13.5, 14.5, 15.5, 16.5, 17.5, 18.5};
constexpr const char* kForeign = "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:dentist\r\nDTST";
/// No operation makes as many changes to the file system.
constexpr int kFarTooMany = 2'000;

/// An operation and the state it starts from.
struct Operation {
    std::string name;
    std::function<void(AlarmWorld&)> prepare;
    std::function<void(AlarmWorld&)> run;
};

void placeAll(AlarmWorld& world) {
    for (std::int32_t index = 0; index < 6; ++index) {
        world.functions.updateAlarmDefinitions(200 + index, 0, kMorning[static_cast<std::size_t>(index)],
                                               "Chime", 1);
    }
}

void placeOne(AlarmWorld& world) {
    world.functions.updateAlarmDefinitions(202, 0, kMorning[2], "Chime", 1);
}

void moveOne(AlarmWorld& world) {
    world.functions.updateAlarmPrayerTime(202, kEvening[2]);
}

void deleteEventFile(AlarmWorld& world) {
    placeOne(world);
    std::filesystem::remove(world.path("calendar/" + world.row(3).eventId + ".ics"));
}

std::vector<Operation> operations() {
    const auto nothing = [](AlarmWorld&) {};
    const auto city = [](AlarmWorld& world) { return test::cityWithTimes(world.glbFuncs, kEvening); };
    return {
        {"the first alarm of all", nothing, placeOne},
        {"one alarm moved", placeAll, moveOne},
        {"an event made anew that the user deleted", deleteEventFile, moveOne},
        {"one alarm deleted", placeAll, [](AlarmWorld& world) { world.functions.deleteAlarm(202); }},
        {"all alarms cleared", placeAll, [](AlarmWorld& world) { world.functions.clearAllAlarms(false); }},
        {"all alarms switched off", placeAll,
         [](AlarmWorld& world) { world.functions.clearAllAlarms(true); }},
        {"a new home city", placeAll,
         [city](AlarmWorld& world) {
             world.functions.clearAllAlarms(false);
             world.functions.setAllAlarms(city(world));
         }},
    };
}

/// A world in which the operation is about to run, as often as needed. The clock stands at noon of one day.
class Stage {
public:
    ClockOverride clock{localInstant(2026, 11, 20, 12, 0)};
    AlarmWorld world;

    explicit Stage(const Operation& operation) {
        operation.prepare(world);
        test::writeFile(world.path("calendar/dentist.ics"), kForeign);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(world.path(""))) {
            if (entry.is_regular_file()) {
                files_[entry.path().string()] = test::readFile(entry.path().string());
            }
        }
    }

    /// Puts every file back to the beginning and starts the calendar anew.
    void reset() {
        EKEventStore::setCalendar(nullptr);
        for (const auto& entry : std::filesystem::directory_iterator(world.path(""))) {
            std::filesystem::remove_all(entry.path());
        }
        for (const auto& [path, bytes] : files_) {
            test::writeFile(path, bytes);
        }
    }

private:
    std::map<std::string, std::string> files_;
};

/// What must hold right after a fault: no half file, and at most one event for each alarm.
void expectNothingHalf(const AlarmWorld& world, const std::string& when) {
    const CalendarFolder folder(world.path("calendar"));
    EXPECT_EQ(folder.broken, "") << when;
    for (int hour = 13; hour <= 18; ++hour) {
        EXPECT_LE(folder.countAt(hour), 1) << when << ", hour " << hour;
    }
    EXPECT_EQ(test::readFile(world.path("calendar/dentist.ics")), kForeign) << when;
}

/// Recomputes as the next start of the program does, and looks again.
void expectHealed(AlarmWorld& world, const std::string& when) {
    const City city = test::cityWithTimes(world.glbFuncs, kEvening);
    EKEventStore::setCalendar(std::make_shared<FolderCalendar>(world.path("calendar")));
    world.functions.setAllAlarms(city);
    test::expectInStep(world, when);
    world.functions.updateAlarmDefinitions(200, 0, kEvening[0], "Chime", 1);
    test::expectInStep(world, when + ", and one alarm more");
    EKEventStore::setCalendar(nullptr);
}

/// Tries deaths at every point of every operation and returns their number.
int tryDeaths(faults::Effect effect) {
    int survived = 0;
    for (const Operation& operation : operations()) {
        Stage stage(operation);
        int nth = 1;
        for (; nth < kFarTooMany; ++nth) {
            stage.reset();
            const int status = faults::runInChild(effect, nth, [&] { operation.run(stage.world); });
            const std::string when = operation.name + ", death at change " + std::to_string(nth);
            EXPECT_TRUE(status == 0 || status == faults::kDied) << when << ": status " << status;
            expectNothingHalf(stage.world, when);
            expectHealed(stage.world, when);
            if (status != faults::kDied || testing::Test::HasFailure()) {
                break;
            }
            ++survived;
        }
        EXPECT_GT(nth, 10) << operation.name << " makes more changes than that";
    }
    return survived;
}

/// Tries failing calls at every point of every operation and returns their number.
int tryFailures(int error, bool lasting) {
    int survived = 0;
    for (const Operation& operation : operations()) {
        Stage stage(operation);
        for (int nth = 1; nth < kFarTooMany; ++nth) {
            stage.reset();
            faults::arm(faults::Effect::fail, nth, error, lasting);
            operation.run(stage.world);
            const int seen = faults::disarm();
            const std::string when = operation.name + ", failure from change " + std::to_string(nth);
            expectNothingHalf(stage.world, when);
            expectHealed(stage.world, when);
            if (seen < nth || testing::Test::HasFailure()) {
                break;
            }
            ++survived;
        }
    }
    return survived;
}

void report(const char* what, int count) {
    std::printf("[   FAULTS ] %s: %d tried, %d survived\n", what, count,
                testing::Test::HasFailure() ? -1 : count);
    EXPECT_GT(count, 100);
}

TEST(AlarmFaults, AProcessThatDiesBeforeAnyChange) {
    report("process killed", tryDeaths(faults::Effect::die));
}

TEST(AlarmFaults, AProcessThatDiesInTheMiddleOfAnyWrite) {
    report("process killed within a write", tryDeaths(faults::Effect::tear));
}

TEST(AlarmFaults, ADiskThatFillsUp) {
    report("disk full from there on", tryFailures(ENOSPC, true));
}

TEST(AlarmFaults, ACallThatFailsOnce) {
    report("input/output error", tryFailures(EIO, false));
}

} // namespace
} // namespace zorel
