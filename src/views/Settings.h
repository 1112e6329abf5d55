// SPDX-License-Identifier: Apache-2.0
/// @file
/// The look of the pane's views: a font, the drawing style of buttons, five colours of one of six themes.
#pragma once

#include "platform/coregraphics/UIColor.h"

#include <cstdint>
#include <string>

namespace zorel {

/// What a view asks about its look. Every view has an instance of its own or borrows its creator's; nothing
/// is read from or written to disk.
class Settings {
public:
    /// The default look with the colours of theme 1.
    Settings() { setUIColors(); }

    bool languageChanged = false;      ///< carried for the controller, never set here
    bool fontChanged = false;          ///< likewise
    std::int32_t buttonType = 1;       ///< outline of buttons (UIButtonX)
    std::int32_t buttonShape = 5;      ///< glyph of buttons (UIButtonX)
    std::int32_t language = 0;         ///< carried for the controller too
    std::int32_t fontSize = 15;        ///< of all labels [pt]
    std::int32_t uiControlColorId = 1; ///< theme, 0 to 5
    std::string fontName = "Verdana";  ///< of all labels
    UIColor firstColor;                ///< text of messages
    UIColor secondColor; ///< outline and glyph of disabled or unselected buttons, text of unselected ones
    UIColor thirdColor;  ///< text of a button at first
    UIColor fourthColor; ///< bar across the struck-through bell
    UIColor fifthColor;  ///< outline and glyph of enabled or selected buttons, text of selected ones and of
                         ///< city rows

    /// Takes the five colours from the theme that uiControlColorId names now.
    /// @throws std::out_of_range for a theme outside 0 to 5; the colours read until then stay
    void setUIColors();
};

} // namespace zorel
