// SPDX-License-Identifier: Apache-2.0
// What every calendar behind the event store must do. A new calendar joins by one more line at the end.
#include "platform/eventkit/FolderCalendar.h"
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/eventkit/SampleEvent.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A way to make a calendar with a place of its own.
struct CalendarCase {
    std::string name;
    std::function<std::unique_ptr<Calendar>(const std::string& folder)> make;
};

class CalendarContract : public testing::TestWithParam<CalendarCase> {
protected:
    CalendarContract() : calendar(GetParam().make(folder.path() + "/calendar")) {}

    bool save(const EKEvent& event) { return calendar->saveEvent(event, error); }
    EKEvent saved(const std::string& identifier) {
        return calendar->eventWithIdentifier(identifier).value_or(EKEvent{});
    }

    test::TemporaryFolder folder;
    std::unique_ptr<Calendar> calendar;
    std::string error;
};

TEST_P(CalendarContract, HoldsNothingAtFirst) {
    EXPECT_FALSE(calendar->eventWithIdentifier("zorel-a-1"));
    EXPECT_FALSE(calendar->eventWithIdentifier(""));
    EXPECT_THAT(calendar->identifiersWithPrefix(""), IsEmpty());
    EXPECT_FALSE(calendar->removeEvent("zorel-a-1", error));
    EXPECT_NE(error, "");
}

TEST_P(CalendarContract, HasAName) {
    EXPECT_NE(calendar->description().calendarIdentifier, "");
    EXPECT_NE(calendar->description().title, "");
}

TEST_P(CalendarContract, GivesBackEveryFieldOfASavedEvent) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.title = "Öğle; namazı, \\ \"vakti\"\nikinci satır";
    event.location = std::string(300, 'x') + "ığüşöç";
    event.notes = "Notes, with; everything";
    event.alarms = {EKAlarm::alarmWithRelativeOffset(0), EKAlarm::alarmWithRelativeOffset(-900)};
    event.recurrenceRules = {"FREQ=WEEKLY;COUNT=4"};
    ASSERT_TRUE(save(event)) << error;
    EXPECT_TRUE(sameEvent(saved("zorel-a-1"), event));
    EXPECT_EQ(saved("zorel-a-1").calendar, calendar->description());
}

TEST_P(CalendarContract, DistinguishesNoNotesFromNotes) {
    ASSERT_TRUE(save(sampleEvent("zorel-a-1"))) << error;
    EXPECT_EQ(saved("zorel-a-1").notes, std::nullopt);
}

TEST_P(CalendarContract, KeepsAnEventWithoutAlarms) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.alarms.clear();
    ASSERT_TRUE(save(event)) << error;
    EXPECT_THAT(saved("zorel-a-1").alarms, IsEmpty());
}

TEST_P(CalendarContract, OverwritesTheEventOfTheSameIdentifier) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.notes = "gone afterwards";
    event.recurrenceRules = {"FREQ=DAILY"};
    ASSERT_TRUE(save(event)) << error;
    EKEvent moved = sampleEvent("zorel-a-1");
    moved.startDate += std::chrono::hours{24};
    moved.endDate += std::chrono::hours{24};
    ASSERT_TRUE(save(moved)) << error;
    EXPECT_TRUE(sameEvent(saved("zorel-a-1"), moved));
    EXPECT_THAT(calendar->identifiersWithPrefix(""), ElementsAre("zorel-a-1"));
}

TEST_P(CalendarContract, SavingTheSameTwiceIsFine) {
    ASSERT_TRUE(save(sampleEvent("zorel-a-1"))) << error;
    ASSERT_TRUE(save(sampleEvent("zorel-a-1"))) << error;
    EXPECT_TRUE(sameEvent(saved("zorel-a-1"), sampleEvent("zorel-a-1")));
}

TEST_P(CalendarContract, EndsOneMinuteAfterTheStartWhenTheEndLiesBefore) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.endDate = event.startDate - std::chrono::hours{24} + std::chrono::minutes{1};
    ASSERT_TRUE(save(event)) << error;
    EXPECT_EQ(saved("zorel-a-1").startDate, event.startDate);
    EXPECT_EQ(saved("zorel-a-1").endDate, event.startDate + std::chrono::minutes{1});
    EXPECT_TRUE(save(event));
}

TEST_P(CalendarContract, EndsOneMinuteAfterTheStartWhenTheyAreEqual) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.endDate = event.startDate;
    ASSERT_TRUE(save(event)) << error;
    EXPECT_EQ(saved("zorel-a-1").endDate, event.startDate + std::chrono::minutes{1});
}

TEST_P(CalendarContract, ListsIdentifiersByTheirBeginning) {
    ASSERT_TRUE(save(sampleEvent("zorel-a-1")));
    ASSERT_TRUE(save(sampleEvent("zorel-a-2")));
    ASSERT_TRUE(save(sampleEvent("zorel-b-1")));
    EXPECT_THAT(calendar->identifiersWithPrefix("zorel-a-"), UnorderedElementsAre("zorel-a-1", "zorel-a-2"));
    EXPECT_THAT(calendar->identifiersWithPrefix("zorel-c-"), IsEmpty());
}

TEST_P(CalendarContract, RemovesOneEventOnly) {
    ASSERT_TRUE(save(sampleEvent("zorel-a-1")));
    ASSERT_TRUE(save(sampleEvent("zorel-a-2")));
    EXPECT_TRUE(calendar->removeEvent("zorel-a-1", error));
    EXPECT_FALSE(calendar->eventWithIdentifier("zorel-a-1"));
    EXPECT_TRUE(calendar->eventWithIdentifier("zorel-a-2"));
    EXPECT_FALSE(calendar->removeEvent("zorel-a-1", error));
}

TEST_P(CalendarContract, DoesNotConfuseIdentifiersThatContainEachOther) {
    ASSERT_TRUE(save(sampleEvent("zorel-a-11")));
    EXPECT_FALSE(calendar->eventWithIdentifier("zorel-a-1"));
    EXPECT_FALSE(calendar->removeEvent("zorel-a-1", error));
}

TEST_P(CalendarContract, RefusesAnEventWithoutIdentifier) {
    EXPECT_FALSE(save(sampleEvent("")));
    EXPECT_NE(error, "");
    EXPECT_THAT(calendar->identifiersWithPrefix(""), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, CalendarContract,
                         testing::Values(CalendarCase{"Memory",
                                                      [](const std::string&) {
                                                          return std::make_unique<MemoryCalendar>();
                                                      }},
                                         CalendarCase{"Folder",
                                                      [](const std::string& folder) {
                                                          return std::make_unique<FolderCalendar>(folder);
                                                      }}),
                         [](const auto& one) { return one.param.name; });

} // namespace
} // namespace zorel
