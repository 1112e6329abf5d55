// SPDX-License-Identifier: Apache-2.0
// What the alarm editor's table and pickers show, and what turning a picker reports.
#include "platform/uikit/UILabel.h"
#include "tests/views/AlarmFixture.h"

namespace zorel {
namespace {

using AlarmRows = test::AlarmFixture;
using Event = test::AlarmEvents::Event;

const UILabel& labelOf(UIPickerView& picker, int row) {
    return dynamic_cast<const UILabel&>(*picker.viewForRow(row));
}

TEST_F(AlarmRows, TableHasFourSectionsOfOneRow) {
    UITableView& table = view().alarmTableView();
    EXPECT_EQ(table.numberOfSections(), 4);
    const std::string titles[] = {"", "Alarm time", "Ringtone", "Ringing duration"};
    for (int section = 0; section < 4; ++section) {
        EXPECT_EQ(table.numberOfRowsInSection(section), 1);
        EXPECT_EQ(table.titleForHeader(section), titles[section]);
        EXPECT_EQ(table.heightForHeader(section), section == 0 ? 0.0 : 40.0);
        EXPECT_EQ(table.heightForRow({section, 0}), section == 0 ? 40.0 : 60.0);
        EXPECT_FALSE(table.canDeleteRow({section, 0}));
    }
}

TEST_F(AlarmRows, CellsCarryTheControls) {
    UITableView& table = view().alarmTableView();
    UIView* controls[] = {&view().alarmEnabled(), &view().pickerTime(), &view().pickerMelody(),
                          &view().pickerMelodyTime()};
    for (int reload = 0; reload < 3; ++reload) {
        for (int section = 0; section < 4; ++section) {
            UITableViewCell* cell = table.cellForRowAtIndexPath({section, 0});
            EXPECT_EQ(cell->reuseIdentifier(), "Alarm");
            EXPECT_EQ(cell->accessoryView(), controls[section]);
            EXPECT_EQ(controls[section]->superview(), cell);
            EXPECT_EQ(cell->textLabel().text(), section == 0 ? "Alarm" : "");
        }
        table.reloadData();
        RunLoop::main().advance(0.1);
    }
}

TEST_F(AlarmRows, OffsetsRunFrom59BeforeTo59After) {
    UIPickerView& picker = view().pickerTime();
    ASSERT_EQ(picker.numberOfRows(), 119);
    EXPECT_EQ(view().numberOfComponentsInPickerView(picker), 1);
    EXPECT_EQ(labelOf(picker, 0).text(), "59 min before");
    EXPECT_EQ(labelOf(picker, 58).text(), "1 min before");
    EXPECT_EQ(labelOf(picker, 59).text(), "At prayer time");
    EXPECT_EQ(labelOf(picker, 60).text(), "1 min after");
    EXPECT_EQ(labelOf(picker, 118).text(), "59 min after");
    for (int row = 0; row < 119; ++row) {
        EXPECT_EQ(labelOf(picker, row).tag(), row - 59);
    }
}

TEST_F(AlarmRows, PickingAnOffsetReportsIt) {
    const std::pair<int, int> picks[] = {{0, -59}, {59, 0}, {118, 59}, {69, 10}};
    for (const auto& [row, minutes] : picks) {
        view().pickerTime().userPicksRow(row);
        EXPECT_EQ(view().timeOffset(), minutes);
        EXPECT_EQ(delegate.events.back(), (Event{"time", 2001, &view()}));
    }
    EXPECT_EQ(delegate.events.size(), 4U);
}

TEST_F(AlarmRows, RowViewsAreBlackOnWhite) {
    const UILabel& label = labelOf(view().pickerTime(), 59);
    EXPECT_EQ(label.textColor(), UIColor::blackColor());
    EXPECT_EQ(label.backgroundColor(), UIColor::whiteColor());
    EXPECT_EQ(label.textAlignment(), UITextAlignment::center);
    EXPECT_EQ(label.font(), (UIFont{"Verdana", 20.0}));
}

TEST_F(AlarmRows, DurationsAreTheEightTexts) {
    UIPickerView& picker = view().pickerMelodyTime();
    ASSERT_EQ(picker.numberOfRows(), 8);
    const std::string texts[] = {"5 seconds", "10 seconds", "20 seconds", "30 seconds",
                                 "1 minute",  "2 minutes",  "3 minutes",  "5 minutes"};
    for (int row = 0; row < 8; ++row) {
        EXPECT_EQ(labelOf(picker, row).text(), texts[row]);
        EXPECT_EQ(labelOf(picker, row).tag(), row);
        EXPECT_EQ(view().melodyTimeArray()[static_cast<std::size_t>(row)].originalText, "");
    }
}

/// The delegate always gets the offset picker, whichever wheel was turned.
TEST_F(AlarmRows, PickingARingtoneOrADurationHandsOverTheOffsetPicker) {
    addRingtone("Bell.wav");
    addRingtone("Flute.wav");
    const int flute = rowOfMelody("Flute.wav");
    EXPECT_EQ(labelOf(view().pickerMelody(), flute).text(), "Flute");
    EXPECT_EQ(labelOf(view().pickerMelody(), flute).tag(), flute);
    view().pickerMelody().userPicksRow(flute);
    EXPECT_EQ(view().melodyName(), "Flute.wav");
    EXPECT_EQ(delegate.events.back(), (Event{"name", 2001, &view()}));
    view().pickerMelodyTime().userPicksRow(7);
    EXPECT_EQ(view().melodyTime(), 7);
    EXPECT_EQ(delegate.events.back(), (Event{"duration", 2001, &view()}));
    EXPECT_EQ(delegate.events.size(), 2U);
    EXPECT_EQ(view().timeOffset(), 0);
}

TEST_F(AlarmRows, PickingOutsideTheRowsIsIgnored) {
    for (const int row : {-1, 119, 100000}) {
        view().pickerTime().userPicksRow(row);
        view().didSelectRow(view().pickerTime(), row, 0);
    }
    EXPECT_TRUE(delegate.events.empty());
    EXPECT_EQ(view().timeOffset(), 0);
}

TEST_F(AlarmRows, StrangePickersAreIgnored) {
    UIPickerView other;
    other.setTag(7);
    EXPECT_EQ(view().numberOfRowsInComponent(other, 0), 0);
    view().didSelectRow(other, 0, 0);
    EXPECT_TRUE(delegate.events.empty());
}

TEST_F(AlarmRows, TextsWithoutOrWithTwoPlaceholdersAreShownAsTheyAre) {
    const std::string bundle = locations.folder.path("odd.bundle");
    test::writeFile(
        bundle + "/en.lproj/en.plist",
        "<plist version=\"1.0\"><dict><key>COMMON</key><dict><key>1033</key><string>early %s %n</string>"
        "<key>1034</key><string>%d of %d</string></dict></dict></plist>");
    Locations::current().bundle = bundle;
    const GlobalFuncs funcs;
    AlarmView odd({0.0, 0.0, 320.0, 568.0}, funcs, settings, dbFuncs);
    EXPECT_EQ(labelOf(odd.pickerTime(), 0).text(), "early %s %n");
    EXPECT_EQ(labelOf(odd.pickerTime(), 61).text(), "2 of %d");
    EXPECT_EQ(labelOf(odd.pickerTime(), 59).text(), "");
}

TEST_F(AlarmRows, SpeakTurkish) {
    const LocaleOverride turkish("tr_TR");
    const GlobalFuncs funcs;
    AlarmView turkishView({0.0, 0.0, 320.0, 568.0}, funcs, settings, dbFuncs);
    EXPECT_EQ(labelOf(turkishView.pickerTime(), 0).text(), "59 dakika önce");
    EXPECT_EQ(turkishView.alarmTableView().titleForHeader(2), "Zil sesi");
}

} // namespace
} // namespace zorel
