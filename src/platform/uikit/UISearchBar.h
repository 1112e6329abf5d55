// SPDX-License-Identifier: Apache-2.0
/// @file
/// A field for a search text, with a search key.
#pragma once

#include "platform/uikit/UIView.h"

namespace zorel {

class UISearchBar;

class UISearchBarDelegate {
public:
    virtual ~UISearchBarDelegate() = default;
    virtual void searchBarSearchButtonClicked(UISearchBar& searchBar) = 0;
    /// The user has typed, pasted or wiped; the bar has the new text.
    virtual void searchBarTextDidChange(UISearchBar& /*searchBar*/) {}
};

class UISearchBar : public UIView {
public:
    using UIView::UIView;

    [[nodiscard]] UIViewKind kind() const override { return UIViewKind::searchBar; }
    void setDelegate(UISearchBarDelegate* delegate) { delegate_ = delegate; }
    [[nodiscard]] const std::string& text() const { return text_; } ///< UTF-8
    void setText(std::string text) { change(text_, std::move(text), UIProperty::content); }
    [[nodiscard]] const std::string& placeholder() const { return placeholder_; } ///< UTF-8
    void setPlaceholder(std::string text) { change(placeholder_, std::move(text), UIProperty::content); }

    /// Whether the keyboard writes into this field.
    [[nodiscard]] bool isFirstResponder() const { return firstResponder_; }
    /// Puts the keyboard away.
    void resignFirstResponder() { setFirstResponder(false); }

    /// The user has changed the text to this, so that the field has the keyboard, and the delegate hears of
    /// it. The host is not told what it has just said.
    void userTypes(std::string text);
    /// The user has pressed the search key.
    void userTapsSearch();

private:
    void setFirstResponder(bool first);

    UISearchBarDelegate* delegate_ = nullptr;
    std::string text_;
    std::string placeholder_;
    bool firstResponder_ = false;
};

} // namespace zorel
