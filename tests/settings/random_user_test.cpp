// SPDX-License-Identifier: Apache-2.0
// A random user of the whole pane, on a disk that fails now and then. ZOREL_RANDOM_ACTIONS sets how long.
#include "platform/foundation/NumberText.h"
#include "tests/settings/PaneFixture.h"
#include "tests/support/FaultPoints.h"

#include <cerrno>
#include <cstdlib>
#include <random>
#include <set>

namespace zorel {
namespace {

int actions() {
    const char* wanted = std::getenv("ZOREL_RANDOM_ACTIONS");
    return wanted != nullptr ? integerValue(wanted) : 400;
}

/// An active alarm as the database has it.
struct Alarm {
    int timeId;
    int minute;
    std::string eventId;
};

class RandomUser : public test::PaneFixture {
protected:
    RandomUser() {
        const std::pair<const char*, const char*> wanted[] = {
            {"ankara", "Ankara"}, {"berlin", "Berlin"},   {"konya", "Konya"},
            {"london", "London"}, {"jakarta", "Jakarta"}, {"longyearbyen", "Longyearbyen"}};
        for (const auto& [search, name] : wanted) {
            pool.push_back(cityNamed(search, name));
        }
    }

    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

    void act() {
        const int rows = static_cast<int>(pane->userCities().size());
        switch (upTo(11)) {
        case 0:
        case 1:
            if (rows < 8) {
                pane->delegateAddCityView_AddTapped(pool[static_cast<std::size_t>(upTo(5))]);
            }
            break;
        case 2:
            tapHome(upTo(std::max(rows - 1, 0)));
            break;
        case 3:
            deleteCity(upTo(std::max(rows - 1, 0)));
            break;
        case 4:
        case 5:
        case 6:
            toggleAlarm(upTo(5));
            break;
        case 7:
            openAlarm(upTo(5)).pickerTime().userPicksRow(upTo(118));
            break;
        case 8:
            openAlarm(upTo(5)).pickerMelody().userPicksRow(upTo(2));
            break;
        case 9:
            openAlarm(upTo(5)).pickerMelodyTime().userPicksRow(upTo(8));
            break;
        case 10:
            navigation->popViewControllerAnimated(true);
            RunLoop::main().advance(upTo(3));
            break;
        default:
            upTo(4) == 0 ? restart() : letTimePass();
        }
    }
    void letTimePass() {
        present += std::chrono::minutes(upTo(2000));
        clock.reset();
        clock.emplace(present);
    }

    /// Something goes wrong with the disk during the next action: once, or from some moment on until its end.
    /// True when the action came to that moment.
    bool actWithFault() {
        const int nth = 1 + upTo(15);
        faults::arm(faults::Effect::fail, nth, upTo(1) == 0 ? EIO : ENOSPC, upTo(1) == 0);
        act();
        return faults::disarm() >= nth;
    }

    /// What repairs whatever a fault has left: the next start.
    void repair() {
        restart();
        pane->refreshAlarms();
    }

    [[nodiscard]] std::vector<Alarm> alarms() const {
        std::vector<Alarm> all;
        const auto database = Database::openUser(pane->dbFuncs().userDBPath());
        Statement rows =
            database->prepare("SELECT TIMEID, MINUTE, EVENTID FROM USER_ALARMS WHERE ACTIVE = 1");
        while (rows.nextRow()) {
            all.push_back({integerValue(rows.text(0)), integerValue(rows.text(1)), rows.text(2)});
        }
        return all;
    }

    /// At most one city is marked as home, whatever has gone wrong.
    void checkHome() {
        std::set<std::string> homes;
        for (const std::string& id : query("SELECT ID FROM USER_CITY WHERE SETASHOME = 1")) {
            homes.insert(id);
        }
        ASSERT_LE(homes.size(), 1U);
        ASSERT_EQ(query("SELECT TIMEID FROM USER_ALARMS").size(), 6U);
    }

    /// Every active alarm has one event, at the home city's next time (or the one after, where that was less
    /// than five minutes ahead of an edit), or none where there is no such time; there are no other events.
    /// What has passed is moved by the next start.
    void checkAlarms(bool mayHavePassed) {
        FolderCalendar calendar(Locations::current().data + "/calendar");
        std::set<std::string> identifiers;
        for (const Alarm& alarm : alarms()) {
            const NextRings due = dueTimes(alarm.timeId, alarm.minute);
            const auto event = calendar.eventWithIdentifier(alarm.eventId);
            if (event) {
                identifiers.insert(alarm.eventId);
                const auto start = std::chrono::floor<std::chrono::seconds>(event->startDate);
                const bool isDue = start == due.next || start == due.afterMargin;
                ASSERT_TRUE(isDue || (mayHavePassed && start <= now())) << alarm.timeId;
            } else {
                ASSERT_TRUE(!due.next || mayHavePassed) << alarm.timeId;
            }
        }
        ASSERT_EQ(calendar.identifiersWithPrefix("").size(), identifiers.size());
    }

    std::vector<City> pool;
    std::mt19937 random{20260310};
    Instant present = instantFromLocal({2026, 3, 10, 9, 0, 0, 0.0});
};

TEST_F(RandomUser, KeepsCitiesAlarmsAndEventsInStep) {
    for (int action = 0; action < actions(); ++action) {
        act();
        checkHome();
        checkAlarms(true);
        if (action % 5 == 0) {
            pane->refreshAlarms();
            checkAlarms(false);
        }
        ASSERT_FALSE(HasFatalFailure()) << "action " << action;
    }
}

TEST_F(RandomUser, SurvivesFaultsOfTheDisk) {
    int faults = 0;
    for (int action = 0; action < actions(); ++action) {
        if (upTo(4) != 0) {
            act();
        } else {
            faults += actWithFault() ? 1 : 0;
        }
        checkHome();
        if (action % 7 == 0) {
            repair();
            checkHome();
            checkAlarms(false);
        }
        ASSERT_FALSE(HasFatalFailure()) << "action " << action;
    }
    EXPECT_GT(faults, actions() / 20) << "hardly anything went wrong";
}

} // namespace
} // namespace zorel
