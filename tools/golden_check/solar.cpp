// SPDX-License-Identifier: Apache-2.0
// The calendar and the Sun.
#include "Registry.h"

#include "engine/FastAstro.h"

#include <fmt/format.h>
#include <limits>
#include <map>

namespace zorel::golden {

namespace {

constexpr double kFullTurn = 360.0;
constexpr double kDay = 24.0;

Outputs dateOf(const DateTimeRecord& record) {
    return {static_cast<double>(record.year),   static_cast<double>(record.month),
            static_cast<double>(record.day),    static_cast<double>(record.hour),
            static_cast<double>(record.minute), static_cast<double>(record.second)};
}

void addCalendar(Registry& registry) {
    registry.add({"DateRecordMake", [](const Arguments& in) {
                      return dateOf(DateRecordMake(in.integer(0), in.integer(1), in.integer(2), in.integer(3),
                                                   in.integer(4), in.integer(5)));
                  }});
    registry.add({"CalculateJulianDay", [](const Arguments& in) -> Outputs {
                      return {AstroGlobalFuncs().CalculateJulianDay(in.integer(0), in.integer(1),
                                                                    in.integer(2), in.integer(3),
                                                                    in.integer(4), in.integer(5))};
                  }});
    registry.add({"JulianToCalendar", [](const Arguments& in) {
                      DateTimeRecord record{-7, -7, -7, -7, -7, -7, 0.0};
                      Outputs out{AstroGlobalFuncs().JulianToCalendar(in.number(0), record, in.integer(1))};
                      const Outputs date = dateOf(record);
                      out.insert(out.end(), date.begin(), date.end());
                      return out;
                  }});
    registry.add({"JulianToGregorian", [](const Arguments& in) {
                      return dateOf(AstroGlobalFuncs().JulianToGregorian(in.number(0)));
                  }});
    registry.add({"DayOfWeek", [](const Arguments& in) -> Outputs {
                      return {static_cast<double>(
                          AstroGlobalFuncs().DayOfWeek(in.integer(0), in.integer(1), in.integer(2)))};
                  }});
    registry.add({"IsDSTDay", [](const Arguments& in) -> Outputs {
                      std::int32_t start = 0;
                      std::int32_t stop = 0;
                      const bool answer = AstroGlobalFuncs().IsDSTDay(
                          in.integer(0), in.integer(1), in.integer(2), in.integer(3), in.integer(4),
                          in.integer(5), in.integer(6), start, stop);
                      return {answer ? 1.0 : 0.0, static_cast<double>(start), static_cast<double>(stop)};
                  }});
}

void addNumbers(Registry& registry) {
    registry.add(
        {"frac", [](const Arguments& in) -> Outputs { return {AstroGlobalFuncs().frac(in.number(0))}; }});
    registry.add(
        {"ToHMS", [](const Arguments& in) -> Outputs {
             std::int32_t hour = 0;
             std::int32_t minute = 0;
             std::int32_t second = 0;
             AstroGlobalFuncs().ToHMS(in.number(0), hour, minute, second);
             return {static_cast<double>(hour), static_cast<double>(minute), static_cast<double>(second)};
         }});
    registry.add({"Round",
                  [](const Arguments& in) -> Outputs {
                      return {AstroGlobalFuncs().Round(in.number(0), in.integer(1))};
                  },
                  {{.position = 0, .relative = true}}});
    registry.add({"ZArcTan2", [](const Arguments& in) -> Outputs {
                      return {AstroGlobalFuncs().ZArcTan2(in.number(0), in.number(1))};
                  }});
}

double earthSeries(const std::string& name, double tau) {
    using Series = double (EarthCompute::*)(double) const;
    static const std::map<std::string, Series> series{
        {"_L0", &EarthCompute::_L0}, {"_L1", &EarthCompute::_L1}, {"_L2", &EarthCompute::_L2},
        {"_L3", &EarthCompute::_L3}, {"_L4", &EarthCompute::_L4}, {"_L5", &EarthCompute::_L5},
        {"_B0", &EarthCompute::_B0}, {"_B1", &EarthCompute::_B1}, {"_R0", &EarthCompute::_R0},
        {"_R1", &EarthCompute::_R1}, {"_R2", &EarthCompute::_R2}, {"_R3", &EarthCompute::_R3},
        {"_R4", &EarthCompute::_R4}};
    const auto found = series.find(name);
    if (found == series.end()) {
        throw MalformedFile(fmt::format("EarthSeries: no series {}", name));
    }
    return (EarthCompute().*found->second)(tau);
}

void addEarth(Registry& registry) {
    registry.add(
        {.name = "EarthSeries",
         .run = [](const Arguments& in) -> Outputs {
             return {earthSeries(in.text(0), in.number(1)), std::numeric_limits<double>::quiet_NaN()};
         },
         .tolerancePosition = 1});
    registry.add({"EarthLBR", [](const Arguments& in) -> Outputs {
                      const EarthCompute earth;
                      const double julianDay = in.number(0);
                      return {earth.EarthL(julianDay), earth.EarthB(julianDay), earth.EarthR(julianDay)};
                  }});
}

void addPosition(Registry& registry) {
    registry.add({"SunDecRA",
                  [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      engine.SunDecRA(in.number(0));
                      return {engine.SunDec, engine.SunRA, engine.EclipticLongitude};
                  },
                  {{.position = 1, .period = kDay}, {.position = 2, .period = kFullTurn}}});
    registry.add({"SunDecRAAccurate",
                  [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      engine.SunDecRAAccurate(in.number(0));
                      return {engine.SunDistance, engine.SunDec, engine.SunRA};
                  },
                  {{.position = 2, .period = kDay}}});
    registry.add({"SunL",
                  [](const Arguments& in) -> Outputs { return {FastAstro().SunL(in.number(0))}; },
                  {{.position = 0, .period = kFullTurn}}});
    registry.add(
        {"Epsilon", [](const Arguments& in) -> Outputs { return {FastAstro().Epsilon(in.number(0))}; }});
    registry.add(
        {"DeltaPSI", [](const Arguments& in) -> Outputs { return {FastAstro().DeltaPSI(in.number(0))}; }});
    registry.add({"EquationOfTime", [](const Arguments& in) -> Outputs {
                      return {FastAstro().EquationOfTime(in.number(0), in.number(1))};
                  }});
}

void addSidereal(Registry& registry) {
    registry.add({"GM_Sidereal_Time", [](const Arguments& in) -> Outputs {
                      return {FastAstro().GM_Sidereal_Time(in.number(0))};
                  }});
    registry.add({"LM_Sidereal_Time",
                  [](const Arguments& in) -> Outputs {
                      return {FastAstro().LM_Sidereal_Time(in.number(0), in.number(1))};
                  },
                  {{.position = 0, .period = kDay}}});
    registry.add(
        {"LMST",
         [](const Arguments& in) -> Outputs { return {FastAstro().LMST(in.number(0), in.number(1))}; },
         {{.position = 0, .period = kDay}}});
    registry.add({"ComputeGHA",
                  [](const Arguments& in) -> Outputs {
                      return {
                          FastAstro().ComputeGHA(in.integer(0), in.integer(1), in.integer(2), in.number(3))};
                  },
                  {{.position = 0, .period = kFullTurn}}});
}

void addHorizontal(Registry& registry) {
    registry.add({.name = "SinElev",
                  .run = [](const Arguments& in) -> Outputs {
                      return {FastAstro().SinElev(in.number(0), in.number(1), in.number(2), in.number(3),
                                                  in.number(4))};
                  },
                  .arguments = {"jd", "lat", "west", "dec", "ra"}});
    registry.add({"SunElev", [](const Arguments& in) -> Outputs {
                      return {FastAstro().SunElev(in.number(0), in.number(1), in.number(2), in.number(3),
                                                  in.number(4))};
                  }});
    registry.add({"SunAltitude", [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      engine.SetLatLon(in.number(0), in.number(1));
                      return {engine.SunAltitude(in.number(2), in.number(3))};
                  }});
    registry.add({"SunAzimuth",
                  [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      engine.SetLatLon(in.number(0), in.number(1));
                      return {engine.SunAzimuth(in.number(2), in.number(3), in.number(4))};
                  },
                  {{.position = 0, .period = kFullTurn}}});
    registry.add(
        {"Refract", [](const Arguments& in) -> Outputs { return {FastAstro().Refract(in.number(0))}; }});
}

Outputs riseAndSet(const FastAstro& engine) {
    return {engine.UTRise, engine.UTSet, engine.Rise ? 1.0 : 0.0, engine.Sett ? 1.0 : 0.0};
}

void addRiseAndSet(Registry& registry) {
    registry.add({"Quad", [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      const int count = engine.Quad(in.number(0), in.number(1), in.number(2));
                      return {static_cast<double>(count), engine.YE, engine.Zero1, engine.Zero2, engine.DX};
                  }});
    registry.add({"RiseSet", [](const Arguments& in) {
                      FastAstro engine;
                      engine.UTRise = kNoSolarEvent;
                      engine.UTSet = kNoSolarEvent;
                      engine.SetLatLon(in.number(0), in.number(1));
                      engine.RiseSet(in.integer(2), in.integer(3), in.integer(4), in.integer(5));
                      return riseAndSet(engine);
                  }});
    registry.add({"SunRiseSet", [](const Arguments& in) {
                      FastAstro engine;
                      engine.SetLatLon(in.number(0), in.number(1));
                      engine.iPlace.timeZone = in.number(2);
                      engine.SunRiseSet(in.integer(3), in.integer(4), in.integer(5));
                      return riseAndSet(engine);
                  }});
    registry.add({"SunRiseSetTrans", [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      engine.SetLatLon(in.number(0), in.number(1));
                      engine.iPlace.timeZone = in.number(2);
                      SunDetails sun;
                      sun.rightAscension = in.number(6);
                      engine.SunRiseSetTrans(in.date(3), sun);
                      return {sun.rise, sun.transit, sun.set, sun.equationOfTime};
                  }});
}

/// An engine whose place was set for the date in positions 7 to 9; positions 0 to 6 are zone and rule.
FastAstro engineOfZone(const Arguments& in) {
    FastAstro engine;
    engine.SetCurrentDateTime(in.date(7));
    engine.SetPlace(0.0, 0.0, in.number(0), in.integer(1), in.integer(2), in.integer(3), in.integer(4),
                    in.integer(5), in.integer(6), 0);
    return engine;
}

void addZones(Registry& registry) {
    registry.add({"SetUniversalTime", [](const Arguments& in) {
                      DateTimeRecord record{in.integer(10),
                                            in.integer(11),
                                            in.integer(12),
                                            in.integer(13),
                                            in.integer(14),
                                            in.integer(15),
                                            0.0};
                      engineOfZone(in).SetUniversalTime(record);
                      return dateOf(record);
                  }});
    registry.add({"SetLocalTime", [](const Arguments& in) -> Outputs {
                      double time = in.number(10);
                      engineOfZone(in).SetLocalTime(time, in.date(11));
                      return {time};
                  }});
    registry.add({"SetLocalTimeManual", [](const Arguments& in) {
                      DateTimeRecord record{in.integer(0),
                                            in.integer(1),
                                            in.integer(2),
                                            in.integer(3),
                                            in.integer(4),
                                            in.integer(5),
                                            0.0};
                      FastAstro().SetLocalTimeManual(record, in.integer(6));
                      return dateOf(record);
                  }});
}

} // namespace

void addSolarOperations(Registry& registry) {
    addCalendar(registry);
    addNumbers(registry);
    addEarth(registry);
    addPosition(registry);
    addSidereal(registry);
    addHorizontal(registry);
    addRiseAndSet(registry);
    addZones(registry);
}

} // namespace zorel::golden
