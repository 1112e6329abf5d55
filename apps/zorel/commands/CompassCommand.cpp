// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/PlaceResolver.h"
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
/// Below these the compass is as good as useless, or not to be relied on, by the makers of the model [nT].
constexpr double kUseless = 2000.0;
constexpr double kUnreliable = 6000.0;

struct Compass {
    ShownPlace place;
    almanac::Date date{};
    almanac::Qibla qibla;
    std::optional<almanac::Magnetic> magnetic;
    std::optional<double> magneticBearing; ///< [deg]; nothing at the Kaaba and at a magnetic pole
};

Compass compassOf(ShownPlace place, almanac::Date date) {
    const almanac::Almanac almanac(place.place);
    Compass compass{std::move(place), date, almanac.qibla(date), almanac.magnetic(date), std::nullopt};
    if (compass.qibla.bearing && compass.magnetic) {
        compass.magneticBearing =
            almanac::magneticBearing(*compass.qibla.bearing, compass.magnetic->declination);
    }
    return compass;
}

/// A bearing rounded to some decimals, below 360.
double roundedBearing(double degrees, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(degrees * scale) / scale;
    return rounded >= 360.0 ? 0.0 : rounded;
}

std::string bearingText(double degrees) {
    return fmt::format("{:.1f}°", roundedBearing(degrees, 1));
}

/// " ± 0.3°"; empty for a model that does not say.
std::string uncertaintyText(const almanac::Magnetic& magnetic) {
    return magnetic.uncertainty ? fmt::format(" ± {:.1f}°", *magnetic.uncertainty) : std::string();
}

std::string declinationText(const Context& context, const almanac::Magnetic& magnetic) {
    return fmt::format("{:.1f}° {}{}", std::abs(magnetic.declination),
                       context.word(magnetic.declination < 0.0 ? Word::west : Word::east),
                       uncertaintyText(magnetic));
}

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
    if (magnetic.horizontalIntensity < kUnreliable) {
        const bool useless = magnetic.horizontalIntensity < kUseless;
        text += fmt::format("  ! {}\n", context.style.warning(context.word(
                                            useless ? Word::compassUseless : Word::compassUnreliable)));
    }
    return text;
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
                        << text << clockNoticeLine(context, compass.place, compass.date);
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
    if (context.options.json) {
        printJson(context, compass);
    } else {
        printText(context, compass);
    }
    return Exit::ok;
}

} // namespace zorel::cli
