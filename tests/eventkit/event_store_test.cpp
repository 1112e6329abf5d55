// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/EKEventStore.h"
#include "platform/foundation/Locations.h"
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/eventkit/SampleEvent.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

namespace zorel {
namespace {

class EventStore : public testing::Test {
protected:
    EventStore() { EKEventStore::setCalendar(memory); }
    ~EventStore() override { EKEventStore::setCalendar(nullptr); }

    static EKEvent newEvent(const EKEventStore& store) {
        EKEvent event = EKEvent::eventWithEventStore(store);
        event.title = "Prayer Alarm";
        event.startDate = kSampleStart;
        event.endDate = kSampleStart + std::chrono::minutes{1};
        event.calendar = store.defaultCalendarForNewEvents();
        return event;
    }

    std::shared_ptr<MemoryCalendar> memory = std::make_shared<MemoryCalendar>();
};

TEST_F(EventStore, ANewEventIsEmptyAndHasNoIdentifier) {
    const EKEvent event = EKEvent::eventWithEventStore(EKEventStore());
    EXPECT_EQ(event.eventIdentifier, "");
    EXPECT_EQ(event.title, "");
    EXPECT_FALSE(event.calendar);
    EXPECT_FALSE(event.notes);
    EXPECT_TRUE(event.alarms.empty());
}

TEST_F(EventStore, SavingGivesAnIdentifierThatStays) {
    const EKEventStore store({"0123"});
    EKEvent event = newEvent(store);
    ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    const std::string identifier = event.eventIdentifier;
    EXPECT_THAT(identifier, testing::MatchesRegex("zorel-0123-[0-9a-f]{32}"));
    event.startDate += std::chrono::hours{1};
    ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    EXPECT_EQ(event.eventIdentifier, identifier);
    EXPECT_EQ(memory->events.size(), 1U);
    EXPECT_EQ(EKEventStore().eventWithIdentifier(identifier)->startDate, event.startDate);
}

TEST_F(EventStore, IdentifiersDiffer) {
    const EKEventStore store;
    for (int count = 0; count < 100; ++count) {
        EKEvent event = newEvent(store);
        ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    }
    EXPECT_EQ(memory->events.size(), 100U);
}

TEST_F(EventStore, ARefusedNewEventStaysWithoutIdentifier) {
    memory->refusesSaving = true;
    const EKEventStore store;
    EKEvent event = newEvent(store);
    std::string error;
    EXPECT_FALSE(store.saveEvent(event, EKSpan::thisEvent, &error));
    EXPECT_EQ(error, "refused");
    EXPECT_EQ(event.eventIdentifier, "");
}

TEST_F(EventStore, ARefusedChangeKeepsTheIdentifier) {
    const EKEventStore store;
    EKEvent event = newEvent(store);
    ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    const std::string identifier = event.eventIdentifier;
    memory->refusesSaving = true;
    EXPECT_FALSE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    EXPECT_EQ(event.eventIdentifier, identifier);
}

TEST_F(EventStore, AnEventWithoutCalendarIsRefused) {
    const EKEventStore store;
    EKEvent event = newEvent(store);
    event.calendar.reset();
    std::string error;
    EXPECT_FALSE(store.saveEvent(event, EKSpan::thisEvent, &error));
    EXPECT_NE(error, "");
    EXPECT_TRUE(memory->handedOver.empty());
}

TEST_F(EventStore, RemovesAnEvent) {
    const EKEventStore store;
    EKEvent event = newEvent(store);
    ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    EXPECT_TRUE(store.removeEvent(event, EKSpan::thisEvent, nullptr));
    EXPECT_FALSE(store.eventWithIdentifier(event.eventIdentifier));
    std::string error;
    EXPECT_FALSE(store.removeEvent(event, EKSpan::thisEvent, &error));
    EXPECT_NE(error, "");
}

TEST_F(EventStore, SweepsOnlyEventsOfItsOwner) {
    const EKEventStore mine({"aaaa"});
    EKEvent kept = newEvent(mine);
    EKEvent lost = newEvent(mine);
    EKEvent other = newEvent(mine);
    ASSERT_TRUE(mine.saveEvent(kept, EKSpan::thisEvent, nullptr));
    ASSERT_TRUE(mine.saveEvent(lost, EKSpan::thisEvent, nullptr));
    ASSERT_TRUE(EKEventStore({"bbbb"}).saveEvent(other, EKSpan::thisEvent, nullptr));
    memory->events["dentist"] = sampleEvent("dentist");
    EXPECT_EQ(mine.removeEventsExcept(std::vector<std::string>{kept.eventIdentifier, ""}), 1);
    EXPECT_TRUE(mine.eventWithIdentifier(kept.eventIdentifier));
    EXPECT_FALSE(mine.eventWithIdentifier(lost.eventIdentifier));
    EXPECT_TRUE(mine.eventWithIdentifier(other.eventIdentifier));
    EXPECT_TRUE(mine.eventWithIdentifier("dentist"));
}

TEST_F(EventStore, AdoptsTheEventsOfItsFormerName) {
    const EKEventStore before({"aaaa"});
    EKEvent kept = newEvent(before);
    EKEvent lost = newEvent(before);
    ASSERT_TRUE(before.saveEvent(kept, EKSpan::thisEvent, nullptr));
    ASSERT_TRUE(before.saveEvent(lost, EKSpan::thisEvent, nullptr));
    const EKEventStore mine({"bbbb", "aaaa"});
    EKEvent fresh = newEvent(mine);
    ASSERT_TRUE(mine.saveEvent(fresh, EKSpan::thisEvent, nullptr));
    EXPECT_TRUE(fresh.eventIdentifier.starts_with("zorel-bbbb-"));
    std::string error;
    EXPECT_THAT(
        mine.ownIdentifiers(&error),
        testing::UnorderedElementsAre(kept.eventIdentifier, lost.eventIdentifier, fresh.eventIdentifier));
    EXPECT_EQ(error, "");
    EXPECT_EQ(mine.removeEventsExcept(std::vector<std::string>{kept.eventIdentifier, fresh.eventIdentifier}),
              1);
    EXPECT_TRUE(mine.eventWithIdentifier(kept.eventIdentifier));
    EXPECT_FALSE(mine.eventWithIdentifier(lost.eventIdentifier));
    EXPECT_EQ(before.removeEventsExcept({}), 1) << "the earlier version does not touch the new one's";
    EXPECT_TRUE(mine.eventWithIdentifier(fresh.eventIdentifier));
}

/// A calendar whose library throws.
class ThrowingCalendar final : public Calendar {
public:
    [[nodiscard]] EKCalendar description() const override { throw failure(); }
    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(const std::string&) override { throw failure(); }
    bool saveEvent(const EKEvent&, std::string&) override { throw failure(); }
    bool removeEvent(const std::string&, std::string&) override { throw failure(); }
    [[nodiscard]] std::vector<std::string> identifiersWithPrefix(const std::string&) override {
        throw failure();
    }

private:
    static std::runtime_error failure() { return std::runtime_error("out of order"); }
};

TEST_F(EventStore, AnExceptionOfTheCalendarIsAFailure) {
    EKEventStore::setCalendar(std::make_shared<ThrowingCalendar>());
    const EKEventStore store;
    EKEvent event = newEvent(store);
    EXPECT_EQ(event.calendar, EKCalendar());
    std::string error;
    EXPECT_FALSE(store.saveEvent(event, EKSpan::thisEvent, &error));
    EXPECT_EQ(error, "out of order");
    EXPECT_EQ(event.eventIdentifier, "");
    EXPECT_FALSE(store.removeEvent(event, EKSpan::thisEvent, &error));
    EXPECT_FALSE(store.eventWithIdentifier("x"));
    EXPECT_EQ(store.removeEventsExcept({}), 0);
}

TEST_F(EventStore, WithoutASetCalendarUsesTheFolderInTheDataDirectory) {
    EKEventStore::setCalendar(nullptr);
    const test::TemporaryLocations locations;
    const EKEventStore store;
    EKEvent event = newEvent(store);
    ASSERT_TRUE(store.saveEvent(event, EKSpan::thisEvent, nullptr));
    EXPECT_EQ(store.defaultCalendarForNewEvents().calendarIdentifier,
              Locations::current().data + "/calendar");
    EXPECT_TRUE(
        std::filesystem::exists(Locations::current().data + "/calendar/" + event.eventIdentifier + ".ics"));
}

} // namespace
} // namespace zorel
