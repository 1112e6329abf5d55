/* SPDX-License-Identifier: Apache-2.0 */
/* Prints the next prayer of a city, the direction of the Kaaba and the Hijri date:  c-next-prayer [CITY
   [BUNDLE]] cc -std=c11 main.c $(pkg-config --cflags --libs zorel) -o c-next-prayer */
#include <zorel.h>

#include <stdio.h>
#include <time.h>

/* Names what may have been meant. */
static void suggest(zorel_catalogue* cities, const char* name) {
    zorel_place* similar[3];
    size_t count = 0;
    if (zorel_catalogue_similar(cities, name, 3, similar, &count) != ZOREL_OK) {
        return;
    }
    for (size_t i = 0; i < count; ++i) {
        fprintf(stderr, "Did you mean %s, %s?\n", zorel_place_name(similar[i]),
                zorel_place_country_code(similar[i]));
        zorel_place_free(similar[i]);
    }
}

static zorel_status tell(const zorel_place* place) {
    zorel_time next;
    zorel_date hijri;
    double bearing;
    zorel_status status = zorel_next(place, (int64_t)time(NULL), &next);
    if (status == ZOREL_OK) {
        status = zorel_hijri(place, next.date, &hijri);
    }
    if (status == ZOREL_OK) {
        status = zorel_qibla(place, &bearing, NULL);
    }
    if (status == ZOREL_OK) {
        printf("%s: %s at %02d:%02d, %d-%02d-%02d Hijri, qibla %.1f degrees\n", zorel_place_name(place),
               zorel_kind_key(next.kind), next.second_of_day / 3600, next.second_of_day / 60 % 60, hijri.year,
               hijri.month, hijri.day, bearing);
    }
    return status;
}

int main(int argc, char** argv) {
    const char* name = argc > 1 ? argv[1] : "Istanbul";
    zorel_catalogue* cities;
    zorel_place* place;
    zorel_status status = zorel_catalogue_open(argc > 2 ? argv[2] : NULL, &cities);
    if (status == ZOREL_OK) {
        status = zorel_catalogue_find(cities, name, &place);
        if (status == ZOREL_OK) {
            status = tell(place);
            zorel_place_free(place);
        } else if (status == ZOREL_NO_SUCH_PLACE) {
            suggest(cities, name);
        }
        zorel_catalogue_close(cities);
    }
    if (status != ZOREL_OK) {
        fprintf(stderr, "c-next-prayer: %s\n", zorel_status_text(status));
        return 1;
    }
    return 0;
}
