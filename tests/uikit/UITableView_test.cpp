// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITableView.h"

#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UITouch.h"
#include "tests/uikit/RecordingObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Rows of text in sections, with every question answered in a way that can be told apart.
struct Source : UITableViewDataSource, UITableViewDelegate {
    std::vector<int> rows{3, 6, 0};
    int made = 0;
    std::vector<NSIndexPath> selected;
    std::vector<NSIndexPath> deleted;
    UIView* header = nullptr;
    std::function<void(UITableView&)> onAction;

    int numberOfSectionsInTableView(UITableView&) override { return static_cast<int>(rows.size()); }
    int numberOfRowsInSection(UITableView&, int section) override {
        return rows.at(static_cast<std::size_t>(section));
    }
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        auto cell = table.dequeueReusableCellWithIdentifier("CellIdentifier");
        if (cell == nullptr) {
            ++made;
            cell = std::make_unique<UITableViewCell>("CellIdentifier");
        }
        cell->setTag(path.section * 100 + path.row);
        return cell;
    }
    std::string titleForHeaderInSection(UITableView&, int section) override {
        return "header " + std::to_string(section);
    }
    std::string titleForFooterInSection(UITableView&, int section) override {
        return section == 2 ? "footer" : "";
    }
    bool canEditRowAtIndexPath(UITableView&, NSIndexPath path) override { return path.section == 0; }
    void commitEditingStyle(UITableView& table, UITableViewCellEditingStyle style,
                            NSIndexPath path) override {
        EXPECT_EQ(style, UITableViewCellEditingStyle::deleteRow);
        deleted.push_back(path);
        act(table);
    }
    double heightForRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        return path.section == 0 ? 60.0 : UITableViewDelegate::heightForRowAtIndexPath(table, path);
    }
    double heightForHeaderInSection(UITableView&, int section) override { return section * 10.0; }
    UIView* viewForHeaderInSection(UITableView&, int section) override {
        return section == 0 ? header : nullptr;
    }
    UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView&, NSIndexPath path) override {
        return path.row < 2 ? UITableViewCellEditingStyle::deleteRow : UITableViewCellEditingStyle::none;
    }
    void didSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override {
        selected.push_back(path);
        act(table);
    }

private:
    void act(UITableView& table) const {
        if (onAction) {
            onAction(table);
        }
    }
};

class TableTest : public testing::Test {
protected:
    TableTest() {
        table.setDataSource(&source);
        table.setDelegate(&source);
    }
    ~TableTest() override { RunLoop::main().reset(); }

    Source source;
    UITableView table{CGRect{0, 0, 320, 480}, UITableViewStyle::grouped};
};

TEST(UITableViewAlone, IsEmpty) {
    UITableView table(CGRect{0, 0, 10, 10}, UITableViewStyle::plain);
    EXPECT_EQ(table.numberOfSections(), 0);
    EXPECT_EQ(table.numberOfRowsInSection(0), 0);
    EXPECT_EQ(table.cellForRowAtIndexPath({0, 0}), nullptr);
    EXPECT_EQ(table.titleForHeader(0), "");
    EXPECT_EQ(table.viewForHeader(0), nullptr);
    EXPECT_FALSE(table.canDeleteRow({0, 0}));
    table.userSelectsRow({0, 0});
    table.userDeletesRow({0, 0});
    table.reloadData();
    EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
    EXPECT_EQ(table.style(), UITableViewStyle::plain);
    EXPECT_EQ(table.kind(), UIViewKind::table);
    EXPECT_EQ(table.backgroundColor(), UIColor::whiteColor());
}

TEST_F(TableTest, AsksItsDataSourceAndDelegate) {
    table.setRowHeight(33.0);
    EXPECT_EQ(table.numberOfSections(), 3);
    EXPECT_EQ(table.numberOfRowsInSection(1), 6);
    EXPECT_EQ(table.heightForRow({0, 0}), 60.0);
    EXPECT_EQ(table.heightForRow({1, 0}), 33.0);
    EXPECT_EQ(table.heightForHeader(2), 20.0);
    EXPECT_EQ(table.titleForHeader(1), "header 1");
    EXPECT_EQ(table.titleForFooter(2), "footer");
    EXPECT_EQ(table.titleForFooter(0), "");
    table.setDelegate(nullptr);
    EXPECT_EQ(table.heightForRow({0, 0}), 33.0);
    EXPECT_EQ(table.heightForHeader(0), UITableViewAutomaticDimension);
}

