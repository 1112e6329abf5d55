// SPDX-License-Identifier: Apache-2.0
/// @file
/// Pieces of XML text that pictures and pages share.
#pragma once

#include <string>
#include <string_view>

namespace zorel::cli {

/// Text for the content and the attributes of XML: its special characters escaped, control characters
/// replaced by "?".
[[nodiscard]] std::string xmlText(std::string_view text);

/// A coordinate to a tenth, without a trailing ".0".
[[nodiscard]] std::string coordinate(double value);

enum class Anchor { start, middle, end };

/// A text element. @param style the class that its colour and size come from.
[[nodiscard]] std::string svgText(double x, double y, Anchor anchor, std::string_view style,
                                  std::string_view text);
[[nodiscard]] std::string svgLine(double x1, double y1, double x2, double y2, std::string_view style);
/// A whole document in a view box from 0,0. @param style rules of CSS for light and for dark surroundings.
[[nodiscard]] std::string svgDocument(double width, double height, std::string_view title,
                                      std::string_view style, std::string_view content);

} // namespace zorel::cli
