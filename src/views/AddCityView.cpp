// SPDX-License-Identifier: Apache-2.0
#include "views/AddCityView.h"

#include "platform/uikit/RunLoop.h"
#include "store/CitySearch.h"
#include "store/MatchedSpelling.h"
#include "views/Texts.h"

#include <span>

namespace zorel {
namespace {

constexpr unsigned kFlexibleSides = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                                    UIViewAutoresizingFlexibleRightMargin;
constexpr std::int32_t kSearchBarTag = 1010;
constexpr std::int32_t kTableTag = 1033;
constexpr double kSearchBarHeight = 44.0;
constexpr double kRowHeight = 33.0;
constexpr std::int32_t kPlaceholderKey = 1020;
constexpr std::int32_t kConfirmKey = 1025;
constexpr std::int32_t kCancelKey = 1028;
constexpr int kConfirmIndex = 0;
/// How long nothing has to be typed before the table follows [s].
constexpr double kPauseInTyping = 0.3;
/// Stands behind a city that the user has already.
constexpr const char* kListedMark = " ✓";
constexpr const char* kCellIdentifier = "SearchList";

} // namespace

AddCityView::AddCityView(const CGRect& frame) : UIView(frame) {
    initializeControls();
}

AddCityView::~AddCityView() {
    removeAllSubviews();
}

void AddCityView::initializeControls() {
    makeSearchBar();
    makeTable();
}

void AddCityView::makeSearchBar() {
    const double width = frame().width;
    aSearchBar_ = std::make_unique<UISearchBar>(CGRect{0.0, 0.0, width, kSearchBarHeight});
    aSearchBar_->setCenter({width * 0.5, 86.0});
    aSearchBar_->setAutoresizingMask(kFlexibleSides);
    aSearchBar_->setPlaceholder(textForKey(glbFuncs_, kPlaceholderKey));
    aSearchBar_->setDelegate(this);
    aSearchBar_->setTag(kSearchBarTag);
    addSubview(*aSearchBar_);
}

void AddCityView::makeTable() {
    const double width = frame().width;
    const double height = frame().height;
    searchTableView_ =
        std::make_unique<UITableView>(CGRect{0.0, 44.0, width, height - 44.0}, UITableViewStyle::plain);
    searchTableView_->setCenter({width * 0.5, height - (height - 172.0) * 0.5});
    searchTableView_->setBackgroundColor(UIColor::whiteColor());
    searchTableView_->setDataSource(this);
    searchTableView_->setDelegate(this);
    searchTableView_->setRowHeight(kRowHeight);
    searchTableView_->setAutoresizingMask(kFlexibleSides | UIViewAutoresizingFlexibleBottomMargin);
    searchTableView_->setTag(kTableTag);
    addSubview(*searchTableView_);
}

void AddCityView::searchBarSearchButtonClicked(UISearchBar& searchBar) {
    ++changes_;
    showFound();
    searchBar.resignFirstResponder();
}

void AddCityView::searchBarTextDidChange(UISearchBar& /*searchBar*/) {
    RunLoop::main().performAfterDelay(*this, kPauseInTyping, [this, change = ++changes_] {
        if (change == changes_) {
            showFound();
        }
    });
}

void AddCityView::showFound() {
    searchedText_ = aSearchBar_->text();
    searchCityList_ = searchCities(glbFuncs_, searchedText_);
    rowTexts_.assign(searchCityList_.size(), std::nullopt);
    searchTableView_->reloadData();
}

void AddCityView::setListedCities(std::set<std::string> ids) {
    if (listedCities_ != ids) {
        listedCities_ = std::move(ids);
        rowTexts_.assign(searchCityList_.size(), std::nullopt);
        searchTableView_->reloadData();
    }
}

std::string AddCityView::rowText(std::size_t row) {
    std::optional<std::string>& text = rowTexts_.at(row);
    if (!text) {
        const FoundCity& city = searchCityList_.at(row);
        const auto details = detailsOfFound(glbFuncs_, std::span(&city, 1), searchedText_);
        text = citySearchText(glbFuncs_, city, details.front().spelling);
        if (listedCities_.contains(city.cityId)) {
            *text += kListedMark;
        }
    }
    return *text;
}

int AddCityView::numberOfRowsInSection(UITableView& /*table*/, int /*section*/) {
    return static_cast<int>(searchCityList_.size());
}

std::unique_ptr<UITableViewCell> AddCityView::cellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) {
    auto cell = table.dequeueReusableCellWithIdentifier(kCellIdentifier);
    if (!cell) {
        cell = std::make_unique<UITableViewCell>(kCellIdentifier);
    }
    cell->textLabel().setText(rowText(static_cast<std::size_t>(indexPath.row)));
    cell->textLabel().setAdjustsFontSizeToFitWidth(true);
    return cell;
}

/// Search results are not the user's to delete.
bool AddCityView::canEditRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*indexPath*/) {
    return false;
}

void AddCityView::didSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    aSearchBar_->resignFirstResponder();
    if (table.tag() != kTableTag) {
        return;
    }
    confirmation_ = std::make_unique<UIActionSheet>(
        rowText(static_cast<std::size_t>(indexPath.row)), this, textForKey(glbFuncs_, kCancelKey),
        std::vector<std::string>{textForKey(glbFuncs_, kConfirmKey)});
    confirmation_->showInView(*this);
}

/// What is passed on is a city of its own: the delegate may search anew or take this screen away.
void AddCityView::clickedButtonAtIndex(UIActionSheet& /*sheet*/, int index) {
    const auto selected = searchTableView_->indexPathForSelectedRow();
    if (index != kConfirmIndex || !selected || delegate_ == nullptr) {
        return;
    }
    const auto row = static_cast<std::size_t>(selected->row);
    if (row < searchCityList_.size()) {
        const City city = cityOf(glbFuncs_, searchCityList_[row]);
        delegate_->delegateAddCityView_AddTapped(city);
    }
}

} // namespace zorel
