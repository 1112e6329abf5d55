// SPDX-License-Identifier: Apache-2.0
#include "draw/Svg.h"

#include <fmt/format.h>

namespace zorel::cli {

namespace {
std::string_view anchorName(Anchor anchor) {
    switch (anchor) {
    case Anchor::middle:
        return "middle";
    case Anchor::end:
        return "end";
    default:
        return "start";
    }
}
} // namespace

std::string xmlText(std::string_view text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            const auto code = static_cast<unsigned char>(character);
            result += code < 0x20U || code == 0x7FU ? '?' : character;
        }
    }
    return result;
}

std::string coordinate(double value) {
    std::string text = fmt::format("{:.1f}", value);
    if (text.ends_with(".0")) {
        text.resize(text.size() - 2);
    }
    return text == "-0" ? "0" : text;
}

std::string svgText(double x, double y, Anchor anchor, std::string_view style, std::string_view text) {
    return fmt::format("<text x=\"{}\" y=\"{}\" text-anchor=\"{}\" class=\"{}\">{}</text>\n", coordinate(x),
                       coordinate(y), anchorName(anchor), style, xmlText(text));
}

std::string svgLine(double x1, double y1, double x2, double y2, std::string_view style) {
    return fmt::format("<line x1=\"{}\" y1=\"{}\" x2=\"{}\" y2=\"{}\" class=\"{}\"/>\n", coordinate(x1),
                       coordinate(y1), coordinate(x2), coordinate(y2), style);
}

std::string svgRectangle(double left, double top, double width, double height, std::string_view style) {
    return fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" class=\"{}\"/>\n",
                       coordinate(left), coordinate(top), coordinate(width), coordinate(height), style);
}

std::string svgCircle(double x, double y, double radius, std::string_view style) {
    return fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\" class=\"{}\"/>\n", coordinate(x), coordinate(y),
                       coordinate(radius), style);
}

std::string svgPath(std::span<const SvgPoint> points, Line line, std::string_view style) {
    std::string path;
    for (const SvgPoint& point : points) {
        path += fmt::format("{}{} {}", path.empty() ? 'M' : 'L', coordinate(point.x), coordinate(point.y));
    }
    return fmt::format("<path class=\"{}\" d=\"{}{}\"/>\n", style, path, line == Line::closed ? "z" : "");
}

std::string svgDocument(double width, double height, std::string_view title, std::string_view style,
                        std::string_view content) {
    return fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {0} {1}\" width=\"{0}\" "
                       "height=\"{1}\" role=\"img\">\n<title>{2}</title>\n<style>\n{3}</style>\n{4}</svg>\n",
                       coordinate(width), coordinate(height), xmlText(title), style, content);
}

} // namespace zorel::cli
