// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIPickerView.h"

#include "platform/uikit/RunLoop.h"

#include <algorithm>

namespace zorel {

void UIPickerView::setDataSource(UIPickerViewDataSource* dataSource) {
    dataSource_ = dataSource;
    reloadAllComponents();
}

void UIPickerView::setDelegate(UIPickerViewDelegate* delegate) {
    delegate_ = delegate;
    reloadAllComponents();
}

int UIPickerView::numberOfRows() {
    if (dataSource_ == nullptr || dataSource_->numberOfComponentsInPickerView(*this) < 1) {
        return 0;
    }
    return std::max(0, dataSource_->numberOfRowsInComponent(*this, 0));
}

UIView* UIPickerView::viewForRow(int row) {
    if (delegate_ == nullptr || row < 0 || row >= numberOfRows()) {
        return nullptr;
    }
    const auto known = rowViews_.find(row);
    if (known != rowViews_.end()) {
        return known->second.get();
    }
    return rowViews_.emplace(row, delegate_->viewForRow(*this, row, 0, nullptr)).first->second.get();
}

void UIPickerView::reloadAllComponents() {
    for (auto& [row, view] : std::exchange(rowViews_, {})) {
        RunLoop::main().disposeLater(std::move(view));
    }
    UIObserver::current().pickerReloaded(*this);
}

int UIPickerView::selectedRow() {
    return std::min(selectedRow_, numberOfRows() - 1);
}

void UIPickerView::selectRow(int row, bool animated) {
    selectedRow_ = std::max(0, row);
    UIObserver::current().pickerRowSelected(*this, animated);
}

void UIPickerView::userPicksRow(int row) {
    if (row < 0 || row >= numberOfRows()) {
        return;
    }
    const RunLoop::Event event;
    selectedRow_ = row;
    if (delegate_ != nullptr) {
        delegate_->didSelectRow(*this, row, 0);
    }
}

} // namespace zorel
