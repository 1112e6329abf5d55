// SPDX-License-Identifier: Apache-2.0
#include "draw/DayBar.h"

#include "draw/LabelRows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zorel::cli {

using almanac::Instant;

namespace {
constexpr std::string_view kIndent = "  ";
constexpr std::size_t kEveryThreeHours = 56; ///< columns from which on there is room for them

/// How a kind of light looks, by Light.
struct Shade {
    std::string_view ascii;
    std::string_view block;
    std::string_view colour; ///< of the ground, with that of a mark on it (256 colours)
};

constexpr std::array<Shade, 4> kShades{{
    {".", "░", "48;5;17;38;5;255"},
    {":", "▒", "48;5;173;38;5;16"},
    {"#", "█", "48;5;222;38;5;16"},
    {":", "▒", "48;5;97;38;5;255"},
}};

class Bar {
public:
    Bar(const Context& context, const almanac::PlaceClock& clock, const DayLight& day)
        : context_(context), clock_(clock), day_(day), width_(context.columns() - 2 * kIndent.size()) {}

    [[nodiscard]] std::string hours() const {
        const int step = width_ >= kEveryThreeHours ? 3 : 6;
        LabelRows row(width_);
        const almanac::Date date = clock_.dateAt(day_.civil.begin);
        for (int hour = 0; hour < 24; hour += step) {
            row.add(columnOf(clock_.instantOf(date, std::chrono::hours(hour))), fmt::format("{}", hour));
        }
        row.add(width_, "24");
        return context_.style.dim(withoutLineFeed(row.text(kIndent))) + '\n';
    }
    [[nodiscard]] std::string present(Instant now) const {
        const std::string word = tr("now");
        const std::string mark = context_.ascii() ? "v" : "▼";
        const std::size_t column = columnOf(now);
        const bool right = column + 2 + displayWidth(word) <= width_;
        const std::string text = right ? mark + ' ' + word : word + ' ' + mark;
        const std::size_t blanks = right ? column : column - displayWidth(word) - 1;
        return std::string(kIndent) + std::string(blanks, ' ') + context_.style.highlight(text) + '\n';
    }
    [[nodiscard]] std::string bar() const {
        std::string line(kIndent);
        for (std::size_t column = 0; column < width_;) {
            const Light light = lightOf(column);
            std::string cells;
            for (; column < width_ && lightOf(column) == light; ++column) {
                cells += cell(light, column);
            }
            line += context_.style.paint(kShades[static_cast<std::size_t>(light)].colour, cells);
        }
        return line + '\n';
    }
    [[nodiscard]] std::string names() const {
        LabelRows rows(width_);
        for (const almanac::DayTime& time : day_.times) {
            rows.add(columnOf(time.shown), context_.nameOf(time.prayer));
        }
        return rows.text(kIndent);
    }

private:
    static std::string withoutLineFeed(std::string text) {
        text.pop_back();
        return text;
    }
    [[nodiscard]] std::chrono::seconds length() const { return day_.civil.end - day_.civil.begin; }
    [[nodiscard]] std::size_t columnOf(Instant instant) const {
        const auto past = std::max<std::int64_t>((instant - day_.civil.begin).count(), 0);
        const auto column =
            static_cast<std::size_t>(past) * width_ / static_cast<std::size_t>(length().count());
        return std::min(column, width_ - 1);
    }
    /// By the middle of the column.
    [[nodiscard]] Light lightOf(std::size_t column) const {
        const auto seconds = static_cast<std::size_t>(length().count()) * (2 * column + 1) / (2 * width_);
        return lightAt(day_, day_.civil.begin + std::chrono::seconds(seconds));
    }
    [[nodiscard]] std::string_view cell(Light light, std::size_t column) const {
        const bool marked = std::ranges::any_of(
            day_.times, [&](const almanac::DayTime& time) { return columnOf(time.shown) == column; });
        if (marked) {
            return context_.ascii() ? "|" : "│";
        }
        const Shade& shade = kShades[static_cast<std::size_t>(light)];
        return context_.style.colours() ? " " : context_.ascii() ? shade.ascii : shade.block;
    }

    const Context& context_;
    const almanac::PlaceClock& clock_;
    const DayLight& day_;
    std::size_t width_;
};
} // namespace

std::string dayBarText(const Context& context, const almanac::PlaceClock& clock, const DayLight& day,
                       std::optional<Instant> now) {
    if (!day.known || day.civil.begin == day.civil.end) {
        return {};
    }
    const Bar bar(context, clock, day);
    return bar.hours() + (now ? bar.present(*now) : std::string()) + bar.bar() + bar.names();
}

} // namespace zorel::cli
