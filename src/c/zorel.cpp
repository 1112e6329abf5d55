// SPDX-License-Identifier: Apache-2.0
// The doors of the C interface: arguments checked, nothing thrown beyond them.
#include "c/zorel.h"

#include "almanac/Almanac.h"
#include "almanac/Prayer.h"
#include "catalogue/Catalogue.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

using namespace zorel::almanac;
using zorel::catalogue::Catalogue;
using zorel::catalogue::City;

struct zorel_catalogue {
    Catalogue cities;
};

struct zorel_place {
    City city;
};

namespace {

constexpr std::chrono::hours kGreatestOffset{14};
constexpr double kGreatestLatitude = 90.0;
constexpr double kGreatestLongitude = 180.0;

static_assert(ZOREL_KINDS == kPrayers);
static_assert(ZOREL_FIRST_THIRD_OF_NIGHT == static_cast<int>(Prayer::firstThirdOfNight));
static_assert(sizeof(zorel_time) == 40, "the layout is part of the interface");

/// What a call answers when there is no memory for its result.
template <typename Call> zorel_status guarded(Call call) {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return ZOREL_OUT_OF_MEMORY;
    }
}

zorel_place* handleOf(City city) {
    return new zorel_place{std::move(city)};
}

/// What it means that a catalogue has no answer: it may have become unreadable.
zorel_status withoutAnswer(const Catalogue& cities) {
    return cities.readable() ? ZOREL_NO_SUCH_PLACE : ZOREL_NO_CATALOGUE;
}

zorel_status found(const Catalogue& cities, std::optional<City> city, zorel_place** place) {
    if (!city) {
        return withoutAnswer(cities);
    }
    *place = handleOf(*std::move(city));
    return ZOREL_OK;
}

zorel_status pointStatus(double latitude, double longitude) {
    if (!std::isfinite(latitude) || !std::isfinite(longitude)) {
        return ZOREL_BAD_ARGUMENT;
    }
    const bool onEarth = std::abs(latitude) <= kGreatestLatitude && std::abs(longitude) <= kGreatestLongitude;
    return onEarth ? ZOREL_OK : ZOREL_OUT_OF_RANGE;
}

zorel_place* pointWith(double latitude, double longitude, PlaceClock clock) {
    City point;
    point.place.latitude = latitude;
    point.place.longitude = longitude;
    point.place.clock = std::move(clock);
    return handleOf(std::move(point));
}

std::optional<Date> dateFrom(const zorel_date& date) {
    if (date.year < 1 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > 31) {
        return std::nullopt;
    }
    const Date given =
        std::chrono::year(date.year) / static_cast<unsigned>(date.month) / static_cast<unsigned>(date.day);
    return isInRange(given) ? std::optional(given) : std::nullopt;
}

zorel_date dateTo(Date date) {
    return {int(date.year()), static_cast<std::int32_t>(unsigned(date.month())),
            static_cast<std::int32_t>(unsigned(date.day()))};
}

zorel_absence absenceOf(const DayTime& time) {
    switch (time.absence) {
    case Absence::none:
        return ZOREL_EXISTS;
    case Absence::nightWithoutEnds:
        return ZOREL_NIGHT_WITHOUT_ENDS;
    case Absence::outOfOrder:
        return ZOREL_OUT_OF_ORDER;
    case Absence::noBearing:
        return ZOREL_NO_BEARING;
    default:
        return ZOREL_NEVER_REACHED;
    }
}

std::uint32_t correctionBits(Corrections corrections) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < kCorrections; ++i) {
        bits |= corrections.has(static_cast<Correction>(i)) ? 1U << i : 0U;
    }
    return bits;
}

zorel_time timeOf(const DayTime& told) {
    zorel_time time{};
    time.kind = static_cast<std::int32_t>(told.prayer);
    time.absence = absenceOf(told);
    time.corrections = correctionBits(told.why.corrections);
    if (told.exists()) {
        time.instant = told.shown.time_since_epoch().count();
        time.date = dateTo(told.local.date);
        time.second_of_day = static_cast<std::int32_t>(told.local.timeOfDay.count());
        time.offset = static_cast<std::int32_t>(told.local.offset.count());
    }
    return time;
}

/// Instants on whose days every time is within the years that dates have.
bool isInRange(std::chrono::seconds sinceEpoch) {
    constexpr std::chrono::sys_days first{std::chrono::year{1583} / 1 / 3};
    constexpr std::chrono::sys_days last{std::chrono::year{9998} / 12 / 28};
    return sinceEpoch >= first.time_since_epoch() && sinceEpoch <= last.time_since_epoch();
}

const char* textOf(const zorel_place* place, std::string City::*member) {
    return place != nullptr ? (place->city.*member).c_str() : "";
}

} // namespace

