// SPDX-License-Identifier: Apache-2.0
/// @file
/// Paints a view and everything below it: backgrounds, own drawing, labels.
#pragma once

#include <QColor>

class QPainter;

namespace zorel {

class UIView;

/// Paints the view's subtree in the view's own coordinates. The view's own opacity and scale are left to the
/// caller, those of the subviews are painted. Hidden views are left out.
/// @param dark whether colours without an own ground are shown for dark surroundings
/// @param tint the one colour of all lines and areas; an invalid one: as the views have it
void paintView(QPainter& painter, UIView& view, bool dark, const QColor& tint = {});

} // namespace zorel
