// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
#include "draw/CompassRose.h"
#include "draw/SkyTexts.h"
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
    std::string text =
        fmt::format("{}, {} {:.1f}, {} {:.0f}-{:.0f}", magnetic.model, context.word(Word::epoch),
                    magnetic.epoch, context.word(Word::validity), magnetic.validFrom, magnetic.validTo);
    if (magnetic.extrapolated) {
        text += ", " + context.style.warning(context.word(Word::modelOutside));
    }
    return text;
}

void addBearings(TextTable& table, const Context& context, const Compass& compass) {
    const auto add = [&](Word name, const std::string& value) {
        table.add({std::string(context.word(name)), value});
    };
    if (compass.qibla.bearing) {
        table.add({std::string(context.word(Word::qiblaTrue)), bearingText(*compass.qibla.bearing)},
                  TextTable::Emphasis::highlight);
    }
    if (compass.magneticBearing) {
        add(Word::qiblaMagnetic, bearingText(*compass.magneticBearing) + uncertaintyText(*compass.magnetic));
    }
    if (compass.qibla.bearing) {
        add(Word::qiblaDistance, distanceText(compass.qibla.distance));
    }
    if (compass.magnetic) {
        add(Word::magneticDeclination, declinationText(context, *compass.magnetic));
    }
}

std::string fieldText(const Context& context, const almanac::Magnetic& magnetic) {
    std::string text = fmt::format("  {}: {}\n", context.word(Word::model), modelText(context, magnetic));
    if (const std::string_view warning = fieldWarning(context, magnetic); !warning.empty()) {
        text += fmt::format("  ! {}\n", context.style.warning(warning));
    }
    return text;
}

std::string rosePicture(const Context& context, const Compass& compass) {
    const bool ascii = context.options.ascii;
    return fmt::format("\n{}\n  {}\n\n", roseText(context, compass),
                       ascii ? sky_texts::kRoseLegendAscii : sky_texts::kRoseLegend);
}

void printText(const Context& context, const Compass& compass) {
    TextTable table("lr");
    addBearings(table, context, compass);
    for (const almanac::SunAtQibla& instant : compass.qibla.instants) {
        table.add(
            {context.nameOf(almanac::Prayer::sunAtQibla), timeText(context, instant.at.local, compass.date)});
    }
    std::string text = compass.qibla.bearing ? "" : fmt::format("  {}\n", context.word(Word::atKaaba));
    text += table.text(context.style, "  ");
    if (compass.qibla.instants.empty() && compass.qibla.bearing) {
        text += fmt::format("  {}\n", context.word(Word::noQiblaInstant));
    }
    if (compass.magnetic) {
        text += fieldText(context, *compass.magnetic);
    }
    context.streams.out << context.style.bold(placeText(compass.place, context.language)) << "  "
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
                            {"place", placeJson(context, compass.place)},
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
