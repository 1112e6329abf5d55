// SPDX-License-Identifier: Apache-2.0
/// @file
/// The search screen: a search bar over a table of matching cities; a chosen city is confirmed in a sheet.
#pragma once

#include "common/GlobalFuncs.h"
#include "platform/uikit/UIActionSheet.h"
#include "platform/uikit/UISearchBar.h"
#include "platform/uikit/UITableView.h"
#include "store/CitySearch.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorel {

class AddCityViewDelegate {
public:
    virtual ~AddCityViewDelegate() = default;
    /// The user has confirmed a city; only what the search fills is set in it.
    virtual void delegateAddCityView_AddTapped(const City& city) = 0;
};

/// The table follows the text after a short pause in typing, and at once when the search key is pressed,
/// which also puts the keyboard away. Fewer than three characters, a search that finds nothing, and one that
/// cannot be made show an empty table. A row says by which spelling the city was found when it is not its
/// name, and marks a city that the user has already.
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
    [[nodiscard]] const std::vector<FoundCity>& searchCityList() const { return searchCityList_; }
    [[nodiscard]] UISearchBar& searchBar() const { return *aSearchBar_; }
    [[nodiscard]] UITableView& searchTableView() const { return *searchTableView_; }
    /// The sheet that asks for confirmation; nullptr before the first choice.
    [[nodiscard]] UIActionSheet* confirmation() const { return confirmation_.get(); }

    /// The catalogue ids of the user's cities, which are marked in the table.
    void setListedCities(std::set<std::string> ids);

    void searchBarSearchButtonClicked(UISearchBar& searchBar) override;
    void searchBarTextDidChange(UISearchBar& searchBar) override;
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
    void showFound();
    /// One row in words: the city, its spelling, its mark.
    [[nodiscard]] std::string rowText(std::size_t row);

    GlobalFuncs glbFuncs_;
    AddCityViewDelegate* delegate_ = nullptr;
    std::vector<FoundCity> searchCityList_;
    std::string searchedText_;
    std::vector<std::optional<std::string>> rowTexts_; ///< of searchCityList_, as far as they were asked for
    std::set<std::string> listedCities_;
    int changes_ = 0; ///< of the text; a search waits until there are no more
    std::unique_ptr<UISearchBar> aSearchBar_;
    std::unique_ptr<UITableView> searchTableView_;
    std::unique_ptr<UIActionSheet> confirmation_;
};

} // namespace zorel
