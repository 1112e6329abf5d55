// SPDX-License-Identifier: Apache-2.0
#include "platform/coregraphics/RecordingContext.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace zorel {

namespace {

std::vector<double> components(const UIColor& color) {
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

const char* capName(CGLineCap cap) {
    switch (cap) {
    case CGLineCap::butt:
        return "setLineCap butt";
    case CGLineCap::round:
        return "setLineCap round";
    case CGLineCap::square:
        break;
    }
    return "setLineCap square";
}

} // namespace

bool RecordedCall::isNear(const RecordedCall& other, double tolerance) const {
    const auto near = [tolerance](double a, double b) { return std::abs(a - b) <= tolerance; };
    return name == other.name &&
           std::equal(numbers.begin(), numbers.end(), other.numbers.begin(), other.numbers.end(), near);
}

std::ostream& operator<<(std::ostream& stream, const RecordedCall& call) {
    stream << call.name << '(';
    const char* separator = "";
    for (const double number : call.numbers) {
        stream << std::exchange(separator, ", ") << number;
    }
    return stream << ')';
}

std::vector<RecordedCall> RecordingContext::callsNamed(const std::string& name) const {
    std::vector<RecordedCall> named;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(named),
                 [&name](const RecordedCall& call) { return call.name == name; });
    return named;
}

void RecordingContext::record(std::string name, std::vector<double> numbers) {
    calls_.push_back({std::move(name), std::move(numbers)});
}

void RecordingContext::setLineWidth(double width) {
    lineWidth_ = width;
    record("setLineWidth", {width});
}

void RecordingContext::setLineCap(CGLineCap cap) {
    record(capName(cap));
}

void RecordingContext::setStrokeColor(const UIColor& color) {
    record("setStrokeColor", components(color));
}

void RecordingContext::setFillColor(const UIColor& color) {
    record("setFillColor", components(color));
}

void RecordingContext::moveTo(double x, double y) {
    record("moveTo", {x, y});
}

void RecordingContext::addLineTo(double x, double y) {
    record("addLineTo", {x, y});
}

void RecordingContext::addArcToPoint(double x1, double y1, double x2, double y2, double radius) {
    record("addArcToPoint", {x1, y1, x2, y2, radius});
}

void RecordingContext::addArc(double cx, double cy, double radius, double startAngle, double endAngle,
                              bool clockwise) {
    record("addArc", {cx, cy, radius, startAngle, endAngle, clockwise ? 1.0 : 0.0});
}

void RecordingContext::addEllipseInRect(const CGRect& rectangle) {
    record("addEllipseInRect", {rectangle.x, rectangle.y, rectangle.width, rectangle.height});
}

void RecordingContext::addRect(const CGRect& rectangle) {
    record("addRect", {rectangle.x, rectangle.y, rectangle.width, rectangle.height});
}

void RecordingContext::closePath() {
    record("closePath");
}

void RecordingContext::drawPath(CGPathDrawingMode mode) {
    record(mode == CGPathDrawingMode::stroke ? "drawPath stroke" : "drawPath fillStroke");
}

} // namespace zorel
