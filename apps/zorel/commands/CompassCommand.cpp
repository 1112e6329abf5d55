// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "draw/CompassRose.h"
#include "grammar/DateArgument.h"
#include "print/ClockNotices.h"
#include "print/DayJson.h"
#include "print/DayText.h"
#include "print/PlaceText.h"

#include "almanac/Almanac.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
std::string modelText(const Context& context, const almanac::Magnetic& magnetic) {
    // translators: {0} the name of a model ("WMM2025"), {1} its epoch, {2} and {3} years
    const std::string text = tr("{0}, epoch {1:.1f}, made for {2:.0f}-{3:.0f}", magnetic.model,
                                magnetic.epoch, magnetic.validFrom, magnetic.validTo);
    // translators: the year lies outside those that the model was made for
    return magnetic.extrapolated ? text + ", " + context.style.warning(tr("extrapolated")) : text;
}

void addBearings(TextTable& table, const Compass& compass) {
    if (compass.qibla.bearing) {
        table.add({tr("Qibla, true bearing"), bearingText(*compass.qibla.bearing)},
                  TextTable::Emphasis::highlight);
    }
    if (compass.magneticBearing) {
        table.add({tr("Qibla, magnetic bearing"),
                   bearingText(*compass.magneticBearing) + uncertaintyText(*compass.magnetic)});
    }
    if (compass.qibla.bearing) {
        table.add({tr("Distance to the Kaaba"), distanceText(compass.qibla.distance)});
    }
    if (compass.magnetic) {
        table.add({tr("Magnetic declination"), declinationText(*compass.magnetic)});
    }
}

std::string fieldText(const Context& context, const almanac::Magnetic& magnetic) {
    std::string text = "  " + tr("Magnetic model: {}", modelText(context, magnetic)) + '\n';
    if (const std::string warning = fieldWarning(magnetic); !warning.empty()) {
        text += fmt::format("  ! {}\n", context.style.warning(warning));
    }
    return text;
}

std::string rosePicture(const Context& context, const Compass& compass) {
    const bool ascii = context.ascii();
    return fmt::format("\n{}\n  {}\n\n", roseText(context, compass),
                       ascii ? tr("Q qibla, m magnetic north, N true north")
                             : tr("◆ qibla, m magnetic north, N true north"));
}

void printText(const Context& context, const Compass& compass) {
    TextTable table("lr");
    addBearings(table, compass);
    for (const almanac::SunAtQibla& instant : compass.qibla.instants) {
        table.add(
            {context.nameOf(almanac::Prayer::sunAtQibla), timeText(context, instant.at.local, compass.date)});
    }
    std::string text =
        compass.qibla.bearing
            ? ""
            : fmt::format("  {}\n", tr("this is the Kaaba itself: every direction is the qibla"));
    text += table.text(context.style, "  ");
    if (compass.qibla.instants.empty() && compass.qibla.bearing) {
        text += fmt::format("  {}\n", tr("the Sun does not stand in the qibla today"));
    }
    if (compass.magnetic) {
        text += fieldText(context, *compass.magnetic);
    }
    context.streams.out << context.style.bold(placeText(compass.place)) << "  "
                        << almanac::isoDate(compass.date) << '\n'
                        << (context.options.chart ? rosePicture(context, compass) : std::string()) << text
                        << clockNoticeLine(context, compass.place, compass.date);
}

Json bearingJson(const std::optional<double>& degrees) {
    return degrees ? Json(roundedBearing(*degrees, 2)) : Json(nullptr);
}

Json magneticJson(const std::optional<almanac::Magnetic>& magnetic) {
    if (!magnetic) {
        return nullptr;
    }
    return Json{
        {"declination", numberJson(magnetic->declination, 2)},
        {"uncertainty", magnetic->uncertainty ? numberJson(*magnetic->uncertainty, 2) : Json(nullptr)},
        {"horizontal_intensity_nt", numberJson(magnetic->horizontalIntensity, 0)},
        {"model", magnetic->model},
        {"epoch", magnetic->epoch},
        {"valid_from", numberJson(magnetic->validFrom, 2)},
        {"valid_to", numberJson(magnetic->validTo, 2)},
        {"extrapolated", magnetic->extrapolated}};
}

void printJson(const Context& context, const Compass& compass) {
    writeJson(context, Json{{"schema", "zorel/compass/1"},
                            {"place", placeJson(compass.place)},
                            {"date", almanac::isoDate(compass.date)},
                            {"clock", clockJson(compass.place, compass.date)},
                            {"qibla_true", bearingJson(compass.qibla.bearing)},
                            {"qibla_magnetic", bearingJson(compass.magneticBearing)},
                            {"distance_km", numberJson(compass.qibla.distance, 1)},
                            {"magnetic", magneticJson(compass.magnetic)},
                            {"sun_at_qibla", sunAtQiblaJson(compass.qibla)}});
}
} // namespace

Exit runCompass(const Context& context) {
    ShownPlace place = resolvePlace(context);
    const almanac::Date today = place.clock().dateAt(context.now());
    const almanac::Date date =
        context.options.date.empty() ? today : requireDate(context.options.date, today, "--date");
    const Compass compass = compassOf(std::move(place), date);
    if (context.options.svg) {
        context.streams.out << roseSvg(context, compass);
    } else if (context.options.json) {
        printJson(context, compass);
    } else {
        printText(context, compass);
    }
    return Exit::ok;
}

} // namespace zorel::cli
