// SPDX-License-Identifier: Apache-2.0
// The functions of libical that the program uses.
#include "on_demand/OnDemand.h"

#include <libical/ical.h>

namespace {
static_assert(ICAL_MAJOR_VERSION == 3);
constexpr zorel::cli::LibraryOnDemand kLibrary("libical.so.3");
} // namespace

#define IN_CALENDAR(Result, name, parameters, arguments)                                                     \
    ZOREL_ON_DEMAND(kLibrary, Result, name, parameters, arguments)

IN_CALENDAR(char*, icalcomponent_as_ical_string_r, (icalcomponent * a), (a))
IN_CALENDAR(char*, icalproperty_as_ical_string_r, (icalproperty * a), (a))
IN_CALENDAR(char*, icalproperty_get_value_as_string_r, (const icalproperty* a), (a))
IN_CALENDAR(const char*, icalcomponent_get_description, (icalcomponent * a), (a))
IN_CALENDAR(const char*, icalcomponent_get_location, (icalcomponent * a), (a))
IN_CALENDAR(const char*, icalcomponent_get_summary, (icalcomponent * a), (a))
IN_CALENDAR(const char*, icalcomponent_get_uid, (icalcomponent * a), (a))
IN_CALENDAR(icalcomponent*, icalcomponent_get_first_component, (icalcomponent * a, icalcomponent_kind b),
            (a, b))
IN_CALENDAR(icalcomponent*, icalcomponent_get_next_component, (icalcomponent * a, icalcomponent_kind b),
            (a, b))
IN_CALENDAR(icalcomponent*, icalcomponent_new, (icalcomponent_kind a), (a))
IN_CALENDAR(icalcomponent*, icalcomponent_new_clone, (icalcomponent * a), (a))
IN_CALENDAR(icalcomponent*, icalcomponent_new_vcalendar, (), ())
IN_CALENDAR(icalcomponent*, icalparser_parse_string, (const char* a), (a))
IN_CALENDAR(icalcomponent_kind, icalcomponent_isa, (const icalcomponent* a), (a))
IN_CALENDAR(icaldurationtype, icaldurationtype_from_int, (int a), (a))
IN_CALENDAR(icalparameter*, icalparameter_new_value, (icalparameter_value a), (a))
IN_CALENDAR(icalproperty*, icalcomponent_get_first_property, (icalcomponent * a, icalproperty_kind b), (a, b))
IN_CALENDAR(icalproperty*, icalcomponent_get_next_property, (icalcomponent * a, icalproperty_kind b), (a, b))
IN_CALENDAR(icalproperty*, icalproperty_new_action, (icalproperty_action a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_calscale, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_color, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_created, (icaltimetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_description, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_dtend, (icaltimetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_dtstamp, (icaltimetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_dtstart, (icaltimetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_lastmodified, (icaltimetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_location, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_name, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_prodid, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_refreshinterval, (icaldurationtype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_rrule, (icalrecurrencetype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_sequence, (int a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_summary, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_transp, (icalproperty_transp a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_trigger, (icaltriggertype a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_uid, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_version, (const char* a), (a))
IN_CALENDAR(icalproperty*, icalproperty_new_x, (const char* a), (a))
IN_CALENDAR(icalproperty_action, icalproperty_get_action, (const icalproperty* a), (a))
IN_CALENDAR(icalrecurrencetype, icalrecurrencetype_from_string, (const char* a), (a))
IN_CALENDAR(icaltimetype, icalcomponent_get_dtend, (icalcomponent * a), (a))
IN_CALENDAR(icaltimetype, icalcomponent_get_dtstart, (icalcomponent * a), (a))
IN_CALENDAR(icaltimetype, icaltime_from_timet_with_zone, (const time_t a, const int b, const icaltimezone* c),
            (a, b, c))
IN_CALENDAR(icaltimetype, icaltime_null_date, (), ())
IN_CALENDAR(icaltimetype, icaltime_null_time, (), ())
IN_CALENDAR(icaltimezone*, icaltimezone_get_utc_timezone, (), ())
IN_CALENDAR(icaltriggertype, icalproperty_get_trigger, (const icalproperty* a), (a))
IN_CALENDAR(int, icalcomponent_get_sequence, (icalcomponent * a), (a))
IN_CALENDAR(int, icaldurationtype_as_int, (icaldurationtype a), (a))
IN_CALENDAR(int, icaltime_compare, (const icaltimetype a, const icaltimetype b), (a, b))
IN_CALENDAR(int, icaltime_is_null_time, (const icaltimetype a), (a))
IN_CALENDAR(time_t, icaltime_as_timet_with_zone, (const icaltimetype a, const icaltimezone* b), (a, b))
IN_CALENDAR(void, icalcomponent_add_component, (icalcomponent * a, icalcomponent* b), (a, b))
IN_CALENDAR(void, icalcomponent_add_property, (icalcomponent * a, icalproperty* b), (a, b))
IN_CALENDAR(void, icalcomponent_free, (icalcomponent * a), (a))
IN_CALENDAR(void, icalcomponent_remove_component, (icalcomponent * a, icalcomponent* b), (a, b))
IN_CALENDAR(void, icalcomponent_remove_property, (icalcomponent * a, icalproperty* b), (a, b))
IN_CALENDAR(void, icalerror_clear_errno, (), ())
IN_CALENDAR(void, icalerror_set_errors_are_fatal, (int a), (a))
IN_CALENDAR(void, icalproperty_add_parameter, (icalproperty * a, icalparameter* b), (a, b))
IN_CALENDAR(void, icalproperty_free, (icalproperty * a), (a))
IN_CALENDAR(void, icalproperty_set_x_name, (icalproperty * a, const char* b), (a, b))
IN_CALENDAR(void, icaltime_adjust, (icaltimetype * a, const int b, const int c, const int d, const int e),
            (a, b, c, d, e))
