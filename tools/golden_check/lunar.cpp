// SPDX-License-Identifier: Apache-2.0
// Runners of the Moon's position, events, phases and records.
#include "lunar_support.h"

#include <utility>

namespace zorel::golden {

namespace {

constexpr double kTurn = 360.0;
constexpr double kDay = 24.0;
constexpr double kDistanceTolerance = 0.5; // [km]

template <typename Function> Runner ofOneNumber(Function function) {
    return [function](const Arguments& in) -> Outputs { return {function(in.number(0))}; };
}

void addAngleHelpers(Registry& registry) {
    const auto add = [&registry](const char* name, double (MoonCompute::*method)(double) const,
                                 std::vector<Field> fields = {}) {
        registry.add({name, ofOneNumber([method](double x) { return (MoonCompute{}.*method)(x); }),
                      std::move(fields)});
    };
    add("PutIn360", &MoonCompute::PutIn360, {{.position = 0, .period = kTurn}});
    add("Cos_Deg", &MoonCompute::Cos_Deg);
    add("Sin_Deg", &MoonCompute::Sin_Deg);
    add("Tan_Deg", &MoonCompute::Tan_Deg);
    add("ArcSin_Deg", &MoonCompute::ArcSin_Deg);
    registry.add({"ArcTan2_Deg",
                  [](const Arguments& in) -> Outputs {
                      return {MoonCompute{}.ArcTan2_Deg(in.number(0), in.number(1))};
                  },
                  {{.position = 0, .period = kTurn}}});
    registry.add({"ToDeg",
                  ofOneNumber([](double x) { return FastAstro{}.ToDeg(x); }),
                  {{.position = 0, .period = kTurn}}});
    registry.add({"MoonLambda",
                  ofOneNumber([](double x) { return FastAstro{}.MoonLambda(x); }),
                  {{.position = 0, .period = kTurn}}});
}

Outputs runGeocentric(const Arguments& in) {
    double lambda = in.number(1);
    double rightAscension = 0.0;
    double declination = 0.0;
    MoonCompute{}.Calc_Geocentric(in.number(0), lambda, in.number(2), rightAscension, declination);
    return {lambda, rightAscension, declination};
}

Outputs runMoonDecRA(const Arguments& in) {
    FastAstro engine;
    engine.MoonDecRA(in.number(0));
    return {engine.L_Moon, engine.B_Moon, engine.MoonDec, engine.MoonRA, engine.MoonGHA};
}

Outputs runMoonDecRAAccurate(const Arguments& in) {
    FastAstro engine;
    engine.MoonDecRAAccurate(in.number(0));
    return {engine.MoonDec, engine.MoonRA, engine.MoonDist, engine.MoonGHA};
}

void addPositions(Registry& registry) {
    registry.add({"Calc_Epsilon_Phi", [](const Arguments& in) -> Outputs {
                      double deltaPsi = 0.0;
                      double epsilon = 0.0;
                      MoonCompute{}.Calc_Epsilon_Phi(in.number(0), deltaPsi, epsilon);
                      return {deltaPsi, epsilon};
                  }});
    registry.add({"Calc_Geocentric",
                  runGeocentric,
                  {{.position = 0, .period = kTurn}, {.position = 1, .period = kTurn}}});
    registry.add({"Moon_Coordinate",
                  [](const Arguments& in) -> Outputs {
                      double declination = 0.0;
                      double rightAscension = 0.0;
                      double distance = 0.0;
                      MoonCompute{}.Moon_Coordinate(in.number(0), declination, rightAscension, distance);
                      return {declination, rightAscension, distance};
                  },
                  {{.position = 1, .period = kDay}, {.position = 2, .tolerance = kDistanceTolerance}}});
    registry.add(
        {"MoonDecRA", runMoonDecRA, {{.position = 3, .period = kDay}, {.position = 4, .period = kTurn}}});
    registry.add({"MoonDecRAAccurate",
                  runMoonDecRAAccurate,
                  {{.position = 1, .period = kDay},
                   {.position = 2, .tolerance = kDistanceTolerance},
                   {.position = 3, .period = kTurn}}});
}

void addSiderealTimes(Registry& registry) {
    registry.add(
        {.name = "LMST",
         .run = [](const Arguments& in) -> Outputs { return {FastAstro{}.LMST(in.number(0), in.number(1))}; },
         .fields = {{.position = 0, .period = kDay}},
         .arguments = {"mjd", "lon_deg_east"}});
    registry.add({"MoonSideRealTime", [](const Arguments& in) -> Outputs {
                      return {engineAt(0.0, in.number(0)).MoonSideRealTime(in.number(1))};
                  }});
    registry.add({.name = "SinElev",
                  .run = [](const Arguments& in) -> Outputs {
                      return {FastAstro{}.SinElev(in.number(2), in.number(0), -in.number(1), in.number(3),
                                                  in.number(4))};
                  },
                  .arguments = {"lat", "lon_east", "jd", "dec", "ra_hours"}});
    registry.add(
        {"SinElev2", [](const Arguments& in) -> Outputs {
             const FastAstro engine = engineAt(in.number(0), in.number(1));
             return {engine.SinElev2(in.number(2), in.number(0), -in.number(1), in.number(3), in.number(4))};
         }});
    registry.add({.name = "Quad",
                  .run = [](const Arguments& in) -> Outputs {
                      FastAstro engine;
                      const int count = engine.Quad(in.number(0), in.number(1), in.number(2));
                      return {static_cast<double>(count), engine.YE, engine.Zero1, engine.Zero2, engine.DX};
                  },
                  .arguments = {"y_minus", "y_plus", "y_0"}});
}

Outputs runAltitudeAzimuth(const Arguments& in) {
    FastAstro engine = engineAt(in.number(0), 0.0);
    engine.CalculateTLong();
    engine.Moon.declination = in.number(1);
    engine.Moon.rightAscension = in.number(2);
    engine.Moon.siderealTime = in.number(3);
    engine.Moon.distance = in.number(4);
    double altitude = 0.0;
    double azimuth = 0.0;
    engine.MoonAltitudeAzimuth(altitude, azimuth);
    return {altitude, azimuth};
}

Outputs runAberration(const Arguments& in) {
    FastAstro engine = engineAt(in.number(0), 0.0);
    engine.CalculateTLong();
    double rightAscension = in.number(1);
    double declination = in.number(2);
    engine.DiurnalAberration(rightAscension, declination, in.number(3));
    return {rightAscension, declination};
}

Outputs runParallax(const Arguments& in) {
    FastAstro engine = engineAt(in.number(0), 0.0);
    engine.CalculateTLong();
    double rightAscension = in.number(1);
    double declination = in.number(2);
    engine.DiurnalParallax(rightAscension, declination, in.number(3), in.number(4));
    return {rightAscension, declination};
}

void addHorizon(Registry& registry) {
    registry.add({"MoonTrueAltitude", [](const Arguments& in) -> Outputs {
                      return {engineAt(in.number(0), in.number(1)).MoonTrueAltitude(in.number(2))};
                  }});
    registry.add({"MoonDistance", ofOneNumber([](double x) { return FastAstro{}.MoonDistance(x); })});
    registry.add({"MoonParallax", [](const Arguments& in) -> Outputs {
                      return {FastAstro{}.MoonParallax(in.number(0), in.number(1))};
                  }});
    registry.add({"MoonAppAltitude", [](const Arguments& in) -> Outputs {
                      return {engineAt(in.number(0), in.number(1)).MoonAppAltitude(in.record(2))};
                  }});
    registry.add({"MoonAzimuth",
                  [](const Arguments& in) -> Outputs {
                      const FastAstro engine = engineAt(in.number(0), in.number(1));
                      return {engine.MoonAzimuth(in.number(2), in.number(3), in.number(4))};
                  },
                  {{.position = 0, .period = kTurn}}});
    registry.add({"CalculateTLong", [](const Arguments& in) -> Outputs {
                      FastAstro engine = engineAt(in.number(0), 0.0);
                      engine.CalculateTLong();
                      return {engine.tLat, engine.trho};
                  }});
    registry.add({"DiurnalAberration", runAberration});
    registry.add({"DiurnalParallax", runParallax});
    registry.add({"MoonAltitudeAzimuth", runAltitudeAzimuth, {{.position = 1, .period = kTurn}}});
}

FastAstro zoneEngine(const Arguments& in) {
    return engineInZone(in.number(0), in.number(1), in.number(2));
}

/// Day, month and year at positions 3 to 5.
DateTimeRecord dayMonthYear(const Arguments& in) {
    return {in.integer(5), in.integer(4), in.integer(3)};
}

void addEvents(Registry& registry) {
    registry.add({"MoonRiseTime", [](const Arguments& in) -> Outputs {
                      FastAstro engine = zoneEngine(in);
                      engine.MoonRiseTime(in.integer(3), in.integer(4), in.integer(5));
                      return {engine.MoonRise};
                  }});
    registry.add({"MoonSetTime", [](const Arguments& in) -> Outputs {
                      FastAstro engine = zoneEngine(in);
                      engine.MoonSetTime(in.integer(3), in.integer(4), in.integer(5));
                      return {engine.MoonSet};
                  }});
    registry.add({"MoonRiseSetTrans", [](const Arguments& in) -> Outputs {
                      FastAstro engine = zoneEngine(in);
                      MoonInfo moon;
                      engine.MoonRiseSetTrans(dayMonthYear(in), moon);
                      return {moon.rise, moon.transit, moon.set};
                  }});
    registry.add({"MoonTransTime", [](const Arguments& in) -> Outputs {
                      return {zoneEngine(in).MoonTransTime(in.integer(3), in.integer(4), in.integer(5))};
                  }});
    registry.add({"Phase", ofOneNumber([](double x) { return FastAstro{}.Phase(x); })});
    registry.add({"MoonElongation", ofOneNumber([](double x) { return FastAstro{}.MoonElongation(x); })});
    registry.add({"MoonPhaze", [](const Arguments& in) -> Outputs {
                      return {FastAstro{}.MoonPhaze(in.number(0), in.integer(1))};
                  }});
}

Outputs runMoonInformation(const Arguments& in) {
    const MoonInfo m = FastAstro{}.MoonInformation(in.record(0), in.number(1), in.number(2));
    return {m.declination,  m.rightAscension, m.geocentricAltitude, m.apparentAltitude,
            m.azimuth,      m.siderealTime,   m.distance,           m.horizontalParallax,
            m.semiDiameter, m.elongation,     m.illuminated,        m.waxing ? 1.0 : 0.0,
            m.gha};
}

Outputs directionOutputs(const MoonDirectionInfo& d) {
    return {d.rise, d.set, d.azimuth, d.apparentAltitude, d.elongation};
}

Outputs runCrescentRecord(const Arguments& in) {
    FastAstro engine = engineAt(in.number(0), in.number(1));
    PlaceRecord place;
    place.latitude = in.number(0);
    place.longitude = in.number(1);
    MoonCrescentInfo info;
    engine.MoonInformationforCrescent(in.record(2), place, info);
    return {info.apparentAltitude, info.elongation, engine.Moon.declination, engine.Moon.rightAscension,
            engine.Moon.siderealTime};
}

void addRecords(Registry& registry) {
    registry.add({"MoonInformation",
                  runMoonInformation,
                  {{.position = 1, .period = kDay},
                   {.position = 4, .period = kTurn},
                   {.position = 5, .period = kDay},
                   {.position = 6, .tolerance = kDistanceTolerance},
                   {.position = 12, .period = kTurn}}});
    const std::vector<Field> direction{{.position = 2, .period = kTurn}};
    registry.add({"MoonInformationForDirection",
                  [](const Arguments& in) -> Outputs {
                      MoonDirectionInfo info;
                      engineOnDate(in).MoonInformationForDirection(in.record(4), info);
                      return directionOutputs(info);
                  },
                  direction});
    registry.add({"MoonInformationForDirectionWithoutLocalTime",
                  [](const Arguments& in) -> Outputs {
                      MoonDirectionInfo info;
                      engineOnDate(in).MoonInformationForDirectionWithoutLocalTime(in.record(4), info);
                      return directionOutputs(info);
                  },
                  direction});
    registry.add({"MoonInformationforCrescent",
                  runCrescentRecord,
                  {{.position = 3, .period = kDay}, {.position = 4, .period = kDay}}});
}

} // namespace

void addMoonOperations(Registry& registry) {
    addAngleHelpers(registry);
    addPositions(registry);
    addSiderealTimes(registry);
    addHorizon(registry);
    addEvents(registry);
    addRecords(registry);
}

void addLunarOperations(Registry& registry) {
    addMoonOperations(registry);
    addCalendarAndWidgetOperations(registry);
}

} // namespace zorel::golden
