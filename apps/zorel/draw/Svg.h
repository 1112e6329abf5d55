// SPDX-License-Identifier: Apache-2.0
/// @file
/// Pieces of XML text that pictures and pages share.
#pragma once

#include <span>
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
[[nodiscard]] std::string svgRectangle(double left, double top, double width, double height,
                                       std::string_view style);
[[nodiscard]] std::string svgCircle(double x, double y, double radius, std::string_view style);
/// A corner of a polygon, or a point of a broken line.
struct SvgPoint {
    double x = 0.0;
    double y = 0.0;
};
enum class Line { open, closed };
/// Straight lines through points.
[[nodiscard]] std::string svgPath(std::span<const SvgPoint> points, Line line, std::string_view style);
/// A whole document in a view box from 0,0. @param style rules of CSS for light and for dark surroundings.
[[nodiscard]] std::string svgDocument(double width, double height, std::string_view title,
                                      std::string_view style, std::string_view content);

} // namespace zorel::cli
