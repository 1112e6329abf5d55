// SPDX-License-Identifier: Apache-2.0
// Prayer times, qibla, sunset-based clock.
#include "Registry.h"

#include "engine/FastAstro.h"
#include "engine/Temkin.h"

#include <algorithm>

namespace zorel::golden {

namespace {

double flag(bool value) {
    return value ? 1.0 : 0.0;
}

/// A fresh engine with the date in positions 10 to 12 and the place in 0 to 9.
FastAstro engineOfPlace(const Arguments& in) {
    FastAstro engine;
    engine.SetCurrentDate(in.integer(12), in.integer(11), in.integer(10));
    engine.SetPlace(in.number(0), in.number(1), in.number(2), in.integer(3), in.integer(4), in.integer(5),
                    in.integer(6), in.integer(7), in.integer(8), in.integer(9));
    return engine;
}

Outputs placeAndTimes(const FastAstro& engine, const PrayerTimes& times) {
    Outputs out(times.times.begin(), times.times.end());
    const Outputs rest{times.priorLatitude,
                       flag(times.latitudeLowered),
                       flag(times.dawnFromOtherDay),
                       flag(times.nightfallFromOtherDay),
                       flag(times.secondNightfallFromOtherDay),
                       times.ezani[PrayerTimes::sunrise],
                       engine.iPlace.timeZone,
                       flag(engine.iPlace.dstActive),
                       engine.iPlace.qibla.q0,
                       engine.iPlace.qibla.q1,
                       engine.Lat};
    out.insert(out.end(), rest.begin(), rest.end());
    return out;
}

PrayerTimes timesOf(const std::vector<double>& values) {
    PrayerTimes times;
    std::copy_n(values.begin(), std::min(values.size(), times.times.size()), times.times.begin());
    return times;
}

Outputs listOf(const std::array<double, 16>& values) {
    return {values.begin(), values.end()};
}

/// Days that the searches for the indices 0, 5 and 7 went back, `ahead` days after the current date.
Outputs daysBack(const Arguments& in, std::int32_t ahead) {
    const FastAstro engine = engineOfPlace(in);
    DateTimeRecord date = in.date(10);
    engine.SetLocalTimeManual(date, ahead);
    Outputs days;
    for (const int index : {PrayerTimes::dawn, PrayerTimes::nightfall, PrayerTimes::secondNightfall}) {
        days.push_back(engine.ExplainPrayTime(index, date).daysBack);
    }
    return days;
}

void addDay(Registry& registry) {
    registry.add({.name = "CalculatePrayTimes",
                  .run =
                      [](const Arguments& in) {
                          FastAstro engine = engineOfPlace(in);
                          const PlaceRecord place = engine.CalculatePrayTimes();
                          return placeAndTimes(engine, place.today);
                      },
                  .back = [](const Arguments& in) { return daysBack(in, 0); }});
    registry.add({.name = "CalculateNextPrayTimes",
                  .run =
                      [](const Arguments& in) {
                          FastAstro engine = engineOfPlace(in);
                          engine.CalculateNextPrayTimes();
                          return placeAndTimes(engine, engine.iPlace.tomorrow);
                      },
                  .back = [](const Arguments& in) { return daysBack(in, 1); }});
    registry.add({"SunInformationForPray",
                  [](const Arguments& in) {
                      FastAstro engine;
                      engine.SetLatLon(in.number(0), in.number(1));
                      engine.iPlace.timeZone = in.number(2);
                      const SunInfoForPray info =
                          engine.SunInformationForPray(in.integer(3), in.integer(4), in.integer(5));
                      return Outputs(info.field.begin(), info.field.end());
                  },
                  {{.position = 3, .tolerance = 1e-8}, {.position = 5, .tolerance = 1e-8}}});
    registry.add({"Iterasyon", [](const Arguments& in) -> Outputs {
                      SunInfoForPray info;
                      info.field[0] = in.number(6);
                      info.field[2] = in.number(7);
                      info.field[3] = in.number(8);
                      info.field[5] = in.number(9);
                      double time = 0.0;
                      const bool answer =
                          FastAstro().Iterasyon(in.number(0), in.number(1), in.number(2), in.number(3), time,
                                                in.integer(4), in.integer(5), info);
                      return {flag(answer), time};
                  }});
}

void addParts(Registry& registry) {
    registry.add({"temkin", [](const Arguments& in) -> Outputs {
                      return {temkinHours(in.number(0), in.integer(1) == 1)};
                  }});
    registry.add({"KibleAcisi", [](const Arguments& in) -> Outputs {
                      const QiblaRecord qibla = FastAstro().KibleAcisi(in.number(0), in.number(1));
                      return {qibla.q0, qibla.q1};
                  }});
    registry.add({"MinuteCorrection", [](const Arguments& in) -> Outputs {
                      double hours = in.number(0);
                      FastAstro().MinuteCorrection(hours);
                      return {hours};
                  }});
    registry.add({"SetPrayTimesToDSTTimes", [](const Arguments& in) {
                      PrayerTimes times = timesOf(in.numbers(1));
                      FastAstro().SetPrayTimesToDSTTimes(in.number(0), times);
                      return listOf(times.times);
                  }});
}

void addEzani(Registry& registry) {
    registry.add({"TimeToHourDeg",
                  [](const Arguments& in) -> Outputs { return {FastAstro().TimeToHourDeg(in.number(0))}; }});
    registry.add({"CalculateEzaniTimes", [](const Arguments& in) -> Outputs {
                      PrayerTimes times;
                      times.times[PrayerTimes::sunset] = in.number(1);
                      return {FastAstro().CalculateEzaniTimes(in.number(0), times)};
                  }});
    registry.add({"CalculateAllEzaniTimes", [](const Arguments& in) {
                      PrayerTimes times = timesOf(in.numbers(0));
                      times.ezani = timesOf(in.numbers(1)).times;
                      FastAstro().CalculateAllEzaniTimes(times);
                      return listOf(times.ezani);
                  }});
}

} // namespace

void addPrayerOperations(Registry& registry) {
    addDay(registry);
    addParts(registry);
    addEzani(registry);
}

} // namespace zorel::golden
