// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "platform/foundation/Clock.h"

namespace zorel {

double GlobalFuncs::CalculateJulianDay(std::int32_t year, std::int32_t month, std::int32_t day,
                                       std::int32_t hour, std::int32_t minute, std::int32_t second) const {
    return dates_.CalculateJulianDay(year, month, day, hour, minute, second);
}

double GlobalFuncs::GregorianDateToJulian(const DateTimeRecord& record) const {
    return dates_.JulianDay(record);
}

DateTimeRecord GlobalFuncs::JulianToGregorian(double julianDay) const {
    return dates_.JulianToGregorian(julianDay);
}

int GlobalFuncs::DayOfWeek(std::int32_t year, std::int32_t month, std::int32_t day) const {
    return dates_.DayOfWeek(year, month, day);
}

bool GlobalFuncs::IsDSTDay(std::int32_t startDay, std::int32_t startMonth, std::int32_t stopDay,
                           std::int32_t stopMonth, std::int32_t year, std::int32_t month, std::int32_t day,
                           std::int32_t& startDayOut, std::int32_t& stopDayOut) const {
    return dates_.IsDSTDay(startDay, startMonth, stopDay, stopMonth, year, month, day, startDayOut,
                           stopDayOut);
}

DateTimeRecord GlobalFuncs::GetCurrentDateTime() const {
    const LocalDateTime local = localDateTime(now());
    return {local.year, local.month, local.day, local.hour, local.minute, local.second, local.fraction};
}

void GlobalFuncs::GetCurrentDateTime(DateTimeRecord& record) const {
    record = GetCurrentDateTime();
}

} // namespace zorel
