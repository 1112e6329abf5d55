// SPDX-License-Identifier: Apache-2.0
/// @file
/// A small pane with one of everything that the host can show.
#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/uikit/UIActionSheet.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIPickerView.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UISwitch.h"
#include "platform/uikit/UIViewController.h"

#include <memory>
#include <string>
#include <vector>

namespace zorel::test {

/// A control that counts its taps.
class TapCounter : public UIControl {
public:
    explicit TapCounter(const CGRect& frame) : UIControl(frame) {}
    int taps = 0;
    int draws = 0;
    void drawRect(CGContext& context) override {
        ++draws;
        context.setFillColor(UIColor::colorWithRed(1.0, 0.0, 0.0, 1.0));
        context.addRect(bounds());
        context.drawPath(CGPathDrawingMode::fillStroke);
    }
    void touchesEnded(const UITouch& touch) override;
};

/// Section 0: rows with a drawn control each, which can be deleted; section 1: a switch, a wheel, a row that
/// opens a second screen; section 2: a footer without rows.
class TestPane : public PSListController, public UIPickerViewDataSource, public UIPickerViewDelegate {
public:
    TestPane();

    std::vector<std::string> names{"Alpha", "Beta", "Gamma"};
    UISwitch flag{CGRect{0.0, 0.0, 51.0, 31.0}};
    UIPickerView wheel{CGRect{0.0, 0.0, 240.0, 60.0}};
    UILabel headerLabel{CGRect{16.0, 0.0, 200.0, 40.0}};
    UIView header{CGRect{0.0, 0.0, 390.0, 40.0}};
    std::string detail; ///< second text of the row that opens a screen
    int flips = 0;
    int picked = -1;
    int cellsMade = 0;

    UIView secondView{CGRect{0.0, 64.0, 390.0, 700.0}};
    UISearchBar searchBar{CGRect{0.0, 0.0, 390.0, 44.0}};
    UIViewController second;

    const std::vector<PSSpecifier>& specifiers() override { return specifiers_; }
    int numberOfSectionsInTableView(UITableView& table) override;
    int numberOfRowsInSection(UITableView& table, int section) override;
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table, NSIndexPath path) override;
    std::string titleForHeaderInSection(UITableView& table, int section) override;
    std::string titleForFooterInSection(UITableView& table, int section) override;
    std::string detailForRowAtIndexPath(UITableView& table, NSIndexPath path) override;
    double heightForHeaderInSection(UITableView& table, int section) override;
    double heightForRowAtIndexPath(UITableView& table, NSIndexPath path) override;
    UIView* viewForHeaderInSection(UITableView& table, int section) override;
    UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView& table, NSIndexPath path) override;
    void commitEditingStyle(UITableView& table, UITableViewCellEditingStyle style, NSIndexPath path) override;
    void didSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override;
    int numberOfComponentsInPickerView(UIPickerView& picker) override;
    int numberOfRowsInComponent(UIPickerView& picker, int component) override;
    std::unique_ptr<UIView> viewForRow(UIPickerView& picker, int row, int component,
                                       std::unique_ptr<UIView> reusing) override;
    void didSelectRow(UIPickerView& picker, int row, int component) override;

private:
    void fillControlRow(UITableViewCell& cell, int row);

    std::vector<PSSpecifier> specifiers_;
};

} // namespace zorel::test
