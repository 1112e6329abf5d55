// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "draw/YearChart.h"

namespace zorel::cli {

namespace {
/// What is drawn of each day: the six times; all of them where there is room.
std::vector<almanac::Prayer> curvesOf(const Context& context) {
    std::vector<almanac::Prayer> curves(almanac::kSixPrayers.begin(), almanac::kSixPrayers.end());
    const bool all = context.options.others || (context.options.svg && context.options.with.empty());
    if (all) {
        curves.insert(curves.end(), almanac::kOtherPrayers.begin(), almanac::kOtherPrayers.end());
        curves.push_back(almanac::Prayer::sunAtQibla);
    }
    return curves;
}

YearChart chartOf(const Context& context) {
    YearChart chart;
    chart.first.place = resolvePlace(context);
    const almanac::Date today = chart.first.place.clock().dateAt(context.now());
    const int year = context.options.year == 0 ? static_cast<int>(today.year()) : context.options.year;
    chart.first.year = yearOfPlace(chart.first.place.place, year);
    if (!context.options.with.empty()) {
        ShownPlace second = resolvePlaceText(context, context.options.with);
        YearOfPlace days = yearOfPlace(second.place, year);
        chart.second = ChartPlace{std::move(second), std::move(days)};
    }
    if (static_cast<int>(today.year()) == year) {
        chart.today = today;
    }
    chart.curves = curvesOf(context);
    return chart;
}
} // namespace

Exit runChart(const Context& context) {
    const YearChart chart = chartOf(context);
    context.streams.out << (context.options.svg ? chartSvg(context, chart) : chartText(context, chart));
    return Exit::ok;
}

} // namespace zorel::cli
