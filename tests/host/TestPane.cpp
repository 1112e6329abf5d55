// SPDX-License-Identifier: Apache-2.0
#include "tests/host/TestPane.h"

#include "platform/uikit/UITouch.h"

namespace zorel::test {

void TapCounter::touchesEnded(const UITouch& touch) {
    if (bounds().contains(touch.locationInView(*this))) {
        ++taps;
    }
}

TestPane::TestPane() {
    navigationItem().setTitle("Pane");
    navigationItem().setBackBarButtonItem(UIBarButtonItem{"All", UIBarButtonItemStyle::bordered});
    flag.setValueChangedAction([this] { ++flips; });
    wheel.setDataSource(this);
    wheel.setDelegate(this);
    wheel.selectRow(4, false);
    headerLabel.setText("Header");
    header.addSubview(headerLabel);
    searchBar.setPlaceholder("Find");
    secondView.addSubview(searchBar);
    second.setView(&secondView);
    second.navigationItem().setTitle("Second");
}

int TestPane::numberOfSectionsInTableView(UITableView& /*table*/) {
    return 3;
}

int TestPane::numberOfRowsInSection(UITableView& /*table*/, int section) {
    return section == 0 ? static_cast<int>(names.size()) : (section == 1 ? 3 : 0);
}

std::unique_ptr<UITableViewCell> TestPane::cellForRowAtIndexPath(UITableView& table, NSIndexPath path) {
    std::unique_ptr<UITableViewCell> cell = table.dequeueReusableCellWithIdentifier("cell");
    if (!cell) {
        cell = std::make_unique<UITableViewCell>("cell");
        ++cellsMade;
    }
    cell->setAccessoryView(nullptr);
    cell->setAccessoryType(UITableViewCellAccessoryType::none);
    cell->textLabel().setText("");
    if (path.section == 0) {
        auto counter = std::make_unique<TapCounter>(CGRect{0.0, 0.0, 60.0, 30.0});
        cell->textLabel().setText(names[static_cast<std::size_t>(path.row)]);
        cell->setAccessoryView(std::move(counter));
    } else {
        fillControlRow(*cell, path.row);
    }
    return cell;
}

void TestPane::fillControlRow(UITableViewCell& cell, int row) {
    if (row == 0) {
        cell.textLabel().setText("Flag");
        cell.setAccessoryView(&flag);
    } else if (row == 1) {
        cell.setAccessoryView(&wheel);
    } else {
        cell.textLabel().setText("Open");
        cell.setAccessoryType(UITableViewCellAccessoryType::disclosureIndicator);
    }
}

std::string TestPane::titleForHeaderInSection(UITableView& /*table*/, int section) {
    return section == 1 ? "Controls" : "";
}

std::string TestPane::titleForFooterInSection(UITableView& /*table*/, int section) {
    return section == 2 ? "A footer that says how it all works." : "";
}

std::string TestPane::detailForRowAtIndexPath(UITableView& /*table*/, NSIndexPath path) {
    return path.section == 1 && path.row == 2 ? detail : std::string();
}

double TestPane::heightForHeaderInSection(UITableView& /*table*/, int /*section*/) {
    return 40.0;
}

double TestPane::heightForRowAtIndexPath(UITableView& /*table*/, NSIndexPath path) {
    return path.section == 0 ? 60.0 : (path.row == 1 ? 60.0 : 40.0);
}

UIView* TestPane::viewForHeaderInSection(UITableView& /*table*/, int section) {
    return section == 0 ? &header : nullptr;
}

UITableViewCellEditingStyle TestPane::editingStyleForRowAtIndexPath(UITableView& /*table*/,
                                                                    NSIndexPath path) {
    return path.section == 0 ? UITableViewCellEditingStyle::deleteRow : UITableViewCellEditingStyle::none;
}

void TestPane::commitEditingStyle(UITableView& table, UITableViewCellEditingStyle /*style*/,
                                  NSIndexPath path) {
    names.erase(names.begin() + path.row);
    table.reloadData();
}

void TestPane::didSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath path) {
    if (path.section == 1 && path.row == 2) {
        navigationController()->pushViewController(second, true);
    }
}

int TestPane::numberOfComponentsInPickerView(UIPickerView& /*picker*/) {
    return 1;
}

int TestPane::numberOfRowsInComponent(UIPickerView& /*picker*/, int /*component*/) {
    return 10;
}

std::unique_ptr<UIView> TestPane::viewForRow(UIPickerView& /*picker*/, int row, int /*component*/,
                                             std::unique_ptr<UIView> /*reusing*/) {
    auto label = std::make_unique<UILabel>();
    label->setText("Row " + std::to_string(row));
    return label;
}

void TestPane::didSelectRow(UIPickerView& /*picker*/, int row, int /*component*/) {
    picked = row;
}

} // namespace zorel::test
