// SPDX-License-Identifier: Apache-2.0
// The texts of the C interface that need no handle.
#include "c/zorel.h"

#include "almanac/Corrections.h"
#include "almanac/Prayer.h"

using namespace zorel::almanac;

const char* zorel_status_text(zorel_status status) {
    switch (status) {
    case ZOREL_OK:
        return "It was done.";
    case ZOREL_BAD_ARGUMENT:
        return "An argument is missing or is not a number.";
    case ZOREL_OUT_OF_RANGE:
        return "A date, an offset or a point of the Earth is out of range.";
    case ZOREL_NO_CATALOGUE:
        return "There is no catalogue of cities, or it cannot be read.";
    case ZOREL_NO_SUCH_PLACE:
        return "No place of the catalogue is called so.";
    case ZOREL_NO_SUCH_ZONE:
        return "The system has no data of that time zone.";
    case ZOREL_NO_SUCH_TIME:
        return "There is no such time within two days.";
    case ZOREL_NO_DIRECTION:
        return "At the Kaaba itself there is no direction towards it.";
    case ZOREL_OUT_OF_MEMORY:
        return "There is no memory left.";
    default:
        return "This status is not known.";
    }
}

const char* zorel_version(void) {
    return ZOREL_VERSION;
}

// The keys are literals: what follows them is a zero byte.
const char* zorel_kind_key(zorel_kind kind) {
    return kind >= 0 && kind < ZOREL_KINDS ? keyOf(static_cast<Prayer>(kind)).data() : nullptr;
}

const char* zorel_correction_key(int correction) {
    const bool known = correction >= 0 && correction < static_cast<int>(kCorrections);
    return known ? keyOf(static_cast<Correction>(correction)).data() : nullptr;
}
