// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/coregraphics/RecordingContext.h"
#include "platform/foundation/NumberText.h"
#include "tests/views/ViewsFixture.h"
#include "views/UIButtonX.h"

#include <sstream>
#include <stdexcept>

namespace zorel {
namespace {

using Calls = std::vector<RecordedCall>;

/// The calls of one figure at one size, colours still by name.
struct Glyph {
    int shape = 0;
    CGSize size;
    Calls calls;
};

RecordedCall callFrom(const std::string& line) {
    std::istringstream words(line);
    RecordedCall call;
    words >> call.name;
    for (std::string word; words >> word;) {
        const bool isNumber = word.find_first_not_of("-.0123456789e") == std::string::npos;
        if (isNumber) {
            call.numbers.push_back(doubleValue(word));
        } else {
            call.name += " " + word;
        }
    }
    return call;
}

std::vector<Glyph> glyphs() {
    std::istringstream file(test::readFile(std::string(ZOREL_SOURCE_DIR) + "/tests/data/views/glyphs.txt"));
    std::vector<Glyph> all;
    for (std::string line; std::getline(file, line);) {
        const RecordedCall call = callFrom(line);
        if (call.name == "glyph") {
            all.push_back({static_cast<int>(call.numbers[0]), {call.numbers[1], call.numbers[2]}, {}});
        } else if (!line.starts_with('#')) {
            all.back().calls.push_back(call);
        }
    }
    return all;
}

/// A button in each of its eight states.
struct State {
    bool enabled;
    bool selectable;
    bool selected;
};

std::vector<State> states() {
    std::vector<State> all;
    all.reserve(8);
    for (int bits = 0; bits < 8; ++bits) {
        all.push_back({(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0});
    }
    return all;
}

RecordedCall colored(const std::string& name, const UIColor& color) {
    return {name, {color.red(), color.green(), color.blue(), color.alpha()}};
}

void expectNear(const Calls& drawn, const Calls& expected, const std::string& what) {
    ASSERT_EQ(drawn.size(), expected.size()) << what;
    for (std::size_t place = 0; place < drawn.size(); ++place) {
        EXPECT_TRUE(drawn[place].isNear(expected[place], 1e-9))
            << what << " call " << place << ": " << drawn[place] << " instead of " << expected[place];
    }
}

class ButtonDrawing : public test::ViewsFixture {
protected:
    std::unique_ptr<UIButtonX> make(CGSize size, const State& state = {true, false, false}) {
        auto button =
            std::make_unique<UIButtonX>(CGRect{0.0, 0.0, size.width, size.height}, glbFuncs, settings);
        button->setSelectable(true);
        button->setSelected(state.selected);
        button->setSelectable(state.selectable);
        button->setEnabled(state.enabled);
        return button;
    }
    [[nodiscard]] Calls draw(UIButtonX& button) const {
        RecordingContext context;
        button.drawRect(context);
        return context.calls();
    }
    [[nodiscard]] UIColor enabledColor(const State& state) const {
        return state.enabled ? settings.fifthColor : settings.secondColor;
    }
    [[nodiscard]] UIColor stateColor(const State& state) const {
        return (state.selectable ? state.selected : state.enabled) ? settings.fifthColor
                                                                   : settings.secondColor;
    }
    [[nodiscard]] Calls expectedGlyph(const Glyph& glyph, const State& state) const {
        Calls calls = {{"setLineWidth", {1.0}},
                       colored("setStrokeColor", stateColor(state)),
                       colored("setFillColor", stateColor(state))};
        for (const RecordedCall& call : glyph.calls) {
            calls.push_back(resolved(call, state));
        }
        return calls;
    }
    [[nodiscard]] RecordedCall resolved(const RecordedCall& call, const State& state) const {
        const std::size_t blank = call.name.find(" bar");
        if (blank != std::string::npos) {
            return colored(call.name.substr(0, blank), settings.fourthColor);
        }
        const std::size_t enabled = call.name.find(" enabled");
        return enabled == std::string::npos ? call
                                            : colored(call.name.substr(0, enabled), enabledColor(state));
    }

    GlobalFuncs glbFuncs;
    Settings settings;
};

TEST_F(ButtonDrawing, EveryFigureHasItsGeometryInEveryState) {
    const auto all = glyphs();
    ASSERT_EQ(all.size(), 30U);
    for (const Glyph& glyph : all) {
        for (const State& state : states()) {
            const auto button = make(glyph.size, state);
            button->setButtonShape(glyph.shape);
            expectNear(draw(*button), expectedGlyph(glyph, state), "figure " + std::to_string(glyph.shape));
        }
    }
}

Calls outline(int type, CGSize size) {
    const double w = size.width - 2.0;
    const double h = size.height - 2.0;
    switch (type) {
    case UIButtonXTypeEllipse:
        return {{"addEllipseInRect", {1.0, 1.0, w, h}}};
    case UIButtonXTypeCircle:
        return {{"addEllipseInRect", {w / 2.0 - h / 2.0 + 1.0, 1.0, h, h}}};
    case UIButtonXTypeRoundedRectangle:
        return {{"moveTo", {1.0, 1.0 + h / 2.0}},
                {"addArcToPoint", {1.0, 1.0, 1.0 + w / 2.0, 1.0, 3.0}},
                {"addArcToPoint", {1.0 + w, 1.0, 1.0 + w, 1.0 + h / 2.0, 3.0}},
                {"addArcToPoint", {1.0 + w, 1.0 + h, 1.0 + w / 2.0, 1.0 + h, 3.0}},
                {"addArcToPoint", {1.0, 1.0 + h, 1.0, 1.0 + h / 2.0, 3.0}},
                {"addLineTo", {1.0, 1.0 + h / 2.0}},
                {"closePath", {}}};
    case UIButtonXTypeRectangle:
        return {{"addRect", {1.0, 1.0, w, h}}};
    default:
        return {};
    }
}

TEST_F(ButtonDrawing, EveryOutlineHasItsGeometryInEveryState) {
    for (const CGSize size : {CGSize{70.0, 30.0}, CGSize{120.0, 90.0}}) {
        for (const int type : {-1, 1, 2, 3, 4, 5, 99}) {
            for (const State& state : states()) {
                const auto button = make(size, state);
                button->setButtonType(type);
                Calls expected = {colored("setStrokeColor", stateColor(state))};
                for (const RecordedCall& call : outline(type, size)) {
                    expected.push_back(call);
                }
                expected.push_back({"drawPath stroke", {}});
                expectNear(draw(*button), expected, "outline " + std::to_string(type));
            }
        }
    }
}

TEST_F(ButtonDrawing, HomeButtonShowsACircleAndAHouse) {
    const auto button = make({70.0, 30.0}, {true, true, true});
    button->setButtonType(UIButtonXTypeCircle);
    button->setButtonShape(UIButtonXShapeHouse);
    RecordingContext context;
    button->drawRect(context);
    EXPECT_EQ(context.callsNamed("addEllipseInRect"), (Calls{{"addEllipseInRect", {21.0, 1.0, 28.0, 28.0}}}));
    EXPECT_EQ(context.callsNamed("moveTo"), (Calls{{"moveTo", {35.0, 6.0}}}));
    EXPECT_EQ(context.callsNamed("drawPath stroke").size(), 2U);
}

TEST_F(ButtonDrawing, NothingIsDrawnWithoutOutlineAndFigure) {
    const auto button = make({70.0, 30.0});
    EXPECT_TRUE(draw(*button).empty());
}

TEST_F(ButtonDrawing, UnknownFigureDrawsNothing) {
    for (const int shape : {-1, 13, 1000}) {
        const auto button = make({70.0, 30.0});
        button->setButtonShape(shape);
        for (const RecordedCall& call : draw(*button)) {
            EXPECT_TRUE(call.name.starts_with("set")) << call;
        }
    }
}

TEST_F(ButtonDrawing, CharactersReplaceTheCaptionAtEveryRedraw) {
    const std::pair<int, std::string> characters[] = {{7, "\xE2\x9C\xA7"}, {8, "\xE2\x84\xB9\xEF\xB8\x8E"}};
    for (const auto& [shape, character] : characters) {
        const auto button = make({70.0, 30.0});
        button->setButtonShape(shape);
        for (int redraw = 0; redraw < 2; ++redraw) {
            button->text().setText("mine");
            button->text().setFont({"Verdana", 9.0});
            EXPECT_EQ(draw(*button).size(), 3U);
            EXPECT_EQ(button->text().text(), character);
            EXPECT_EQ(button->text().font(), (UIFont{"AppleColorEmoji", 1.3 * 18.0}));
        }
    }
}

TEST_F(ButtonDrawing, DisablingANonSelectableButtonChangesLinesButNotTheCaption) {
    const auto button = make({70.0, 30.0});
    button->setButtonType(UIButtonXTypeCircle);
    EXPECT_EQ(draw(*button).front(), colored("setStrokeColor", settings.fifthColor));
    const UIColor caption = button->text().textColor();
    button->setEnabled(false);
    EXPECT_EQ(draw(*button).front(), colored("setStrokeColor", settings.secondColor));
    EXPECT_EQ(button->text().textColor(), caption);
}

/// A button too small for its figure draws figures of size 0, or mirrored ones, but nothing breaks.
TEST_F(ButtonDrawing, TinyAndEmptyButtonsAreDrawn) {
    for (const CGSize size : {CGSize{0.0, 0.0}, CGSize{1.0, 1.0}, CGSize{12.0, 12.0}, CGSize{-40.0, -7.0}}) {
        for (int shape = 0; shape <= 13; ++shape) {
            const auto button = make(size);
            button->setButtonShape(shape);
            button->setButtonType(shape % 6);
            EXPECT_NO_THROW(static_cast<void>(draw(*button)));
        }
    }
}

/// A context that cannot draw.
template <typename Failure> class BrokenContext final : public CGContext {
public:
    explicit BrokenContext(Failure failure) : failure_(failure) {}
    [[nodiscard]] double lineWidth() const override { return 1.0; }
    void setLineWidth(double) override {}
    void setLineCap(CGLineCap) override {}
    void setStrokeColor(const UIColor&) override {}
    void setFillColor(const UIColor&) override {}
    void moveTo(double, double) override {}
    void addLineTo(double, double) override {}
    void addArcToPoint(double, double, double, double, double) override {}
    void addArc(double, double, double, double, double, bool) override {}
    void addEllipseInRect(const CGRect&) override {}
    void addRect(const CGRect&) override {}
    void closePath() override {}
    void drawPath(CGPathDrawingMode) override { throw failure_; }

private:
    Failure failure_;
};

TEST_F(ButtonDrawing, ExceptionEndsTheDrawingAndIsLoggedInTwoLines) {
    const auto button = make({70.0, 30.0});
    button->setButtonType(UIButtonXTypeCircle);
    button->setButtonShape(UIButtonXShapeStar);
    BrokenContext context(std::runtime_error("no paint"));
    EXPECT_NO_THROW(button->drawRect(context));
    EXPECT_TRUE(button->text().text().empty()) << "the drawing went on";
    std::istringstream lines(log());
    std::string first;
    std::string second;
    std::string third;
    std::getline(lines, first);
    std::getline(lines, second);
    EXPECT_EQ(first.substr(first.find(']')), "] Error in UIButtonX -> drawRect");
    EXPECT_EQ(second.substr(second.find(']')), "] no paint");
    EXPECT_FALSE(std::getline(lines, third));
}

TEST_F(ButtonDrawing, OtherFailuresGoThrough) {
    const auto button = make({70.0, 30.0});
    button->setButtonType(UIButtonXTypeCircle);
    BrokenContext context(42);
    EXPECT_THROW(button->drawRect(context), int);
    EXPECT_TRUE(log().empty());
}

} // namespace
} // namespace zorel
