// SPDX-License-Identifier: Apache-2.0
// What Python needs of the library, in plain numbers and texts; src/python/zorel/__init__.py makes objects of
// them.
#include <zorel/almanac/Almanac.h>
#include <zorel/catalogue/Catalogue.h>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace py = pybind11;
using namespace zorel::almanac;
using zorel::catalogue::Catalogue;
using zorel::catalogue::City;

namespace {

/// numpy's "not a time".
constexpr std::int64_t kNotATime = std::numeric_limits<std::int64_t>::min();

/// key, why there is none, instant [s], offset [s], names of corrections
using TimeRow =
    std::tuple<std::string, std::optional<std::string>, std::int64_t, std::int64_t, std::vector<std::string>>;

std::optional<std::string> reasonOf(Absence absence) {
    switch (absence) {
    case Absence::none:
        return std::nullopt;
    case Absence::nightWithoutEnds:
        return "night_without_ends";
    case Absence::outOfOrder:
        return "out_of_order";
    case Absence::noBearing:
        return "no_bearing";
    default:
        return "never_reached";
    }
}

TimeRow rowOf(const DayTime& time) {
    std::vector<std::string> corrections;
    for (std::size_t i = 0; i < kCorrections; ++i) {
        if (time.why.corrections.has(static_cast<Correction>(i))) {
            corrections.emplace_back(keyOf(static_cast<Correction>(i)));
        }
    }
    return {std::string(keyOf(time.prayer)), reasonOf(time.absence), time.shown.time_since_epoch().count(),
            time.local.offset.count(), corrections};
}

Date checkedDate(int year, unsigned month, unsigned day) {
    const Date date = std::chrono::year(year) / month / day;
    if (!isInRange(date)) {
        throw py::value_error("dates are those from 1583-01-01 to 9998-12-31");
    }
    return date;
}

Date checkedDate(std::int64_t daysSinceEpoch) {
    constexpr auto first = std::chrono::sys_days(std::chrono::year{1583} / 1 / 1).time_since_epoch().count();
    constexpr auto last = std::chrono::sys_days(std::chrono::year{9998} / 12 / 31).time_since_epoch().count();
    if (daysSinceEpoch < first || daysSinceEpoch > last) {
        throw py::value_error("dates are those from 1583-01-01 to 9998-12-31");
    }
    return Date(std::chrono::sys_days(std::chrono::days(static_cast<int>(daysSinceEpoch))));
}

Catalogue openedCatalogue(const std::optional<std::string>& bundle) {
    auto cities = bundle ? Catalogue::open(*bundle) : Catalogue::openInstalled();
    if (!cities) {
        PyErr_SetString(PyExc_OSError, "there is no catalogue of cities, or it cannot be read");
        throw py::error_already_set();
    }
    return *std::move(cities);
}

std::optional<City> cityOf(const std::string& name, const std::optional<std::string>& bundle) {
    const Catalogue cities = openedCatalogue(bundle);
    auto city = cities.find(name);
    if (!city && !cities.readable()) {
        PyErr_SetString(PyExc_OSError, "the catalogue of cities cannot be read any more");
        throw py::error_already_set();
    }
    return city;
}

std::vector<std::string> similarNames(const std::string& name, std::size_t most,
                                      const std::optional<std::string>& bundle) {
    std::vector<std::string> names;
    for (const City& city : openedCatalogue(bundle).similar(name, most)) {
        names.push_back(city.place.name + ", " + city.country);
    }
    return names;
}

City pointAt(double latitude, double longitude, const std::optional<std::string>& zone) {
    if (!(std::abs(latitude) <= 90.0) || !(std::abs(longitude) <= 180.0)) {
        throw py::value_error("latitudes are -90 to 90 degrees, longitudes -180 to 180");
    }
    const auto clock = zone ? PlaceClock::ofZone(*zone) : PlaceClock::ofMachine();
    if (!clock) {
        throw py::value_error("the system has no data of the time zone \"" + *zone + "\"");
    }
    City city;
    city.place.latitude = latitude;
    city.place.longitude = longitude;
    city.place.clock = *clock;
    return city;
}

std::vector<TimeRow> dayOf(const City& city, int year, unsigned month, unsigned day) {
    const Day told = Almanac(city.place).day(checkedDate(year, month, day));
    std::vector<TimeRow> rows;
    for (const DayTime& time : told.times) {
        rows.push_back(rowOf(time));
    }
    return rows;
}

std::optional<TimeRow> nextOf(const City& city, std::int64_t instant) {
    checkedDate(instant / 86400 - 2);
    checkedDate(instant / 86400 + 3);
    const NextPrayer told = Almanac(city.place).next(Instant(std::chrono::seconds(instant)));
    return told.next ? std::optional(rowOf(*told.next)) : std::nullopt;
}

using Days = py::array_t<std::int64_t, py::array::c_style | py::array::forcecast>;

/// Instants and offsets [s], a row for each day and a column for each time; kNotATime where there is none.
std::pair<py::array_t<std::int64_t>, py::array_t<std::int64_t>> daysOf(const City& city, const Days& days) {
    const std::vector<std::int64_t> asked(days.data(), days.data() + days.size());
    const auto rows = static_cast<py::ssize_t>(asked.size());
    py::array_t<std::int64_t> instants({rows, static_cast<py::ssize_t>(kPrayers)});
    py::array_t<std::int64_t> offsets({rows, static_cast<py::ssize_t>(kPrayers)});
    std::int64_t* instant = instants.mutable_data();
    std::int64_t* offset = offsets.mutable_data();
    const py::gil_scoped_release others;
    const Almanac almanac(city.place);
    Memory memory;
    for (const std::int64_t day : asked) {
        for (const DayTime& time : almanac.day(checkedDate(day), memory).times) {
            *instant++ = time.exists() ? time.shown.time_since_epoch().count() : kNotATime;
            *offset++ = time.exists() ? time.local.offset.count() : 0;
        }
    }
    return {instants, offsets};
}

std::tuple<int, int, int> hijriOf(const City& city, int year, unsigned month, unsigned day) {
    const auto calendars = Almanac(city.place).calendars(checkedDate(year, month, day));
    return {calendars.hijriYear, calendars.hijriMonth, calendars.hijriDay};
}

std::vector<std::string> keys() {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < kPrayers; ++i) {
        all.emplace_back(keyOf(static_cast<Prayer>(i)));
    }
    return all;
}

