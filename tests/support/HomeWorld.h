// SPDX-License-Identifier: Apache-2.0
/// @file
/// A user with cities of the real catalogue and alarms, on a machine whose clock and zone a test sets.
#pragma once

#include "alarms/PrayerAlarms.h"
#include "almanac/Almanac.h"
#include "store/AlarmOwner.h"
#include "store/UserRows.h"
#include "store/UserStatements.h"
#include "tests/support/AlarmWorld.h"

#include <optional>
#include <string>
#include <vector>

namespace zorel::test {

// Ids of cities in the catalogue.
inline constexpr std::int32_t kIstanbul = 745044;
inline constexpr std::int32_t kBerlin = 2950159;
inline constexpr std::int32_t kKirov = 548408;
inline constexpr std::int32_t kLongyearbyen = 2729907;

struct HomeWorld : AlarmWorld {
    PrayerAlarms alarms{glbFuncs, functions};

    HomeWorld() {
        glbFuncs.appBundlePath = std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle";
        Locations::current().bundle = glbFuncs.appBundlePath;
    }

    void run(const std::vector<std::string>& statements) {
        const StoreResult result = changeUserRows(functions.userDBPath(), statements);
        if (!result.isDone()) {
            throw std::runtime_error(result.reason);
        }
    }
    void liveIn(std::int32_t cityId) { run({"DELETE FROM USER_CITY", statements::addCity(cityId, true)}); }
    /// Stores an alarm as on, without an event of its own.
    void switchOn(int timeId, std::int32_t offset = 0) {
        run({statements::defineAlarm(timeId, {true, offset, 2, "Bell.wav"}, 0.0)});
    }
    [[nodiscard]] almanac::Place home() const {
        return homePlaceOf(glbFuncs, storedUserCities(functions.userDBPath()).rows).place.value();
    }
    /// What the home city's almanac shows on a date.
    [[nodiscard]] almanac::Instant shown(int timeId, almanac::Date date) const {
        const auto prayer = almanac::prayerOfId(kTimeIdOffset + timeId).value();
        return almanac::Almanac(home()).day(date)[prayer].shown;
    }
};

} // namespace zorel::test
