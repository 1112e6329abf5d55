// SPDX-License-Identifier: Apache-2.0
/// @file
/// Contrast of colours as WCAG 2 measures it, and colours moved until they have enough of it.
#pragma once

#include <QColor>

namespace zorel {

inline constexpr double kTextContrast = 4.5;    ///< WCAG 2.1, success criterion 1.4.3
inline constexpr double kControlContrast = 3.0; ///< 1.4.11

/// Contrast ratio of two opaque colours, 1 to 21.
[[nodiscard]] double contrastOf(const QColor& one, const QColor& other);
/// The colour, made darker or lighter, away from the ground, until it has the contrast; hue and alpha stay. A
/// colour that is the ground's own stays what it is: it is not meant to be seen.
[[nodiscard]] QColor withContrast(const QColor& color, const QColor& ground, double contrast);

} // namespace zorel
