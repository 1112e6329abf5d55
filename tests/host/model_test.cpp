// SPDX-License-Identifier: Apache-2.0
#include "host/Host.h"
#include "host/PickerModel.h"
#include "host/TableModel.h"
#include "tests/host/TestPane.h"

#include <gtest/gtest.h>

#include <memory>

namespace zorel {
namespace {

class TableModelTest : public testing::Test {
protected:
    Host host;
    test::TestPane pane;
    TableHandle& handle = *static_cast<TableHandle*>(host.handle(&pane.table()));
    TableModel& model = *static_cast<TableModel*>(handle.model());

    [[nodiscard]] QVariant at(int entry, int role) const { return model.data(model.index(entry), role); }
    [[nodiscard]] QStringList kinds() const {
        QStringList list;
        for (int entry = 0; entry < model.rowCount(); ++entry) {
            list << at(entry, TableModel::kindRole).toString();
        }
        return list;
    }
};

TEST_F(TableModelTest, IsOneListOfHeadersRowsAndFootersWithSectionsThatHaveNoRows) {
    EXPECT_EQ(kinds(), QStringList({"header", "row", "row", "row", "header", "row", "row", "row", "header",
                                    "footer"}));
    EXPECT_EQ(at(4, TableModel::titleRole), "Controls");
    EXPECT_EQ(at(9, TableModel::titleRole), "A footer that says how it all works.");
    EXPECT_EQ(at(0, TableModel::accessoryRole).value<ViewHandle*>()->view(), &pane.header);
}

TEST_F(TableModelTest, TellsWhatARowShows) {
    EXPECT_EQ(at(1, TableModel::textRole), "Alpha");
    EXPECT_EQ(at(1, TableModel::heightRole), 60.0);
    EXPECT_TRUE(at(1, TableModel::deletableRole).toBool());
    EXPECT_TRUE(at(1, TableModel::firstRole).toBool());
    EXPECT_FALSE(at(1, TableModel::lastRole).toBool());
    EXPECT_TRUE(at(3, TableModel::lastRole).toBool());
    EXPECT_FALSE(at(5, TableModel::deletableRole).toBool());
    EXPECT_EQ(at(5, TableModel::accessoryRole).value<ViewHandle*>()->kind(), "switch");
    EXPECT_EQ(at(6, TableModel::accessoryRole).value<ViewHandle*>()->kind(), "picker");
    EXPECT_TRUE(at(7, TableModel::disclosureRole).toBool());
    EXPECT_FALSE(at(99, TableModel::textRole).isValid());
}

TEST_F(TableModelTest, FollowsAReloadAndIgnoresRowsOfTheFormerOne) {
    const int before = at(1, TableModel::generationRole).toInt();
    model.remove(0, 0);
    EXPECT_TRUE(at(1, TableModel::removingRole).toBool());
    model.finishRemoval();
    EXPECT_EQ(kinds().count("row"), 5);
    EXPECT_EQ(at(1, TableModel::textRole), "Beta");
    UITableViewCell* cell = pane.table().cellForRowAtIndexPath({0, 0});
    model.hide(0, 0, before);
    EXPECT_EQ(pane.table().cellForRowAtIndexPath({0, 0}), cell) << "the new row is still on show";
    const int made = pane.cellsMade;
    model.hide(0, 0, at(1, TableModel::generationRole).toInt());
    EXPECT_NE(pane.table().cellForRowAtIndexPath({0, 0}), nullptr);
    EXPECT_EQ(pane.cellsMade, made) << "the cell was reused";
}

TEST_F(TableModelTest, HandlesOutliveTheirViews) {
    auto view = std::make_unique<UIView>(CGRect{0.0, 0.0, 10.0, 10.0});
    ViewHandle* known = host.handle(view.get());
    EXPECT_EQ(host.handle(view.get()), known);
    view.reset();
    EXPECT_EQ(known->view(), nullptr);
    EXPECT_EQ(known->viewWidth(), 0.0);
    EXPECT_FALSE(known->operable());
    known->activate();
    known->resize(1.0, 1.0);
}

TEST_F(TableModelTest, ActivatingAViewTapsTheControlInIt) {
    UITableViewCell* cell = pane.table().cellForRowAtIndexPath({0, 1});
    auto* counter = static_cast<test::TapCounter*>(cell->accessoryView());
    ViewHandle* accessory = host.handle(counter);
    EXPECT_TRUE(accessory->operable());
    accessory->activate();
    EXPECT_EQ(counter->taps, 1);
    counter->setEnabled(false);
    EXPECT_FALSE(accessory->operable());
}

TEST_F(TableModelTest, PickerRowsAreTexts) {
    auto& picker = *static_cast<PickerHandle*>(host.handle(&pane.wheel));
    auto& rows = *static_cast<PickerModel*>(picker.model());
    EXPECT_EQ(rows.rowCount(), 10);
    EXPECT_EQ(rows.data(rows.index(3), Qt::DisplayRole), "Row 3");
    EXPECT_EQ(picker.selectedRow(), 4);
    EXPECT_EQ(picker.selectedText(), "Row 4");
    picker.pick(7);
    EXPECT_EQ(pane.picked, 7);
    EXPECT_EQ(picker.selectedRow(), 7);
}

TEST_F(TableModelTest, SwitchesFlip) {
    auto& flag = *static_cast<SwitchHandle*>(host.handle(&pane.flag));
    EXPECT_FALSE(flag.on());
    flag.toggle();
    EXPECT_TRUE(flag.on());
    EXPECT_EQ(pane.flips, 1);
}

} // namespace
} // namespace zorel
