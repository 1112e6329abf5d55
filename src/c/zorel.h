/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * The almanac for programs in C and in every language that can call C.
 *
 *     #include <zorel.h>
 *
 *     zorel_catalogue* cities;
 *     zorel_place* here;
 *     zorel_time times[ZOREL_KINDS];
 *     zorel_status status = zorel_catalogue_open(NULL, &cities);
 *     if (status == ZOREL_OK) { status = zorel_catalogue_find(cities, "Istanbul", &here); }
 *     if (status == ZOREL_OK) { status = zorel_day(here, (zorel_date){2026, 11, 22}, times); }
 *     if (status != ZOREL_OK) { fprintf(stderr, "%s\n", zorel_status_text(status)); }
 *
 * Link with libzorel (pkg-config: zorel). Stable from 1.0 on: no function and no field changes its meaning or
 * its place within libzorel.so.1; later versions add functions, statuses, and corrections.
 *
 * Every function that can fail answers a zorel_status, and writes its results only when it answers ZOREL_OK.
 * A result that is not wanted may be NULL, unless it is a handle. Texts are UTF-8, end with a zero byte, and
 * belong to what they were asked of. Nothing here changes a place once it is made but zorel_place_set_temkin:
 * a place may be read by several threads at once; a catalogue may not. No signal, locale or working directory
 * is touched.
 */
#ifndef ZOREL_H
#define ZOREL_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define ZOREL_EXPORT __attribute__((visibility("default")))
#define ZOREL_CHECKED __attribute__((warn_unused_result)) ZOREL_EXPORT

/** What became of a call. */
typedef int32_t zorel_status;
/** The values of a zorel_status. */
enum {
    ZOREL_OK = 0,
    ZOREL_BAD_ARGUMENT = 1, /**< a handle or text that is NULL, a number that is not finite */
    ZOREL_OUT_OF_RANGE =
        2, /**< a date that does not exist or lies outside 1583 to 9998; a latitude beyond the poles */
    ZOREL_NO_CATALOGUE = 3,  /**< there is no catalogue, or it cannot be read (any more) */
    ZOREL_NO_SUCH_PLACE = 4, /**< the catalogue was read, and no place is called so */
    ZOREL_NO_SUCH_ZONE = 5,  /**< the system has no data of that time zone */
    ZOREL_NO_SUCH_TIME = 6,  /**< none within two days: summers and winters near the poles */
    ZOREL_NO_DIRECTION = 7,  /**< at the Kaaba itself, and opposite to it */
    ZOREL_OUT_OF_MEMORY = 8
};

/** The status in a sentence of English, for a log; never NULL. */
ZOREL_EXPORT const char* zorel_status_text(zorel_status status);
/** "1.0.0". */
ZOREL_EXPORT const char* zorel_version(void);

/** A Gregorian date, 1583-01-01 to 9998-12-31, or one of the Hijri calendar. */
typedef struct zorel_date {
    int32_t year;
    int32_t month; /**< 1 to 12 */
    int32_t day;   /**< from 1 */
} zorel_date;

/** The times of a day; the positions of a day's times. */
typedef int32_t zorel_kind;
/** The values of a zorel_kind. */
enum {
    ZOREL_FAJR = 0,                   /**< dawn, imsak: the Sun 19 degrees below the horizon */
    ZOREL_SUNRISE = 1,                /**< the end of the dawn prayer */
    ZOREL_DHUHR = 2,                  /**< after the transit */
    ZOREL_ASR = 3,                    /**< a shadow of once its staff beyond that of noon */
    ZOREL_MAGHRIB = 4,                /**< sunset */
    ZOREL_ISHA = 5,                   /**< nightfall: the Sun 17 degrees below the horizon */
    ZOREL_ASR_SECOND = 6,             /**< a shadow of twice its staff beyond that of noon */
    ZOREL_ISHA_SECOND = 7,            /**< the Sun 19 degrees below the horizon */
    ZOREL_MORNING_FIVE_DEGREES = 8,   /**< Ishraq: the Sun 5 degrees high in the morning */
    ZOREL_AFTERNOON_FIVE_DEGREES = 9, /**< Isfirar: the Sun 5 degrees high in the afternoon */
    ZOREL_BEFORE_NOON = 10,           /**< the transit less temkin: a time without prayer begins */
    ZOREL_LAST_SIXTH_OF_NIGHT = 11,   /**< from here to dawn */
    ZOREL_SUN_AT_QIBLA = 12,          /**< the Sun stands in the direction of the qibla */
    ZOREL_MIDDLE_OF_NIGHT = 13,       /**< half way from the sunset prayer to dawn */
    ZOREL_FIRST_THIRD_OF_NIGHT = 14   /**< the first third of the same night is over */
};
#define ZOREL_KINDS 15

/** The stable name of a kind, the same in JSON and on the command line ("fajr"); NULL for what is none. */
ZOREL_EXPORT const char* zorel_kind_key(zorel_kind kind);

/** Why there is no such time on a day. */
typedef int32_t zorel_absence;
/** The values of a zorel_absence. */
enum {
    ZOREL_EXISTS = 0,
    ZOREL_NEVER_REACHED =
        1, /**< the Sun does not do what the rule asks for, nor did it within a year before */
    ZOREL_NIGHT_WITHOUT_ENDS = 2, /**< a part of a night without a sunset prayer or a dawn */
    ZOREL_OUT_OF_ORDER = 3,       /**< it would stand before the time that it follows */
    ZOREL_NO_BEARING = 4          /**< Sun at the qibla, at the Kaaba itself */
};

