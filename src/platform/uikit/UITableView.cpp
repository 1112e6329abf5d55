// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UITableView.h"

#include "platform/uikit/RunLoop.h"

#include <algorithm>

namespace zorel {

namespace {

/// Cells kept for reuse at most, a good screenful; a data source that never takes any back does not pile them
/// up.
constexpr std::size_t kReusableCells = 64;

} // namespace

double UITableViewDelegate::heightForRowAtIndexPath(UITableView& table, NSIndexPath /*indexPath*/) {
    return table.rowHeight();
}

UITableView::UITableView(const CGRect& frame, UITableViewStyle style) : UIView(frame), style_(style) {
    setBackgroundColor(style == UITableViewStyle::grouped ? UIColor::groupTableViewBackgroundColor()
                                                          : UIColor::whiteColor());
}

UITableView::~UITableView() = default;

void UITableView::setFrame(const CGRect& frame) {
    UIView::setFrame(frame);
    for (const auto& [indexPath, cell] : shown_) {
        cell->setFrame({0.0, 0.0, frame.width, cell->frame().height});
    }
}

int UITableView::numberOfSections() {
    return dataSource_ != nullptr ? std::max(0, dataSource_->numberOfSectionsInTableView(*this)) : 0;
}

bool UITableView::hasSection(int section) {
    return section >= 0 && section < numberOfSections();
}

int UITableView::numberOfRowsInSection(int section) {
    return hasSection(section) ? std::max(0, dataSource_->numberOfRowsInSection(*this, section)) : 0;
}

bool UITableView::hasRow(NSIndexPath indexPath) {
    return indexPath.row >= 0 && indexPath.row < numberOfRowsInSection(indexPath.section);
}

double UITableView::heightForRow(NSIndexPath indexPath) {
    if (!hasRow(indexPath)) {
        return 0.0;
    }
    return delegate_ != nullptr ? delegate_->heightForRowAtIndexPath(*this, indexPath) : rowHeight_;
}

std::string UITableView::detailForRow(NSIndexPath indexPath) {
    return hasRow(indexPath) ? dataSource_->detailForRowAtIndexPath(*this, indexPath) : std::string();
}

double UITableView::heightForHeader(int section) {
    if (!hasSection(section)) {
        return 0.0;
    }
    return delegate_ != nullptr ? delegate_->heightForHeaderInSection(*this, section)
                                : UITableViewAutomaticDimension;
}

std::string UITableView::titleForHeader(int section) {
    return hasSection(section) ? dataSource_->titleForHeaderInSection(*this, section) : std::string();
}

std::string UITableView::titleForFooter(int section) {
    return hasSection(section) ? dataSource_->titleForFooterInSection(*this, section) : std::string();
}

UIView* UITableView::viewForHeader(int section) {
    UIView* view = delegate_ != nullptr && hasSection(section)
                       ? delegate_->viewForHeaderInSection(*this, section)
                       : nullptr;
    if (view == nullptr) {
        return nullptr;
    }
    if (view->superview() != this) {
        addSubview(*view);
    }
    CGRect wide = view->frame();
    wide.width = bounds().width;
    view->setFrame(wide);
    return view;
}

bool UITableView::canDeleteRow(NSIndexPath indexPath) {
    if (!hasRow(indexPath) || !dataSource_->canEditRowAtIndexPath(*this, indexPath)) {
        return false;
    }
    return delegate_ == nullptr || delegate_->editingStyleForRowAtIndexPath(*this, indexPath) ==
                                       UITableViewCellEditingStyle::deleteRow;
}

UITableViewCell* UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) {
    const auto known = shown_.find(indexPath);
    if (known != shown_.end()) {
        return known->second.get();
    }
    auto cell = hasRow(indexPath) ? dataSource_->cellForRowAtIndexPath(*this, indexPath) : nullptr;
    if (cell == nullptr) {
        return nullptr;
    }
    cell->setFrame({0.0, 0.0, bounds().width, heightForRow(indexPath)});
    addSubview(*cell);
    return shown_.insert_or_assign(indexPath, std::move(cell)).first->second.get();
}

void UITableView::endDisplayingRow(NSIndexPath indexPath) {
    auto leaving = shown_.extract(indexPath);
    if (!leaving.empty()) {
        takeOffShow(std::move(leaving.mapped()));
    }
}

void UITableView::takeOffShow(std::unique_ptr<UITableViewCell> cell) {
    cell->removeFromSuperview();
    if (reusable_.size() < kReusableCells) {
        reusable_.push_back(std::move(cell));
    } else {
        RunLoop::main().disposeLater(std::move(cell));
    }
}

std::unique_ptr<UITableViewCell>
UITableView::dequeueReusableCellWithIdentifier(const std::string& identifier) {
    const auto fitting = std::find_if(reusable_.begin(), reusable_.end(), [&identifier](const auto& cell) {
        return cell->reuseIdentifier() == identifier;
    });
    if (fitting == reusable_.end()) {
        return nullptr;
    }
    auto cell = std::move(*fitting);
    reusable_.erase(fitting);
    return cell;
}

void UITableView::reloadData() {
    for (auto& [indexPath, cell] : std::exchange(shown_, {})) {
        takeOffShow(std::move(cell));
    }
    setSelectedRow(std::nullopt);
    UIObserver::current().tableReloaded(*this);
}

void UITableView::setSelectedRow(std::optional<NSIndexPath> indexPath) {
    if (selectedRow_ == indexPath) {
        return;
    }
    selectedRow_ = indexPath;
    UIObserver::current().rowSelectionChanged(*this);
}

void UITableView::userSelectsRow(NSIndexPath indexPath) {
    if (!allowsSelection_ || !hasRow(indexPath)) {
        return;
    }
    const RunLoop::Event event;
    setSelectedRow(indexPath);
    if (delegate_ != nullptr) {
        delegate_->didSelectRowAtIndexPath(*this, indexPath);
    }
}

void UITableView::userDeletesRow(NSIndexPath indexPath) {
    if (!canDeleteRow(indexPath)) {
        return;
    }
    const RunLoop::Event event;
    dataSource_->commitEditingStyle(*this, UITableViewCellEditingStyle::deleteRow, indexPath);
}

UIView* UITableView::hitTest(CGPoint point) {
    UIView* hit = UIView::hitTest(point);
    return hit != nullptr ? this : nullptr;
}

} // namespace zorel
