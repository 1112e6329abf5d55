// SPDX-License-Identifier: Apache-2.0
/// @file
/// A sheet of choices at the foot of the screen: other buttons first, the cancel button last; none is
/// destructive.
#pragma once

#include "platform/uikit/UIObject.h"

#include <string>
#include <vector>

namespace zorel {

class UIActionSheet;
class UIView;

class UIActionSheetDelegate {
public:
    virtual ~UIActionSheetDelegate() = default;
    virtual void clickedButtonAtIndex(UIActionSheet& sheet, int index) = 0;
};

class UIActionSheet : public UIObject {
public:
    /// @param title "" for none
    UIActionSheet(std::string title, UIActionSheetDelegate* delegate, std::string cancelButtonTitle,
                  std::vector<std::string> otherButtonTitles);
    /// A sheet that is destroyed is dismissed without a word to its delegate.
    ~UIActionSheet() override;

    [[nodiscard]] const std::string& title() const { return title_; }
    /// All buttons by their index: the others from 0, then the cancel button.
    [[nodiscard]] const std::vector<std::string>& buttonTitles() const { return buttonTitles_; }
    [[nodiscard]] int cancelButtonIndex() const { return static_cast<int>(buttonTitles_.size()) - 1; }
    [[nodiscard]] bool isVisible() const { return visible_; }
    void showInView(UIView& view);
    /// The user taps a button (or, outside the sheet, cancels): dismisses the sheet, then tells the delegate,
    /// which may destroy it. Ignored when the sheet is not visible or has no such button.
    void userTapsButton(int index);

private:
    void dismiss();

    std::string title_;
    UIActionSheetDelegate* delegate_;
    std::vector<std::string> buttonTitles_;
    bool visible_ = false;
};

} // namespace zorel
