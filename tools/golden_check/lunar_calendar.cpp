// SPDX-License-Identifier: Apache-2.0
// Runners of the Hijri calendar, the magnetic field, the widget summary and the Sun's records.
#include "engine/MagneticVariation.h"
#include "lunar_support.h"

namespace zorel::golden {

namespace {

constexpr double kTurn = 360.0;
constexpr double kDay = 24.0;

Outputs hijriOutputs(const HijriDate& date) {
    return {static_cast<double>(date.year), static_cast<double>(date.month), static_cast<double>(date.day)};
}

/// The place is overwritten by the observation-based conversions; only the zone matters.
FastAstro hijriEngine(const Arguments& in) {
    return engineInZone(41.0082, 28.9784, in.number(0));
}

Outputs runCrescentDate(const Arguments& in) {
    FastAstro engine;
    DateTimeRecord r = in.record(0);
    engine.GetCrescentDate(r);
    Outputs out;
    for (const std::int32_t field : {r.year, r.month, r.day, r.hour, r.minute, r.second}) {
        out.push_back(field);
    }
    out.push_back(engine.MoonElongation(engine.astroGlobalFuncs.JulianDay(r)));
    return out;
}

Outputs runRealHijri(const Arguments& in) {
    FastAstro engine = hijriEngine(in);
    HijriDate date;
    engine._RealGregJulToHicri(in.integer(1), in.integer(2), in.integer(3), date);
    Outputs out = hijriOutputs(date);
    const std::optional<HijriMonthStart> month =
        engine.FindHijriMonth(in.integer(3), in.integer(2), in.integer(1));
    out.push_back(month ? month->newMoon : 0.0);
    out.push_back(month ? month->start : 0.0);
    return out;
}

Outputs runAllCalendars(const Arguments& in) {
    FastAstro engine = hijriEngine(in);
    AllCalendarRecord r;
    engine.ConvertAllCalendar({in.integer(3), in.integer(2), in.integer(1)}, r);
    Outputs out;
    for (const std::int32_t field : {r.day, r.month, r.year, r.weekday, r.hijriDay, r.hijriMonth, r.hijriYear,
                                     r.summerHalf, r.rumiDay, r.rumiMonth, r.rumiYear, r.dayOfHalf}) {
        out.push_back(field);
    }
    return out;
}

void addHijri(Registry& registry) {
    registry.add({"JulianToHicri", [](const Arguments& in) {
                      return hijriOutputs(AstroGlobalFuncs{}.JulianToHicri(in.number(0)));
                  }});
    registry.add({"GregJulToHicri", [](const Arguments& in) {
                      return hijriOutputs(
                          AstroGlobalFuncs{}.GregJulToHicri(in.integer(0), in.integer(1), in.integer(2)));
                  }});
    registry.add({"GetCrescentDate", runCrescentDate});
    registry.add({"_RealGregJulToHicri",
                  runRealHijri,
                  {{.position = 3, .tolerance = 1e-3}, {.position = 4, .tolerance = 1e-6}}});
    registry.add({"RealGregJulToHicri", [](const Arguments& in) {
                      FastAstro engine = hijriEngine(in);
                      HijriDate date;
                      engine.RealGregJulToHicri(in.integer(1), in.integer(2), in.integer(3), date);
                      return hijriOutputs(date);
                  }});
    registry.add({"ConvertAllCalendar", runAllCalendars});
}

Outputs runMagnetic(const Arguments& in) {
    MagneticVariation field;
    const double declination = field.getMagneticVariation(in.integer(0), in.integer(1), in.integer(2),
                                                          in.number(3), in.number(4), in.number(5));
    return {declination,          field.iInclination,  field.iHorizontalIntensity,  field.iTotalIntensity,
            field.iNorthwardComp, field.iEastwardComp, field.iVerticalDownwardComp, field.iDeclinationTemp};
}

Outputs runMagneticSexagesimal(const Arguments& in) {
    MagneticVariation field;
    return {field.getMagneticVariation2(in.integer(0), in.integer(1), in.integer(2), in.integer(3),
                                        in.integer(4), in.integer(5), in.integer(6), in.integer(7),
                                        in.integer(8), in.number(9))};
}

void addMagnetic(Registry& registry) {
    registry.add({"Julday", [](const Arguments& in) -> Outputs {
                      return {MagneticVariation{}.Julday(in.integer(0), in.integer(1), in.integer(2))};
                  }});
    registry.add({"DegreesToDecimal", [](const Arguments& in) -> Outputs {
                      return {
                          MagneticVariation{}.DegreesToDecimal(in.integer(0), in.integer(1), in.integer(2))};
                  }});
    std::vector<Field> fields;
    for (std::size_t position = 2; position <= 6; ++position) {
        fields.push_back({.position = position, .tolerance = 0.05}); // [nT]
    }
    registry.add({"getMagneticVariation", runMagnetic, fields});
    registry.add({"getMagneticVariation2", runMagneticSexagesimal});
}

Outputs runWidget(const Arguments& in) {
    const WidgetAstroInfo w = engineOnDate(in).getSomeInfoForZorelWidget();
    return {w.sunrise, w.sunset, w.moonrise, w.moonset, w.moonAltitudeAtSunset};
}

Outputs runSunInformation(const Arguments& in) {
    const SunDetails s = engineOnDate(in).SunInformation(in.record(4), in.number(0), in.number(1));
    return {s.declination,  s.rightAscension, s.altitude, s.azimuth,  s.rise,        s.transit, s.set,
            s.siderealTime, s.equationOfTime, s.distance, s.diameter, s.shadowRatio, s.gha};
}

Outputs runSunDirection(const Arguments& in) {
    SunDirectionInfo d;
    engineOnDate(in).SunInformationForDirection(in.record(4), d);
    return {d.rise, d.set, d.azimuth, d.altitude};
}

Outputs runSunCrescent(const Arguments& in) {
    SunCrescentInfo c;
    engineOnDate(in).SunInformationForCrescent(in.record(4), c);
    return {c.rise, c.set};
}

void addWidgetAndSun(Registry& registry) {
    registry.add({"getSomeInfoForWidget", runWidget});
    registry.add({"SunInformation",
                  runSunInformation,
                  {{.position = 1, .period = kDay},
                   {.position = 3, .period = kTurn},
                   {.position = 7, .period = kDay},
                   {.position = 10, .tolerance = 0.0100001}, // two decimals of a rounded value
                   {.position = 11, .tolerance = 1e-3, .relative = true},
                   {.position = 12, .period = kTurn}}});
    registry.add({"SunInformationForDirection", runSunDirection, {{.position = 2, .period = kTurn}}});
    registry.add({"SunInformationForCrescent", runSunCrescent});
}

} // namespace

void addCalendarAndWidgetOperations(Registry& registry) {
    addHijri(registry);
    addMagnetic(registry);
    addWidgetAndSun(registry);
}

} // namespace zorel::golden
