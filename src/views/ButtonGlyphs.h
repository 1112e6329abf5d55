// SPDX-License-Identifier: Apache-2.0
/// @file
/// The line art of the drawn button. Lengths are in points; the figures are this program's own.
#pragma once

#include "platform/coregraphics/CGContext.h"

namespace zorel {

/// Figures of UIButtonX. `star` and `info` are characters, set as the button's text instead of being drawn.
enum UIButtonXShape : int {
    UIButtonXShapeNone = 0,
    UIButtonXShapeDots = 1,
    UIButtonXShapePlus = 2,
    UIButtonXShapeArrowsOut = 3,
    UIButtonXShapeArrowsIn = 4,
    UIButtonXShapeSmallHouse = 5,
    UIButtonXShapeHouse = 6,
    UIButtonXShapeStar = 7,
    UIButtonXShapeInfo = 8,
    UIButtonXShapeBell = 9,
    UIButtonXShapeBellStruck = 10,
    UIButtonXShapeSun = 11,
    UIButtonXShapeCrescent = 12
};

/// The colours that a figure needs beside the one that is already set in the context.
struct GlyphColors {
    UIColor sunDisc; ///< filling of the sun
    UIColor bar;     ///< the bar across the bell
};

/// Draws a figure into the box. Line width 1 and both colours are set before; a shape that is no figure draws
/// nothing.
void drawButtonGlyph(CGContext& context, int shape, const CGRect& box, const GlyphColors& colors);

} // namespace zorel
