// SPDX-License-Identifier: Apache-2.0
// The alarms while the user database cannot be opened: nothing is promised, and no event is lost.
#include "tests/eventkit/MemoryCalendar.h"
#include "tests/support/AlarmWorld.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace zorel {
namespace {

/// Two alarms are set; then a folder stands in the place of the database.
class UnreadableAlarms : public testing::Test {
protected:
    UnreadableAlarms() {
        EKEventStore::setCalendar(calendar_);
        functions().updateAlarmDefinitions(200, 0, 5.5, "Chime", 2);
        functions().updateAlarmDefinitions(204, -10, 18.25, "Chime", 2);
        std::filesystem::rename(functions().userDBPath(), world_.path("aside"));
        std::filesystem::create_directory(functions().userDBPath());
        before_ = identifiers();
    }
    ~UnreadableAlarms() override { EKEventStore::setCalendar(nullptr); }

    [[nodiscard]] DatabaseFunctions& functions() { return world_.functions; }
    [[nodiscard]] std::vector<std::string> identifiers() const {
        return calendar_->identifiersWithPrefix("");
    }

    std::shared_ptr<MemoryCalendar> calendar_ = std::make_shared<MemoryCalendar>();
    test::AlarmWorld world_;
    std::vector<std::string> before_;
};

TEST_F(UnreadableAlarms, AreToldAsUnset) {
    ASSERT_EQ(before_.size(), 2U);
    const AlarmInfo info = functions().getAlarmInfo(200);
    EXPECT_FALSE(info.active);
    EXPECT_EQ(info.timeOffset, 0);
    EXPECT_EQ(info.melodyName, "");
}

TEST_F(UnreadableAlarms, KeepTheirEventsThroughEveryOperation) {
    const City city = test::cityWithTimes(world_.glbFuncs, {5.0, 6.5, 12.0, 15.0, 18.0, 19.5});
    functions().reCalculateAlarm(200);
    functions().updateAlarmPrayerTime(204, 18.5);
    functions().updateAlarmDefinitions(201, 5, 6.5, "Chime", 2);
    functions().setAllAlarms(city);
    functions().deleteAlarm(200);
    functions().clearAllAlarms(true);
    EXPECT_EQ(identifiers(), before_);
    EXPECT_NE(world_.log().find("DB not opened"), std::string::npos);
}

TEST_F(UnreadableAlarms, AreFoundAgainAfterwards) {
    functions().clearAllAlarms(true);
    std::filesystem::remove(functions().userDBPath());
    std::filesystem::rename(world_.path("aside"), functions().userDBPath());
    EXPECT_TRUE(functions().getAlarmInfo(204).active);
    EXPECT_EQ(functions().getAlarmInfo(204).timeOffset, -10);
    functions().clearAllAlarms(true);
    EXPECT_TRUE(identifiers().empty());
}

} // namespace
} // namespace zorel
