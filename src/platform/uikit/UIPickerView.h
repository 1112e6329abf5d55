// SPDX-License-Identifier: Apache-2.0
/// @file
/// A wheel of rows, one of which is selected. Only component 0 exists.
#pragma once

#include "platform/uikit/UIView.h"

#include <map>
#include <memory>

namespace zorel {

class UIPickerView;

class UIPickerViewDataSource {
public:
    virtual ~UIPickerViewDataSource() = default;
    virtual int numberOfComponentsInPickerView(UIPickerView& picker) = 0;
    virtual int numberOfRowsInComponent(UIPickerView& picker, int component) = 0;
};

class UIPickerViewDelegate {
public:
    virtual ~UIPickerViewDelegate() = default;
    /// The view of a row; the picker keeps it. `reusing` is nullptr: wheels are short, every row
    /// has its own view.
    virtual std::unique_ptr<UIView> viewForRow(UIPickerView& picker, int row, int component,
                                               std::unique_ptr<UIView> reusing) = 0;
    virtual void didSelectRow(UIPickerView& /*picker*/, int /*row*/, int /*component*/) {}
};

class UIPickerView : public UIView {
public:
    using UIView::UIView;

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::picker; }
    void setDataSource(UIPickerViewDataSource* dataSource);
    void setDelegate(UIPickerViewDelegate* delegate);
    /// Asked of the data source each time; 0 without one.
    [[nodiscard]] int numberOfRows();
    /// The delegate's view of a row, made when first asked for; nullptr outside the rows or without a
    /// delegate.
    UIView* viewForRow(int row);
    /// Gives up the row views, to be asked for anew.
    void reloadAllComponents();

    /// The selected row, never past the last; -1 when there are no rows.
    [[nodiscard]] int selectedRow();
    /// Turns the wheel without telling the delegate. A row below 0 is row 0.
    void selectRow(int row, bool animated);
    /// The user has let the wheel come to rest on a row: selects it and tells the delegate. Ignored outside
    /// the rows.
    void userPicksRow(int row);

private:
    UIPickerViewDataSource* dataSource_ = nullptr;
    UIPickerViewDelegate* delegate_ = nullptr;
    std::map<int, std::unique_ptr<UIView>> rowViews_;
    int selectedRow_ = 0;
};

} // namespace zorel