void setTemkin(City& city, int metres) {
    if (metres != 250 && metres != 500) {
        throw py::value_error("temkin is 250 or 500 metres");
    }
    city.place.temkin = metres == 250 ? Temkin::upTo250m : Temkin::upTo500m;
}

} // namespace

PYBIND11_MODULE(_zorel, module) {
    module.attr("KEYS") = py::tuple(py::cast(keys()));
    module.attr("VERSION") = ZOREL_VERSION;
    py::class_<City>(module, "City")
        .def_readonly("id", &City::id)
        .def_readonly("region", &City::region)
        .def_readonly("country", &City::country)
        .def_readonly("country_code", &City::countryCode)
        .def_readonly("population", &City::population)
        .def_property_readonly("name", [](const City& city) { return city.place.name; })
        .def_property_readonly("latitude", [](const City& city) { return city.place.latitude; })
        .def_property_readonly("longitude", [](const City& city) { return city.place.longitude; })
        .def_property_readonly("zone", [](const City& city) { return city.place.clock.zoneName(); })
        .def("set_temkin", &setTemkin, py::arg("metres"));
    module.def("city_of", &cityOf, py::arg("name"), py::arg("bundle"));
    module.def("similar_names", &similarNames, py::arg("name"), py::arg("most"), py::arg("bundle"));
    module.def("point_at", &pointAt, py::arg("latitude"), py::arg("longitude"), py::arg("zone"));
    module.def("day_of", &dayOf, py::arg("city"), py::arg("year"), py::arg("month"), py::arg("day"));
    module.def("days_of", &daysOf, py::arg("city"), py::arg("days"));
    module.def("next_of", &nextOf, py::arg("city"), py::arg("instant"));
    module.def("hijri_of", &hijriOf, py::arg("city"), py::arg("year"), py::arg("month"), py::arg("day"));
    module.def(
        "qibla_of",
        [](const City& city) {
            return std::pair(qiblaBearing(city.place.latitude, city.place.longitude),
                             qiblaDistance(city.place.latitude, city.place.longitude));
        },
        py::arg("city"));
}