TEST_F(TableTest, AsksNothingAboutWhatDoesNotExist) {
    for (const NSIndexPath path : {NSIndexPath{0, 3}, {0, -1}, {-1, 0}, {3, 0}, {2, 0}}) {
        EXPECT_FALSE(table.hasRow(path));
        EXPECT_EQ(table.cellForRowAtIndexPath(path), nullptr);
        EXPECT_EQ(table.heightForRow(path), 0.0);
        EXPECT_FALSE(table.canDeleteRow(path));
    }
    EXPECT_EQ(table.titleForHeader(3), "");
    EXPECT_EQ(table.titleForFooter(-1), "");
    EXPECT_EQ(table.heightForHeader(3), 0.0);
    source.rows[0] = -4;
    EXPECT_EQ(table.numberOfRowsInSection(0), 0);
}

TEST_F(TableTest, ACellIsMadeOnceAndSizedToItsRow) {
    UITableViewCell* cell = table.cellForRowAtIndexPath({0, 2});
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->tag(), 2);
    EXPECT_EQ(cell->frame(), (CGRect{0, 0, 320, 60}));
    EXPECT_EQ(cell->superview(), &table);
    EXPECT_EQ(table.cellForRowAtIndexPath({0, 2}), cell);
    EXPECT_EQ(source.made, 1);
    table.setFrame({0, 0, 500, 480});
    EXPECT_EQ(cell->frame(), (CGRect{0, 0, 500, 60}));
}

TEST_F(TableTest, CellsAreReusedWhenTheyLeaveTheScreen) {
    source.rows = {500};
    for (int row = 0; row < 500; ++row) {
        ASSERT_NE(table.cellForRowAtIndexPath({0, row}), nullptr);
        table.endDisplayingRow({0, row - 11});
    }
    EXPECT_EQ(source.made, 12);
    EXPECT_EQ(table.subviews().size(), 11U);
    table.endDisplayingRow({0, 7});
}

TEST_F(TableTest, OnlyCellsOfTheIdentifierAreReused) {
    table.cellForRowAtIndexPath({0, 0});
    table.reloadData();
    EXPECT_EQ(table.dequeueReusableCellWithIdentifier("Alarm"), nullptr);
    EXPECT_NE(table.dequeueReusableCellWithIdentifier("CellIdentifier"), nullptr);
    EXPECT_EQ(table.dequeueReusableCellWithIdentifier("CellIdentifier"), nullptr);
}

TEST_F(TableTest, CellsThatNobodyTakesBackDoNotPileUp) {
    source.rows = {1000};
    for (int row = 0; row < 1000; ++row) {
        table.cellForRowAtIndexPath({0, row});
    }
    RecordingObserver observer;
    {
        const RunLoop::Event event;
        table.reloadData();
    }
    EXPECT_EQ(source.made, 1000);
    EXPECT_GE(observer.count("destroyed"), 900);
}

TEST_F(TableTest, ReloadAsksForTheRowsAnew) {
    RecordingObserver observer;
    table.cellForRowAtIndexPath({0, 0});
    table.userSelectsRow({0, 0});
    observer.take();
    table.reloadData();
    EXPECT_THAT(observer.take(), ElementsAre("removed", "selection", "reloaded"));
    EXPECT_EQ(table.indexPathForSelectedRow(), std::nullopt);
    EXPECT_THAT(table.subviews(), IsEmpty());
    table.cellForRowAtIndexPath({0, 1});
    EXPECT_EQ(source.made, 1);
}

