// SPDX-License-Identifier: Apache-2.0
/// @file
/// One row of a table: a text on the left and, on the right, a view or an indicator. Default style only.
#pragma once

#include "platform/uikit/UILabel.h"

#include <memory>

namespace zorel {

enum class UITableViewCellAccessoryType { none, disclosureIndicator };

class UITableViewCell : public UIView {
public:
    explicit UITableViewCell(std::string reuseIdentifier);

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::cell; }
    [[nodiscard]] const std::string& reuseIdentifier() const { return reuseIdentifier_; }
    [[nodiscard]] UILabel& textLabel() { return textLabel_; }
    [[nodiscard]] UITableViewCellAccessoryType accessoryType() const { return accessoryType_; }
    void setAccessoryType(UITableViewCellAccessoryType type);

    /// The view at the right edge; it becomes a subview. nullptr when there is none.
    [[nodiscard]] UIView* accessoryView() const;
    /// Shows a view that someone else keeps (nullptr: none). One given over before is disposed of after the
    /// event.
    void setAccessoryView(UIView* view);
    /// Shows a view and keeps it.
    void setAccessoryView(std::unique_ptr<UIView> view);
    void setAccessoryView(std::nullptr_t) { setAccessoryView(static_cast<UIView*>(nullptr)); }

    /// Also puts the accessory view at the right edge, in the middle of the height, and the text label beside
    /// it.
    void setFrame(const CGRect& frame) override;
    /// Puts the parts in their places.
    void layoutSubviews();

private:
    std::string reuseIdentifier_;
    UILabel textLabel_;
    UIWeak<UIView> accessory_;
    std::unique_ptr<UIView> ownedAccessory_;
    UITableViewCellAccessoryType accessoryType_ = UITableViewCellAccessoryType::none;
};

} // namespace zorel
