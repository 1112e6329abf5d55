// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "DayJson.h"
#include "DayText.h"
#include "PlaceResolver.h"
#include "QiblaInstants.h"

#include "engine/MagneticVariation.h"

#include <fmt/format.h>

#include <cmath>

namespace zorel::cli {

namespace {
struct Compass {
    Place place;
    Date date{};
    std::optional<double> bearing; ///< [deg] true, clockwise from north; nothing at the Kaaba itself
    std::optional<MagneticDeclination> magnetic;
    std::vector<EventTime> sunAtQibla;
};

Compass compassOf(Place place, Date date) {
    MagneticVariation field;
    const DateTimeRecord day = engineDate(date);
    Compass compass;
    compass.date = date;
    compass.bearing = qiblaBearing(place);
    compass.magnetic =
        field.Declination(day.day, day.month, day.year, place.latitude, place.longitude, place.elevation);
    compass.sunAtQibla = sunAtQiblaInstants(place, date);
    compass.place = std::move(place);
    return compass;
}

double magneticBearing(const Compass& compass) {
    const double bearing = *compass.bearing - compass.magnetic->declination;
    return bearing - 360.0 * std::floor(bearing / 360.0);
}

std::string declinationText(const Context& context, const MagneticDeclination& magnetic) {
    return fmt::format("{:.1f}° {}", std::abs(magnetic.declination),
                       context.word(magnetic.declination < 0.0 ? Word::west : Word::east));
}

std::string modelText(const Context& context, const MagneticDeclination& magnetic) {
    std::string text =
        fmt::format("{}, {} {:.1f}, {} {:.0f}-{:.0f}", magnetic.model, context.word(Word::epoch),
                    magnetic.epoch, context.word(Word::validity), magnetic.validFrom, magnetic.validTo);
    if (magnetic.extrapolated)
        text += ", " + context.style.warning(context.word(Word::modelOutside));
    return text;
}

void addBearings(TextTable& table, const Context& context, const Compass& compass) {
    if (!compass.bearing)
        return;
    table.add({std::string(context.word(Word::qiblaTrue)), fmt::format("{:.1f}°", *compass.bearing)},
              TextTable::Emphasis::highlight);
    if (compass.magnetic)
        table.add({std::string(context.word(Word::qiblaMagnetic)),
                   fmt::format("{:.1f}°", magneticBearing(compass))});
}

void printText(const Context& context, const Compass& compass) {
    TextTable table("lr");
    addBearings(table, context, compass);
    if (compass.magnetic)
        table.add({std::string(context.word(Word::magneticDeclination)),
                   declinationText(context, *compass.magnetic)});
    for (const EventTime& instant : compass.sunAtQibla)
        table.add({context.nameOf(PrayerTimes::qiblaTime), eventText(context, instant, compass.date)});
    std::string text = compass.bearing ? "" : fmt::format("  {}\n", context.word(Word::atKaaba));
    text += table.text(context.style, "  ");
    if (compass.sunAtQibla.empty() && compass.bearing)
        text += fmt::format("  {}\n", context.word(Word::noQiblaInstant));
    if (compass.magnetic)
        text += fmt::format("  {}: {}\n", context.word(Word::model), modelText(context, *compass.magnetic));
    context.streams.out << context.style.bold(placeText(compass.place, context.language)) << "  "
                        << isoDate(compass.date) << '\n'
                        << text;
}

Json rounded(double degrees) {
    return std::round(degrees * 100.0) / 100.0;
}

Json magneticJson(const std::optional<MagneticDeclination>& magnetic) {
    if (!magnetic)
        return nullptr;
    return Json{{"declination", rounded(magnetic->declination)},
                {"model", magnetic->model},
                {"epoch", magnetic->epoch},
                {"valid_from", magnetic->validFrom},
                {"valid_to", magnetic->validTo},
                {"extrapolated", magnetic->extrapolated}};
}

void printJson(const Context& context, const Compass& compass) {
    Json instants = Json::array();
    for (const EventTime& instant : compass.sunAtQibla)
        instants.push_back(eventJson(instant));
    const bool both = compass.bearing && compass.magnetic;
    writeJson(context, Json{{"schema", "zorel/compass/1"},
                            {"place", placeJson(context, compass.place)},
                            {"date", isoDate(compass.date)},
                            {"qibla_true", compass.bearing ? rounded(*compass.bearing) : Json(nullptr)},
                            {"qibla_magnetic", both ? rounded(magneticBearing(compass)) : Json(nullptr)},
                            {"magnetic", magneticJson(compass.magnetic)},
                            {"sun_at_qibla", instants}});
}
} // namespace

Exit runCompass(const Context& context) {
    Place place = resolvePlace(context);
    const Date today = place.clock.dateAt(context.now());
    const Date date =
        context.options.date.empty() ? today : requireDate(context.options.date, today, "--date");
    const Compass compass = compassOf(std::move(place), date);
    if (context.options.json)
        printJson(context, compass);
    else
        printText(context, compass);
    return Exit::ok;
}

} // namespace zorel::cli