TEST_F(TableTest, TheUserSelectsARow) {
    table.userSelectsRow({1, 4});
    EXPECT_THAT(source.selected, ElementsAre(NSIndexPath{1, 4}));
    EXPECT_EQ(table.indexPathForSelectedRow(), (NSIndexPath{1, 4}));
    table.userSelectsRow({1, 6});
    EXPECT_EQ(source.selected.size(), 1U);
    table.setAllowsSelection(false);
    table.userSelectsRow({1, 5});
    EXPECT_EQ(source.selected.size(), 1U);
}

TEST_F(TableTest, OnlyEditableRowsOfTheDeleteStyleAreDeleted) {
    EXPECT_TRUE(table.canDeleteRow({0, 0}));
    EXPECT_FALSE(table.canDeleteRow({0, 2}));
    EXPECT_FALSE(table.canDeleteRow({1, 0}));
    table.userDeletesRow({0, 1});
    table.userDeletesRow({0, 2});
    table.userDeletesRow({1, 0});
    EXPECT_THAT(source.deleted, ElementsAre(NSIndexPath{0, 1}));
    table.setDelegate(nullptr);
    EXPECT_TRUE(table.canDeleteRow({0, 2}));
}

TEST_F(TableTest, HandlersMayReloadTheTable) {
    source.onAction = [](UITableView& one) {
        one.reloadData();
        one.cellForRowAtIndexPath({0, 0});
    };
    table.cellForRowAtIndexPath({0, 0});
    table.userSelectsRow({0, 0});
    source.rows[0] = 0;
    table.userSelectsRow({0, 0});
    table.userDeletesRow({0, 0});
    EXPECT_EQ(source.selected.size(), 1U);
    EXPECT_THAT(source.deleted, IsEmpty());
}

TEST_F(TableTest, ItsHeaderViewBecomesASubviewOfItsWidth) {
    EXPECT_EQ(table.viewForHeader(0), nullptr);
    UIView header(CGRect{0, 0, 100, 40});
    source.header = &header;
    EXPECT_EQ(table.viewForHeader(0), &header);
    EXPECT_EQ(table.viewForHeader(0), &header);
    EXPECT_EQ(header.superview(), &table);
    EXPECT_EQ(header.frame(), (CGRect{0, 0, 320, 40}));
    EXPECT_EQ(table.subviews().size(), 1U);
    EXPECT_EQ(table.viewForHeader(1), nullptr);
}

TEST_F(TableTest, TouchesStopAtTheTable) {
    table.cellForRowAtIndexPath({0, 0});
    EXPECT_EQ(table.hitTest({5, 5}), &table);
    EXPECT_EQ(table.hitTest({500, 5}), nullptr);
    table.setHidden(true);
    EXPECT_EQ(table.hitTest({5, 5}), nullptr);
}

/// An accessory that reloads the table and asks for the row again while its own touch handler runs.
struct ReloadingAccessory : UIView {
    explicit ReloadingAccessory(UITableView& owner) : UIView(CGRect{0, 0, 302, 60}), table(owner) {}
    UITableView& table;
    int touches = 0;
    void touchesEnded(const UITouch&) override {
        table.reloadData();
        table.cellForRowAtIndexPath({0, 0})->setAccessoryView(std::make_unique<UIView>());
        ++touches; // this object has to be there still
    }
};

TEST_F(TableTest, ACellsOwnTapMayReloadTheTable) {
    UITableViewCell* cell = table.cellForRowAtIndexPath({0, 0});
    auto accessory = std::make_unique<ReloadingAccessory>(table);
    const UIWeak<UIView> weak(accessory.get());
    cell->setAccessoryView(std::move(accessory));
    UITouchDispatcher finger(*cell);
    EXPECT_TRUE(finger.tap({160, 30}));
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(source.made, 1);
}

TEST_F(TableTest, ADestroyedTableLetsItsCellsGo) {
    UIView knob;
    {
        UITableView other(CGRect{0, 0, 320, 480}, UITableViewStyle::grouped);
        other.setDataSource(&source);
        other.cellForRowAtIndexPath({0, 0})->setAccessoryView(&knob);
        EXPECT_NE(knob.superview(), nullptr);
    }
    EXPECT_EQ(knob.superview(), nullptr);
}

} // namespace
} // namespace zorel