/** A time of a day. `instant` is what is shown and rings: rounded to the minute that is safe. */
typedef struct zorel_time {
    int64_t instant;       /**< [s] since 1970-01-01 00:00 universal time; 0 when there is none */
    zorel_kind kind;       /**< a zorel_kind */
    zorel_absence absence; /**< a zorel_absence; ZOREL_EXISTS: the other fields hold */
    zorel_date date;       /**< on the clock of the place */
    int32_t second_of_day; /**< [s] on that clock, 0 to 86399 */
    int32_t offset;        /**< [s] of that clock from universal time, east positive */
    uint32_t
        corrections; /**< bit n: the correction zorel_correction_key(n) applies; 0: the engine's own time */
} zorel_time;

/** The stable name of a correction, from 0 ("before_midnight"); NULL for what is none. docs/accuracy.md
 * explains each. */
ZOREL_EXPORT const char* zorel_correction_key(int correction);

/** The catalogue of cities. Opaque. */
typedef struct zorel_catalogue zorel_catalogue;
/** A place with its clock. Opaque. */
typedef struct zorel_place zorel_place;

/**
 * Opens a catalogue.
 * @param bundle folder that holds "database/cities.sqlite"; NULL: the one installed with the library.
 * @param catalogue out; to be closed.
 * @return ZOREL_NO_CATALOGUE when there is no readable one.
 */
ZOREL_CHECKED zorel_status zorel_catalogue_open(const char* bundle, zorel_catalogue** catalogue);
/** NULL is allowed. Places that were found stay valid. */
ZOREL_EXPORT void zorel_catalogue_close(zorel_catalogue* catalogue);

/**
 * The place that is called so, in any of its spellings, with or without region or country ("Koeln", "Paris,
 * Texas"); the largest of several. A beginning or a part of a name is not taken for the name.
 * @param place out; to be freed.
 * @return ZOREL_NO_SUCH_PLACE; then zorel_catalogue_similar has suggestions.
 */
ZOREL_CHECKED zorel_status zorel_catalogue_find(zorel_catalogue* catalogue, const char* name,
                                                zorel_place** place);
/** By its GeoNames id. @param place out; to be freed. */
ZOREL_CHECKED zorel_status zorel_catalogue_by_id(zorel_catalogue* catalogue, int32_t id, zorel_place** place);
/**
 * Places that may have been meant, the likeliest first.
 * @param places out: room for `most`; each of the first `*count` is to be freed.
 * @param count out: 0 when there is none.
 */
ZOREL_CHECKED zorel_status zorel_catalogue_similar(zorel_catalogue* catalogue, const char* name, size_t most,
                                                   zorel_place** places, size_t* count);

/**
 * A point of the Earth.
 * @param latitude [deg] north positive. @param longitude [deg] east positive.
 * @param zone IANA name of its time zone ("Europe/Paris"); NULL: that of the machine.
 * @param place out; to be freed.
 */
ZOREL_CHECKED zorel_status zorel_place_at(double latitude, double longitude, const char* zone,
                                          zorel_place** place);
/** The same with a clock that keeps one offset. @param offset [s] east positive, within 14 h. */
ZOREL_CHECKED zorel_status zorel_place_at_offset(double latitude, double longitude, int32_t offset,
                                                 zorel_place** place);
/** NULL is allowed. */
ZOREL_EXPORT void zorel_place_free(zorel_place* place);

/** Of a NULL place the texts are empty and the numbers 0. */
ZOREL_EXPORT const char* zorel_place_name(const zorel_place* place);
ZOREL_EXPORT const char* zorel_place_region(const zorel_place* place);
/** ISO 3166-1 alpha-2; empty for a point. */
ZOREL_EXPORT const char* zorel_place_country_code(const zorel_place* place);
/** IANA name; empty for a clock with one offset. */
ZOREL_EXPORT const char* zorel_place_zone(const zorel_place* place);
/** GeoNames id; 0 for a point. */
ZOREL_EXPORT int32_t zorel_place_id(const zorel_place* place);
/** [deg] north positive. */
ZOREL_EXPORT double zorel_place_latitude(const zorel_place* place);
/** [deg] east positive. */
ZOREL_EXPORT double zorel_place_longitude(const zorel_place* place);

/** Which table of precaution intervals counts: for surroundings up to that height. */
typedef int32_t zorel_temkin;
/** The values of a zorel_temkin. */
enum { ZOREL_UP_TO_250_M = 0, ZOREL_UP_TO_500_M = 1 };
/** A point begins with ZOREL_UP_TO_250_M, a city with what its catalogue says. */
ZOREL_CHECKED zorel_status zorel_place_set_temkin(zorel_place* place, zorel_temkin temkin);

/** The times of a date on the place's clock, each at the position of its kind. @param times out: ZOREL_KINDS
 * of them. */
ZOREL_CHECKED zorel_status zorel_day(const zorel_place* place, zorel_date date, zorel_time* times);
/**
 * The next of the six times (ZOREL_FAJR to ZOREL_ISHA) after an instant.
 * @param instant [s] since 1970-01-01 00:00 universal time. @return ZOREL_NO_SUCH_TIME when there is none
 * within two days.
 */
ZOREL_CHECKED zorel_status zorel_next(const zorel_place* place, int64_t instant, zorel_time* next);
/** The direction of the Kaaba. @param bearing out: true, clockwise from north [deg]. @param distance out:
 * [km]. */
ZOREL_CHECKED zorel_status zorel_qibla(const zorel_place* place, double* bearing, double* distance);
/** The Hijri date whose daylight falls on a civil one, by the computed crescent. @param hijri out. */
ZOREL_CHECKED zorel_status zorel_hijri(const zorel_place* place, zorel_date date, zorel_date* hijri);

#ifdef __cplusplus
}
#endif

#endif
