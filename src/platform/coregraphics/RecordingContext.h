// SPDX-License-Identifier: Apache-2.0
/// @file
/// A drawing context that writes down what is drawn, so that drawings can be compared as values.
#pragma once

#include "platform/coregraphics/CGContext.h"

#include <ostream>
#include <string>
#include <vector>

namespace zorel {

/// One call with its numbers in the order of the arguments. Colours are red, green, blue, alpha; rectangles
/// x, y, width, height; `clockwise` is 1 or 0; the line cap and the drawing mode are named ("setLineCap
/// square", "drawPath fillStroke") and have no numbers.
struct RecordedCall {
    std::string name;
    std::vector<double> numbers;

    /// Whether the names are equal and no number differs by more than the tolerance.
    [[nodiscard]] bool isNear(const RecordedCall& other, double tolerance) const;

    friend bool operator==(const RecordedCall&, const RecordedCall&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const RecordedCall& call);
};

class RecordingContext final : public CGContext {
public:
    /// Everything called so far.
    [[nodiscard]] const std::vector<RecordedCall>& calls() const { return calls_; }
    /// The calls of one name ("moveTo"), in order.
    [[nodiscard]] std::vector<RecordedCall> callsNamed(const std::string& name) const;
    void clear() { calls_.clear(); }

    [[nodiscard]] double lineWidth() const override { return lineWidth_; }
    void setLineWidth(double width) override;
    void setLineCap(CGLineCap cap) override;
    void setStrokeColor(const UIColor& color) override;
    void setFillColor(const UIColor& color) override;
    void moveTo(double x, double y) override;
    void addLineTo(double x, double y) override;
    void addArcToPoint(double x1, double y1, double x2, double y2, double radius) override;
    void addArc(double cx, double cy, double radius, double startAngle, double endAngle,
                bool clockwise) override;
    void addEllipseInRect(const CGRect& rectangle) override;
    void addRect(const CGRect& rectangle) override;
    void closePath() override;
    void drawPath(CGPathDrawingMode mode) override;

private:
    void record(std::string name, std::vector<double> numbers = {});

    std::vector<RecordedCall> calls_;
    double lineWidth_ = 1.0;
};

} // namespace zorel
