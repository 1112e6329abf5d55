// SPDX-License-Identifier: Apache-2.0
/// @file
/// The search screen: a search bar over a table of matching cities; a chosen city is confirmed in a sheet.
#pragma once

#include "common/GlobalFuncs.h"
#include "platform/uikit/UIActionSheet.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UITableView.h"
#include "store/City.h"

#include <memory>
#include <vector>

namespace zorel {

class AddCityViewDelegate {
public:
    virtual ~AddCityViewDelegate() = default;
    /// The user has confirmed a city; only what the search fills is set in it.
    virtual void delegateAddCityView_AddTapped(const City& city) = 0;
};

/// A search that finds nothing, or cannot be made, shows an empty table and no message.
class AddCityView : public UIView,
                    public UISearchBarDelegate,
                    public UITableViewDataSource,
                    public UITableViewDelegate,
                    public UIActionSheetDelegate {
public:
    explicit AddCityView(const CGRect& frame);
    ~AddCityView() override;

    void setDelegate(AddCityViewDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] AddCityViewDelegate* delegate() const { return delegate_; }
    [[nodiscard]] const std::vector<City>& searchCityList() const { return searchCityList_; }
    [[nodiscard]] UISearchBar& searchBar() const { return *aSearchBar_; }
    [[nodiscard]] UITableView& searchTableView() const { return *searchTableView_; }
    /// The sheet that asks for confirmation; nullptr before the first choice.
    [[nodiscard]] UIActionSheet* confirmation() const { return confirmation_.get(); }

    void searchBarSearchButtonClicked(UISearchBar& searchBar) override;
    int numberOfRowsInSection(UITableView& table, int section) override;
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                           NSIndexPath indexPath) override;
    bool canEditRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    void didSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    void clickedButtonAtIndex(UIActionSheet& sheet, int index) override;

private:
    void initializeControls();
    void makeSearchBar();
    void makeTable();

    GlobalFuncs glbFuncs_;
    AddCityViewDelegate* delegate_ = nullptr;
    std::vector<City> searchCityList_;
    std::unique_ptr<UISearchBar> aSearchBar_;
    std::unique_ptr<UITableView> searchTableView_;
    std::unique_ptr<UIActionSheet> confirmation_;
};

} // namespace zorel
