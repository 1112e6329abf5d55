// SPDX-License-Identifier: Apache-2.0
#include "tests/views/AlarmFixture.h"
#include "views/MessageView.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace zorel {
namespace {

using testing::UnorderedElementsAre;
using AlarmEditor = test::AlarmFixture;

TEST_F(AlarmEditor, ControlsHaveTheirPlaces) {
    EXPECT_EQ(view().alarmEnabled().frame(), (CGRect{264.5, 4.5, 51.0, 31.0}));
    EXPECT_EQ(view().alarmEnabled().tag(), 2004);
    EXPECT_FALSE(view().alarmEnabled().isOn());
    const std::pair<UIPickerView*, std::int32_t> pickers[] = {
        {&view().pickerTime(), 2001}, {&view().pickerMelody(), 2002}, {&view().pickerMelodyTime(), 2003}};
    for (const auto& [picker, tag] : pickers) {
        EXPECT_EQ(picker->frame(), (CGRect{0.0, 0.0, 240.0, 60.0}));
        EXPECT_EQ(picker->tag(), tag);
        EXPECT_FALSE(picker->accessibilityLabel().empty());
    }
    EXPECT_EQ(view().pickerTime().selectedRow(), 59);
    EXPECT_EQ(view().pickerMelodyTime().selectedRow(), 0);
    EXPECT_EQ(view().timeOffset(), 0);
    EXPECT_EQ(view().melodyTime(), 0);
}

TEST_F(AlarmEditor, TableIsTheOnlySubview) {
    UITableView& table = view().alarmTableView();
    EXPECT_EQ(view().subviews(), std::vector<UIView*>{&table});
    EXPECT_EQ(table.frame(), (CGRect{0.0, 0.0, 320.0, 568.0}));
    EXPECT_EQ(table.style(), UITableViewStyle::grouped);
    EXPECT_FALSE(table.autoresizesSubviews());
    EXPECT_EQ(table.backgroundColor(), UIColor::groupTableViewBackgroundColor());
    EXPECT_FALSE(table.allowsSelection());
    EXPECT_FALSE(table.allowsMultipleSelection());
    EXPECT_EQ(table.rowHeight(), 33.0);
    EXPECT_EQ(table.autoresizingMask(), 39U);
    EXPECT_EQ(table.tag(), 2000);
}

TEST_F(AlarmEditor, ListsEverythingBelowTheRingtoneFolder) {
    addRingtone("Bell.wav");
    addRingtone("more/Morning Call.m4r");
    EXPECT_THAT(melodies(), UnorderedElementsAre("Bell.wav", "more", "more/Morning Call.m4r"));
    for (std::size_t row = 0; row < view().melodyArray().size(); ++row) {
        const UIComboboxItem& item = view().melodyArray()[row];
        EXPECT_EQ(item.itemID, static_cast<std::int32_t>(row));
        EXPECT_EQ(item.displayText, pathWithoutExtension(item.originalText));
    }
    EXPECT_EQ(view().melodyName(), view().melodyArray().front().originalText);
    EXPECT_EQ(view().pickerMelody().numberOfRows(), 3);
    EXPECT_EQ(view().pickerMelody().selectedRow(), 0);
}

TEST_F(AlarmEditor, MissingOrEmptyRingtoneFolderGivesNoName) {
    EXPECT_TRUE(view().melodyArray().empty());
    EXPECT_EQ(view().melodyName(), "");
    EXPECT_EQ(view().pickerMelody().numberOfRows(), 0);
    view().setAlarmInfo(200);
    EXPECT_EQ(view().melodyName(), "");
    std::filesystem::create_directory(Locations::current().ringtones);
    const AlarmView second({}, glbFuncs, settings, dbFuncs);
    EXPECT_EQ(second.melodyName(), "");
}

TEST_F(AlarmEditor, OffersTheShippedTones) {
    Locations::current().ringtones = std::string(ZOREL_SOURCE_DIR) + "/resources/Ringtones";
    EXPECT_THAT(melodies(), UnorderedElementsAre("Dawn Bell.wav", "Evening Flute.wav", "Garden Chime.wav",
                                                 "Plucked Strings.wav", "Wood Blocks.wav"));
}

TEST_F(AlarmEditor, LoadsARecord) {
    addRingtone("Bell.wav");
    addRingtone("Flute.wav");
    store(3, "MINUTE = 10, ACTIVE = 1, MELODYTIME = 4, MELODYNAME = 'Flute.wav'");
    view().setAlarmInfo(202);
    EXPECT_EQ(view().prayerTag(), 202);
    EXPECT_TRUE(view().active());
    EXPECT_TRUE(view().alarmEnabled().isOn());
    EXPECT_EQ(view().timeOffset(), 10);
    EXPECT_EQ(view().pickerTime().selectedRow(), 69);
    EXPECT_EQ(view().melodyTime(), 4);
    EXPECT_EQ(view().pickerMelodyTime().selectedRow(), 4);
    EXPECT_EQ(view().melodyName(), "Flute.wav");
    EXPECT_EQ(view().pickerMelody().selectedRow(), rowOfMelody("Flute.wav"));
    EXPECT_TRUE(delegate.events.empty());
}

TEST_F(AlarmEditor, LoadingAnotherPrayerReplacesEverything) {
    addRingtone("Bell.wav");
    addRingtone("Flute.wav");
    store(3, "MINUTE = -59, ACTIVE = 1, MELODYTIME = 7, MELODYNAME = 'Flute.wav'");
    view().setAlarmInfo(202);
    EXPECT_EQ(view().pickerTime().selectedRow(), 0);
    view().setAlarmInfo(205);
    EXPECT_EQ(view().prayerTag(), 205);
    EXPECT_FALSE(view().active());
    EXPECT_FALSE(view().alarmEnabled().isOn());
    EXPECT_EQ(view().pickerTime().selectedRow(), 59);
    EXPECT_EQ(view().pickerMelodyTime().selectedRow(), 0);
    EXPECT_EQ(view().pickerMelody().selectedRow(), 0);
    EXPECT_EQ(view().melodyName(), view().melodyArray().front().originalText);
}

TEST_F(AlarmEditor, RingtoneInASubfolderMatchesByItsWholePathOnly) {
    addRingtone("a/Call.m4r");
    addRingtone("b/Call.m4r");
    for (const std::string name : {"a/Call.m4r", "b/Call.m4r"}) {
        store(1, "MELODYNAME = '" + name + "'");
        view().setAlarmInfo(200);
        EXPECT_EQ(view().melodyName(), name);
        EXPECT_EQ(view().pickerMelody().selectedRow(), rowOfMelody(name));
    }
    for (const std::string name : {"Call.m4r", "b/Call", "B/Call.m4r"}) {
        store(1, "MELODYNAME = '" + name + "'");
        view().setAlarmInfo(200);
        EXPECT_EQ(view().melodyName(), view().melodyArray().front().originalText) << name;
        EXPECT_EQ(view().pickerMelody().selectedRow(), 0) << name;
    }
}

TEST_F(AlarmEditor, VanishedRingtoneLeavesTheRecordAlone) {
    addRingtone("Bell.wav");
    store(1, "MELODYNAME = 'Gone.wav'");
    view().setAlarmInfo(200);
    EXPECT_EQ(view().melodyName(), "Bell.wav");
    EXPECT_EQ(dbFuncs.getAlarmInfo(200).melodyName, "Gone.wav");
}

TEST_F(AlarmEditor, RecordsThatNobodyCouldHaveMadeAreShown) {
    for (const std::string minute : {"2147483647", "-2147483648", "60", "'x'"}) {
        store(1, fmt::format("MINUTE = {0}, MELODYTIME = {0}", minute));
        view().setAlarmInfo(200);
        EXPECT_GE(view().pickerTime().selectedRow(), 0);
        EXPECT_LE(view().pickerTime().selectedRow(), 118);
        EXPECT_LE(view().pickerMelodyTime().selectedRow(), 7);
    }
}

TEST_F(AlarmEditor, MissingDatabaseShowsDefaults) {
    std::filesystem::remove(dbFuncs.userDBPath());
    view().setAlarmInfo(201);
    EXPECT_FALSE(view().alarmEnabled().isOn());
    EXPECT_EQ(view().timeOffset(), 0);
    EXPECT_EQ(view().pickerTime().selectedRow(), 59);
}

TEST_F(AlarmEditor, SwitchReportsItself) {
    view().alarmEnabled().userToggles();
    EXPECT_EQ(delegate.events, (std::vector<test::AlarmEvents::Event>{{"enabled", 2004, &view()}}));
    EXPECT_TRUE(view().alarmEnabled().isOn());
    view().alarmEnabled().userToggles();
    EXPECT_FALSE(view().alarmEnabled().isOn());
    EXPECT_EQ(delegate.events.size(), 2U);
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

TEST_F(AlarmEditor, RefusedSwitchIsTurnedBackWithAMessage) {
    delegate.answer = -1;
    view().alarmEnabled().userToggles();
    EXPECT_FALSE(view().alarmEnabled().isOn());
    EXPECT_EQ(delegate.events.size(), 1U) << "turning it back is not a change of the user's";
    ASSERT_NE(MessageView::toasts(), nullptr);
    const MessageView& toast = *MessageView::toasts()->front();
    EXPECT_EQ(toast.textLabel().text(), "Please add a city first");
    EXPECT_EQ(toast.superview(), &view());
}

TEST_F(AlarmEditor, AnyOtherAnswerLeavesTheSwitch) {
    for (const int answer : {0, 1, -2, 200}) {
        delegate.answer = answer;
        view().alarmEnabled().setOn(false);
        view().alarmEnabled().userToggles();
        EXPECT_TRUE(view().alarmEnabled().isOn()) << answer;
    }
    EXPECT_EQ(MessageView::toasts(), nullptr);
}

TEST_F(AlarmEditor, WithoutADelegateTheControlsStillTurn) {
    view().setDelegate(nullptr);
    view().alarmEnabled().userToggles();
    view().pickerTime().userPicksRow(3);
    view().pickerMelodyTime().userPicksRow(3);
    EXPECT_TRUE(view().alarmEnabled().isOn());
    EXPECT_EQ(view().timeOffset(), -56);
    EXPECT_EQ(view().melodyTime(), 3);
    EXPECT_EQ(view().delegate(), nullptr);
}

TEST_F(AlarmEditor, DelegateMayTakeTheViewAway) {
    struct Destroyer : test::AlarmEvents {
        int delegateAlarmView_AlarmEnabledChanged(UISwitch&, AlarmView&) override {
            RunLoop::main().disposeLater(std::move(victim));
            return -1;
        }
        std::unique_ptr<AlarmView> victim;
    } destroyer;
    destroyer.victim = std::make_unique<AlarmView>(CGRect{}, glbFuncs, settings, dbFuncs);
    destroyer.victim->setDelegate(&destroyer);
    destroyer.victim->alarmEnabled().userToggles();
    EXPECT_EQ(destroyer.victim, nullptr);
}

TEST_F(AlarmEditor, FieldsCanBeSet) {
    view().setActive(true);
    view().setPrayerTag(204);
    view().setTimeOffset(-5);
    view().setMelodyTime(2);
    view().setMelodyName("x.wav");
    EXPECT_TRUE(view().active());
    EXPECT_EQ(view().prayerTag(), 204);
    EXPECT_EQ(view().timeOffset(), -5);
    EXPECT_EQ(view().melodyTime(), 2);
    EXPECT_EQ(view().melodyName(), "x.wav");
}

} // namespace
} // namespace zorel