zorel_status zorel_catalogue_open(const char* bundle, zorel_catalogue** catalogue) {
    if (catalogue == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    return guarded([&] {
        auto cities = bundle == nullptr ? Catalogue::openInstalled() : Catalogue::open(bundle);
        if (!cities) {
            return ZOREL_NO_CATALOGUE;
        }
        *catalogue = new zorel_catalogue{*std::move(cities)};
        return ZOREL_OK;
    });
}

void zorel_catalogue_close(zorel_catalogue* catalogue) {
    delete catalogue;
}

zorel_status zorel_catalogue_find(zorel_catalogue* catalogue, const char* name, zorel_place** place) {
    if (catalogue == nullptr || name == nullptr || place == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    return guarded([&] { return found(catalogue->cities, catalogue->cities.find(name), place); });
}

zorel_status zorel_catalogue_by_id(zorel_catalogue* catalogue, int32_t id, zorel_place** place) {
    if (catalogue == nullptr || place == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    return guarded([&] { return found(catalogue->cities, catalogue->cities.byId(id), place); });
}

zorel_status zorel_catalogue_similar(zorel_catalogue* catalogue, const char* name, size_t most,
                                     zorel_place** places, size_t* count) {
    if (catalogue == nullptr || name == nullptr || places == nullptr || count == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    return guarded([&] {
        std::vector<City> cities = catalogue->cities.similar(name, most);
        if (cities.empty() && !catalogue->cities.readable()) {
            return ZOREL_NO_CATALOGUE;
        }
        std::vector<std::unique_ptr<zorel_place>> handles;
        for (City& city : cities) {
            handles.emplace_back(handleOf(std::move(city)));
        }
        std::ranges::transform(handles, places, [](auto& handle) { return handle.release(); });
        *count = handles.size();
        return ZOREL_OK;
    });
}

zorel_status zorel_place_at(double latitude, double longitude, const char* zone, zorel_place** place) {
    if (place == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    if (const zorel_status status = pointStatus(latitude, longitude); status != ZOREL_OK) {
        return status;
    }
    return guarded([&] {
        auto clock = zone == nullptr ? std::optional(PlaceClock::ofMachine()) : PlaceClock::ofZone(zone);
        if (!clock) {
            return ZOREL_NO_SUCH_ZONE;
        }
        *place = pointWith(latitude, longitude, *std::move(clock));
        return ZOREL_OK;
    });
}

zorel_status zorel_place_at_offset(double latitude, double longitude, int32_t offset, zorel_place** place) {
    if (place == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    if (const zorel_status status = pointStatus(latitude, longitude); status != ZOREL_OK) {
        return status;
    }
    const std::chrono::seconds fixed(offset);
    if (fixed < -kGreatestOffset || fixed > kGreatestOffset) {
        return ZOREL_OUT_OF_RANGE;
    }
    return guarded([&] {
        *place = pointWith(latitude, longitude, PlaceClock::fixed(fixed));
        return ZOREL_OK;
    });
}

void zorel_place_free(zorel_place* place) {
    delete place;
}

const char* zorel_place_name(const zorel_place* place) {
    return place != nullptr ? place->city.place.name.c_str() : "";
}

const char* zorel_place_region(const zorel_place* place) {
    return textOf(place, &City::region);
}

const char* zorel_place_country_code(const zorel_place* place) {
    return textOf(place, &City::countryCode);
}

const char* zorel_place_zone(const zorel_place* place) {
    return place != nullptr ? place->city.place.clock.zoneName().c_str() : "";
}

int32_t zorel_place_id(const zorel_place* place) {
    return place != nullptr ? place->city.id : 0;
}

double zorel_place_latitude(const zorel_place* place) {
    return place != nullptr ? place->city.place.latitude : 0.0;
}

double zorel_place_longitude(const zorel_place* place) {
    return place != nullptr ? place->city.place.longitude : 0.0;
}

zorel_status zorel_place_set_temkin(zorel_place* place, zorel_temkin temkin) {
    if (place == nullptr || (temkin != ZOREL_UP_TO_250_M && temkin != ZOREL_UP_TO_500_M)) {
        return ZOREL_BAD_ARGUMENT;
    }
    place->city.place.temkin = temkin == ZOREL_UP_TO_250_M ? Temkin::upTo250m : Temkin::upTo500m;
    return ZOREL_OK;
}

zorel_status zorel_day(const zorel_place* place, zorel_date date, zorel_time* times) {
    if (place == nullptr || times == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    const auto given = dateFrom(date);
    if (!given) {
        return ZOREL_OUT_OF_RANGE;
    }
    return guarded([&] {
        std::ranges::transform(Almanac(place->city.place).day(*given).times, times, timeOf);
        return ZOREL_OK;
    });
}

zorel_status zorel_next(const zorel_place* place, int64_t instant, zorel_time* next) {
    if (place == nullptr || next == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    if (!isInRange(std::chrono::seconds(instant))) {
        return ZOREL_OUT_OF_RANGE;
    }
    return guarded([&] {
        const NextPrayer told = Almanac(place->city.place).next(Instant(std::chrono::seconds(instant)));
        if (!told.next) {
            return ZOREL_NO_SUCH_TIME;
        }
        *next = timeOf(*told.next);
        return ZOREL_OK;
    });
}

zorel_status zorel_qibla(const zorel_place* place, double* bearing, double* distance) {
    if (place == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    const Place& point = place->city.place;
    const auto towards = qiblaBearing(point.latitude, point.longitude);
    if (!towards) {
        return ZOREL_NO_DIRECTION;
    }
    if (bearing != nullptr) {
        *bearing = *towards;
    }
    if (distance != nullptr) {
        *distance = qiblaDistance(point.latitude, point.longitude);
    }
    return ZOREL_OK;
}

zorel_status zorel_hijri(const zorel_place* place, zorel_date date, zorel_date* hijri) {
    if (place == nullptr || hijri == nullptr) {
        return ZOREL_BAD_ARGUMENT;
    }
    const auto given = dateFrom(date);
    if (!given) {
        return ZOREL_OUT_OF_RANGE;
    }
    return guarded([&] {
        const zorel::AllCalendarRecord calendars = Almanac(place->city.place).calendars(*given);
        *hijri = {calendars.hijriYear, calendars.hijriMonth, calendars.hijriDay};
        return ZOREL_OK;
    });
}
