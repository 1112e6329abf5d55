// SPDX-License-Identifier: Apache-2.0
/// @file
/// A table of sections and rows that asks its data source for everything and remembers only the cells on show
/// and the selected row. The host decides which rows are on show; scrolling and the places of the rows are
/// its affair.
#pragma once

#include "platform/uikit/UITableViewCell.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorel {

class UITableView;

struct NSIndexPath {
    int section = 0;
    int row = 0;

    friend bool operator==(const NSIndexPath&, const NSIndexPath&) = default;
    friend bool operator<(const NSIndexPath& one, const NSIndexPath& other) {
        return std::pair(one.section, one.row) < std::pair(other.section, other.row);
    }
};

enum class UITableViewStyle { plain, grouped };
enum class UITableViewCellEditingStyle { none, deleteRow };

/// A height that the host chooses.
inline constexpr double UITableViewAutomaticDimension = -1.0;

class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;
    virtual int numberOfSectionsInTableView(UITableView& /*table*/) { return 1; }
    virtual int numberOfRowsInSection(UITableView& table, int section) = 0;
    /// A cell for the row, new or from dequeueReusableCellWithIdentifier; the table keeps it.
    virtual std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& table,
                                                                   NSIndexPath indexPath) = 0;
    /// A second, quiet text of a row, which the host shows at the right; "" for none.
    virtual std::string detailForRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*indexPath*/) {
        return {};
    }
    virtual std::string titleForHeaderInSection(UITableView& /*table*/, int /*section*/) { return {}; }
    virtual std::string titleForFooterInSection(UITableView& /*table*/, int /*section*/) { return {}; }
    virtual bool canEditRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*indexPath*/) { return true; }
    virtual void commitEditingStyle(UITableView& /*table*/, UITableViewCellEditingStyle /*style*/,
                                    NSIndexPath /*indexPath*/) {}
};

class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;
    virtual double heightForRowAtIndexPath(UITableView& table,
                                           NSIndexPath indexPath); ///< [pt]; table.rowHeight()
    virtual double heightForHeaderInSection(UITableView& /*table*/, int /*section*/) { ///< [pt]
        return UITableViewAutomaticDimension;
    }
    /// A view that someone else keeps, or nullptr.
    virtual UIView* viewForHeaderInSection(UITableView& /*table*/, int /*section*/) { return nullptr; }
    virtual UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView& /*table*/,
                                                                      NSIndexPath /*indexPath*/) {
        return UITableViewCellEditingStyle::deleteRow;
    }
    virtual void didSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*indexPath*/) {}
};

class UITableView : public UIView {
public:
    UITableView(const CGRect& frame, UITableViewStyle style);
    ~UITableView() override;

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::table; }
    [[nodiscard]] UITableViewStyle style() const { return style_; }
    void setDataSource(UITableViewDataSource* dataSource) { dataSource_ = dataSource; }
    void setDelegate(UITableViewDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] double rowHeight() const { return rowHeight_; } ///< [pt]
    void setRowHeight(double height) { rowHeight_ = height; }
    [[nodiscard]] bool allowsSelection() const { return allowsSelection_; }
    void setAllowsSelection(bool allows) { allowsSelection_ = allows; }
    [[nodiscard]] bool allowsMultipleSelection() const { return allowsMultipleSelection_; }
    /// Carried for the host; the table itself remembers one selected row.
    void setAllowsMultipleSelection(bool allows) { allowsMultipleSelection_ = allows; }

    // What the data source and the delegate say now; nothing is cached. Sections or rows that do not exist:
    // 0, "", none.

    [[nodiscard]] int numberOfSections();
    [[nodiscard]] int numberOfRowsInSection(int section);
    [[nodiscard]] bool hasRow(NSIndexPath indexPath);
    [[nodiscard]] double heightForRow(NSIndexPath indexPath);
    [[nodiscard]] std::string detailForRow(NSIndexPath indexPath);
    [[nodiscard]] double heightForHeader(int section);
    [[nodiscard]] std::string titleForHeader(int section);
    [[nodiscard]] std::string titleForFooter(int section);
    /// The header's own view, made a subview of the table and as wide; nullptr when the title is to be shown.
    UIView* viewForHeader(int section);
    /// Whether the row may be deleted by the user.
    [[nodiscard]] bool canDeleteRow(NSIndexPath indexPath);

    // Cells.

    /// The row's cell, got from the data source if it is not yet on show and sized to the table's width;
    /// nullptr when there is no such row.
    UITableViewCell* cellForRowAtIndexPath(NSIndexPath indexPath);
    /// The row has left the screen: its cell is kept for reuse.
    void endDisplayingRow(NSIndexPath indexPath);
    /// For the data source: a cell that is no longer on show, or nullptr.
    [[nodiscard]] std::unique_ptr<UITableViewCell>
    dequeueReusableCellWithIdentifier(const std::string& identifier);
    /// Takes all cells off show, forgets the selected row and tells the observer. May be called from inside a
    /// cell's own tap.
    void reloadData();

    /// Also makes the cells on show as wide as the table.
    void setFrame(const CGRect& frame) override;

    // Selection and editing.

    [[nodiscard]] std::optional<NSIndexPath> indexPathForSelectedRow() const { return selectedRow_; }
    /// The user has tapped a row: selects it and tells the delegate. Ignored where there is no row or no
    /// selection.
    void userSelectsRow(NSIndexPath indexPath);
    /// The user has deleted a row. Ignored unless canDeleteRow.
    void userDeletesRow(NSIndexPath indexPath);

    /// Cells and header views lie where the host puts them, so a touch is tested in them, not in the table.
    [[nodiscard]] UIView* hitTest(CGPoint point) override;

private:
    void setSelectedRow(std::optional<NSIndexPath> indexPath);
    [[nodiscard]] bool hasSection(int section);
    void takeOffShow(std::unique_ptr<UITableViewCell> cell);

    UITableViewDataSource* dataSource_ = nullptr;
    UITableViewDelegate* delegate_ = nullptr;
    std::map<NSIndexPath, std::unique_ptr<UITableViewCell>> shown_;
    std::vector<std::unique_ptr<UITableViewCell>> reusable_;
    std::optional<NSIndexPath> selectedRow_;
    UITableViewStyle style_;
    double rowHeight_ = 44.0;
    bool allowsSelection_ = true;
    bool allowsMultipleSelection_ = false;
};

} // namespace zorel
