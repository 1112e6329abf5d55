// SPDX-License-Identifier: Apache-2.0
#include "grammar/Dates.h"

#include "words/Tr.h"

#include <array>

namespace zorel::cli {

using almanac::Date;

namespace {
// translators: months as they stand alone; those in a date have a list of their own
constexpr std::array<const char*, 12> kMonths{
    trLaterIn("month alone", "January"),   trLaterIn("month alone", "February"),
    trLaterIn("month alone", "March"),     trLaterIn("month alone", "April"),
    trLaterIn("month alone", "May"),       trLaterIn("month alone", "June"),
    trLaterIn("month alone", "July"),      trLaterIn("month alone", "August"),
    trLaterIn("month alone", "September"), trLaterIn("month alone", "October"),
    trLaterIn("month alone", "November"),  trLaterIn("month alone", "December")};

// translators: months as they stand behind the day of a date ("21 November"), in the genitive where one is
// used
constexpr std::array<const char*, 12> kMonthsOfDates{
    trLaterIn("month of a date", "January"),   trLaterIn("month of a date", "February"),
    trLaterIn("month of a date", "March"),     trLaterIn("month of a date", "April"),
    trLaterIn("month of a date", "May"),       trLaterIn("month of a date", "June"),
    trLaterIn("month of a date", "July"),      trLaterIn("month of a date", "August"),
    trLaterIn("month of a date", "September"), trLaterIn("month of a date", "October"),
    trLaterIn("month of a date", "November"),  trLaterIn("month of a date", "December")};

// translators: months in four columns or so, below a chart; the whole name where your language does not
// shorten them
constexpr std::array<const char*, 12> kShortMonths{
    trLaterIn("short month", "Jan"), trLaterIn("short month", "Feb"), trLaterIn("short month", "Mar"),
    trLaterIn("short month", "Apr"), trLaterIn("short month", "May"), trLaterIn("short month", "Jun"),
    trLaterIn("short month", "Jul"), trLaterIn("short month", "Aug"), trLaterIn("short month", "Sep"),
    trLaterIn("short month", "Oct"), trLaterIn("short month", "Nov"), trLaterIn("short month", "Dec")};

constexpr std::array<const char*, 12> kHijriMonths{
    trLaterIn("Hijri month", "Muharram"),     trLaterIn("Hijri month", "Safar"),
    trLaterIn("Hijri month", "Rabi I"),       trLaterIn("Hijri month", "Rabi II"),
    trLaterIn("Hijri month", "Jumada I"),     trLaterIn("Hijri month", "Jumada II"),
    trLaterIn("Hijri month", "Rajab"),        trLaterIn("Hijri month", "Shaban"),
    trLaterIn("Hijri month", "Ramadan"),      trLaterIn("Hijri month", "Shawwal"),
    trLaterIn("Hijri month", "Dhu al-Qadah"), trLaterIn("Hijri month", "Dhu al-Hijjah")};

// translators: months of the Ottoman financial calendar, which began in March; Turkish has names of its own
// for some
constexpr std::array<const char*, 12> kRumiMonths{
    trLaterIn("Rumi month", "March"),     trLaterIn("Rumi month", "April"),
    trLaterIn("Rumi month", "May"),       trLaterIn("Rumi month", "June"),
    trLaterIn("Rumi month", "July"),      trLaterIn("Rumi month", "August"),
    trLaterIn("Rumi month", "September"), trLaterIn("Rumi month", "October"),
    trLaterIn("Rumi month", "November"),  trLaterIn("Rumi month", "December"),
    trLaterIn("Rumi month", "January"),   trLaterIn("Rumi month", "February")};

constexpr std::array<const char*, 7> kWeekdays{
    trLaterIn("weekday", "Sunday"),    trLaterIn("weekday", "Monday"),   trLaterIn("weekday", "Tuesday"),
    trLaterIn("weekday", "Wednesday"), trLaterIn("weekday", "Thursday"), trLaterIn("weekday", "Friday"),
    trLaterIn("weekday", "Saturday")};

template <std::size_t Size>
std::string entry(const std::array<const char*, Size>& table, int index, const char* context) {
    const bool valid = index >= 0 && index < static_cast<int>(Size);
    return valid ? trIn(context, table[static_cast<std::size_t>(index)]) : std::string();
}

std::string monthOf(Date date) {
    return entry(kMonthsOfDates, static_cast<int>(static_cast<unsigned>(date.month())) - 1,
                 "month of a date");
}
} // namespace

std::string monthName(unsigned month) {
    return entry(kMonths, static_cast<int>(month) - 1, "month alone");
}

std::string shortMonthName(unsigned month) {
    return entry(kShortMonths, static_cast<int>(month) - 1, "short month");
}

std::string hijriMonthName(int month) {
    return entry(kHijriMonths, month - 1, "Hijri month");
}

std::string rumiMonthName(int month) {
    return entry(kRumiMonths, month - 1, "Rumi month");
}

std::string weekdayName(int weekday) {
    return entry(kWeekdays, weekday, "weekday");
}

std::string weekdayName(Date date) {
    const std::chrono::weekday weekday{std::chrono::sys_days(date)};
    return weekdayName(static_cast<int>(weekday.c_encoding()));
}

std::string dayAndMonth(Date date) {
    return trIn("day and month", "{0} {1}", static_cast<unsigned>(date.day()), monthOf(date));
}

std::string monthAndYear(std::chrono::year_month month) {
    return trIn("month and year", "{0} {1}", monthName(static_cast<unsigned>(month.month())),
                static_cast<int>(month.year()));
}

std::string longDate(Date date) {
    return trIn("day, month, year, weekday", "{0} {1} {2}, {3}", static_cast<unsigned>(date.day()),
                monthOf(date), static_cast<int>(date.year()), weekdayName(date));
}

std::string hijriDayAndMonth(const AllCalendarRecord& calendars) {
    return calendars.hijriYear < 1 ? std::string()
                                   : trIn("Hijri day and month", "{0} {1}", calendars.hijriDay,
                                          hijriMonthName(calendars.hijriMonth));
}

std::string hijriMonthAndYear(int month, int year) {
    return trIn("Hijri month and year", "{0} {1}", hijriMonthName(month), year);
}

std::string hijriText(const AllCalendarRecord& calendars) {
    return calendars.hijriYear < 1 ? std::string()
                                   : trIn("Hijri day, month, year", "{0} {1} {2}", calendars.hijriDay,
                                          hijriMonthName(calendars.hijriMonth), calendars.hijriYear);
}

std::string rumiText(const AllCalendarRecord& calendars) {
    return trIn("Rumi day, month, year", "{0} {1} {2}", calendars.rumiDay, rumiMonthName(calendars.rumiMonth),
                calendars.rumiYear);
}

std::string durationText(std::chrono::seconds duration) {
    const auto minutes = std::chrono::floor<std::chrono::minutes>(duration).count();
    if (minutes < 1) {
        return tr("less than a minute");
    }
    if (minutes < 60) {
        return tr("{} min", minutes);
    }
    return minutes % 60 == 0 ? tr("{} h", minutes / 60) : tr("{0} h {1} min", minutes / 60, minutes % 60);
}

std::string clockChangeText(std::chrono::seconds change) {
    // translators: the clock is put forward or back on that day; {} is "+1" or "-1"
    return tr("clock {:+g} h", static_cast<double>(change.count()) / 3600.0);
}

} // namespace zorel::cli
