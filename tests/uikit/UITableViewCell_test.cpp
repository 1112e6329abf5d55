// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITableViewCell.h"

#include "platform/uikit/RunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using testing::ElementsAre;

class CellTest : public testing::Test {
protected:
    ~CellTest() override { RunLoop::main().reset(); }

    UITableViewCell cell{"Alarm"};
};

TEST_F(CellTest, HasATextLabelAndNoAccessory) {
    EXPECT_EQ(cell.reuseIdentifier(), "Alarm");
    EXPECT_THAT(cell.subviews(), ElementsAre(&cell.textLabel()));
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_EQ(cell.accessoryType(), UITableViewCellAccessoryType::none);
    EXPECT_EQ(cell.kind(), UIViewKind::cell);
}

TEST_F(CellTest, TheTextFillsTheRow) {
    cell.setFrame({0, 0, 320, 40});
    EXPECT_EQ(cell.textLabel().frame(), (CGRect{15, 0, 290, 40}));
    cell.setAccessoryType(UITableViewCellAccessoryType::disclosureIndicator);
    EXPECT_EQ(cell.textLabel().frame(), (CGRect{15, 0, 272, 40}));
}

TEST_F(CellTest, TheAccessoryStandsAtTheRightInTheMiddle) {
    UIView knob(CGRect{500, 500, 51, 31});
    cell.setFrame({0, 0, 320, 40});
    cell.setAccessoryView(&knob);
    EXPECT_EQ(knob.superview(), &cell);
    EXPECT_EQ(knob.frame(), (CGRect{254, 4.5, 51, 31}));
    EXPECT_EQ(cell.textLabel().frame(), (CGRect{15, 0, 231.5, 40}));
}

TEST_F(CellTest, AnAccessoryTooWideBeginsAtTheLeft) {
    UIView wide(CGRect{0, 0, 400, 60});
    cell.setFrame({0, 0, 320, 60});
    cell.setAccessoryView(&wide);
    EXPECT_EQ(wide.frame(), (CGRect{0, 0, 400, 60}));
    EXPECT_EQ(cell.textLabel().frame().width, 0.0);
}

TEST_F(CellTest, AnAccessoryGivenOverIsDisposedOfAfterTheEvent) {
    auto owned = std::make_unique<UIView>();
    const UIWeak<UIView> weak(owned.get());
    cell.setAccessoryView(std::move(owned));
    EXPECT_EQ(cell.accessoryView(), weak.get());
    {
        const RunLoop::Event event;
        cell.setAccessoryView(nullptr);
        EXPECT_EQ(cell.accessoryView(), nullptr);
        ASSERT_NE(weak.get(), nullptr);
        EXPECT_EQ(weak.get()->superview(), nullptr);
    }
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(CellTest, ReplacingOneOwnedAccessoryByAnother) {
    cell.setAccessoryView(std::make_unique<UIView>());
    auto second = std::make_unique<UIView>();
    UIView* raw = second.get();
    cell.setAccessoryView(std::move(second));
    EXPECT_EQ(cell.accessoryView(), raw);
    EXPECT_THAT(cell.subviews(), ElementsAre(&cell.textLabel(), raw));
}

TEST_F(CellTest, SettingTheSameAccessoryAgainKeepsIt) {
    UIView knob;
    cell.setAccessoryView(&knob);
    cell.setAccessoryView(&knob);
    EXPECT_EQ(cell.accessoryView(), &knob);
    EXPECT_EQ(cell.subviews().size(), 2U);
}

TEST_F(CellTest, AnAccessoryMovesToTheCellThatAsksForItLast) {
    UITableViewCell other("Alarm");
    UIView knob;
    cell.setAccessoryView(&knob);
    other.setAccessoryView(&knob);
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_EQ(other.accessoryView(), &knob);
    cell.setAccessoryView(nullptr);
    EXPECT_EQ(knob.superview(), &other);
    cell.setAccessoryView(&knob);
    EXPECT_EQ(cell.accessoryView(), &knob);
    EXPECT_EQ(other.accessoryView(), nullptr);
}

TEST_F(CellTest, AnAccessoryMayBeDestroyedByItsOwner) {
    {
        UIView knob;
        cell.setAccessoryView(&knob);
    }
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_THAT(cell.subviews(), ElementsAre(&cell.textLabel()));
}

} // namespace
} // namespace zorel
