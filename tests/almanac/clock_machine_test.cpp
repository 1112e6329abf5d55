// SPDX-License-Identifier: Apache-2.0
// The clock of the machine, by every form of TZ.
#include "almanac/PlaceClock.h"
#include "platform/foundation/Clock.h"

#include <gtest/gtest.h>

namespace zorel::almanac {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

struct Form {
    const char* variable;
    const char* name;            ///< of machineZoneName
    std::chrono::seconds winter; ///< offset on 2027-01-15
    std::chrono::seconds summer; ///< offset on 2027-07-15
};

TEST(MachineClock, EveryFormOfTheVariable) {
    for (const Form& form :
         {Form{"Asia/Kolkata", "Asia/Kolkata", 5h + 30min, 5h + 30min},
          Form{":Europe/Berlin", "Europe/Berlin", 1h, 2h},
          Form{"/usr/share/zoneinfo/Europe/Berlin", "Europe/Berlin", 1h, 2h},
          Form{":/usr/share/zoneinfo/posix/Europe/Berlin", "Europe/Berlin", 1h, 2h},
          Form{"posix/Europe/Berlin", "Europe/Berlin", 1h, 2h}, Form{"UTC", "UTC", 0h, 0h},
          Form{"", "UTC", 0h, 0h}, Form{"EST5EDT,M3.2.0,M11.1.0", "", -5h, -4h}, Form{"<+03>-3", "", 3h, 3h},
          Form{"<-0330>3:30", "", -(3h + 30min), -(3h + 30min)}, Form{"EST5", "", -5h, -5h},
          Form{"NZST-12NZDT,M9.5.0,M4.1.0/3", "", 13h, 12h}, Form{"Europe/Nowhere", "Europe/Nowhere", 0h, 0h},
          Form{"../../../etc/passwd", "", 0h, 0h}}) {
        const TimeZoneOverride lives(form.variable);
        const PlaceClock clock = PlaceClock::ofMachine();
        EXPECT_EQ(machineZoneName(), form.name) << form.variable;
        EXPECT_EQ(clock.offsetOn(2027y / 1 / 15), form.winter) << form.variable;
        EXPECT_EQ(clock.offsetOn(2027y / 7 / 15), form.summer) << form.variable;
        EXPECT_EQ(clock.noticeOn(2027y / 7 / 15), ClockNotice::none) << form.variable;
    }
}

TEST(MachineClock, IsThatOfTheCLibraryWithoutTheVariable) {
    const TimeZoneOverride unset(nullptr);
    const PlaceClock clock = PlaceClock::ofMachine();
    for (Instant instant = sys_days(2026y / 1 / 1); instant < sys_days(2028y / 1 / 1); instant += 5h) {
        ASSERT_EQ(clock.offsetAt(instant).count(), utcOffsetSeconds(instant));
    }
}

TEST(MachineClock, RuleOfTheVariableChangesToTheSecond) {
    const TimeZoneOverride lives("EST5EDT,M3.2.0,M11.1.0");
    const PlaceClock clock = PlaceClock::ofMachine();
    const Instant spring = sys_days(2027y / 3 / 14) + 7h;
    EXPECT_EQ(clock.offsetAt(spring - 1s), -5h);
    EXPECT_EQ(clock.offsetAt(spring), -4h);
    EXPECT_EQ(isoDateTime(clock.localTime(clock.instantOf(2027y / 3 / 14, 2h + 30min))),
              "2027-03-14T03:30:00-04:00");
    EXPECT_EQ(isoDateTime(clock.localTime(clock.instantOf(2027y / 11 / 7, 1h + 30min))),
              "2027-11-07T01:30:00-04:00");
    EXPECT_FALSE(clock.steadyOffsetAround(2027y / 3 / 14));
    EXPECT_EQ(clock.steadyOffsetAround(2027y / 7 / 14), -4h);
    EXPECT_EQ(clock.sourceOn(2027y / 3 / 14), ClockSource::zoneData);
}

TEST(MachineClock, NamedZoneKeepsItsOffsetsWhenTheVariableChanges) {
    const TimeZoneOverride berlin("Europe/Berlin");
    const PlaceClock clock = PlaceClock::ofMachine();
    const TimeZoneOverride kolkata("Asia/Kolkata");
    EXPECT_EQ(clock.zoneName(), "Europe/Berlin");
    EXPECT_EQ(clock.offsetOn(2027y / 7 / 15), 2h);
}

TEST(MachineClock, LookingAtOtherZonesLeavesTheProcessInItsOwn) {
    const TimeZoneOverride lives("Asia/Kolkata");
    (void)PlaceClock::ofZone("America/New_York").value().offsetOn(2026y / 7 / 1);
    EXPECT_EQ(utcOffsetSeconds({}), 19800);
}

} // namespace
} // namespace zorel::almanac
