// SPDX-License-Identifier: Apache-2.0
/// @file
/// The clock of a place: how far its civil time is from universal time, on a day and at an instant.
#pragma once

#include "Dates.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <variant>

namespace zorel::cli {

/// The catalogue's rule: a standard offset and a daylight-saving rule that holds for whole days, as the
/// engine does.
struct RuleClock {
    double gmt = 0.0; ///< [h] east positive, may be fractional
    int dst = 0;      ///< 1: the rule applies
    int startMonth = 0;
    int startDay = 0;
    int stopMonth = 0;
    int stopDay = 0;
    int shift = 0; ///< [h]
};

/// Always the same offset.
struct FixedClock {
    std::chrono::seconds offset{0};
};

/// A zone of the system's time zone data; an empty name is the system's own zone.
struct NamedClock {
    std::string zone;
};

/// Offsets of one place. Those of a named zone are remembered per day, because the C library reads the zone's
/// file again at every change of zone.
class ZoneClock {
public:
    ZoneClock() : kind_(FixedClock{}) {}
    explicit ZoneClock(RuleClock rule) : kind_(rule) {}
    explicit ZoneClock(FixedClock fixed) : kind_(fixed) {}
    /// @throws CliError (bad use) when the system has no such zone.
    explicit ZoneClock(NamedClock named);

    /// The offset that the engine computes a day with: a rule's own answer, a named zone's at local noon.
    [[nodiscard]] std::chrono::seconds offsetOn(Date date) const;
    /// The offset at an instant.
    [[nodiscard]] std::chrono::seconds offsetAt(UtcSeconds instant) const;
    /// The local date at an instant.
    [[nodiscard]] Date dateAt(UtcSeconds instant) const;
    /// Whether offsets can change within a day; a rule's and a fixed clock's cannot.
    [[nodiscard]] bool changesWithinDay() const { return std::holds_alternative<NamedClock>(kind_); }
    /// The catalogue's rule, or nullptr.
    [[nodiscard]] const RuleClock* rule() const { return std::get_if<RuleClock>(&kind_); }
    /// "Europe/Berlin", "" for the system's own zone and for the other kinds.
    [[nodiscard]] std::string zoneName() const;

private:
    [[nodiscard]] std::chrono::seconds namedOffset(UtcSeconds instant) const;

    std::variant<RuleClock, FixedClock, NamedClock> kind_;
    mutable std::map<std::chrono::sys_days, std::chrono::seconds> midnightOffsets_;
};

/// The clock of a zone, or nothing when the system's time zone data does not have it.
[[nodiscard]] std::optional<ZoneClock> systemClock(const std::string& zone);

/// The system's zone name from TZ or /etc/localtime ("Europe/Berlin"); empty when neither names one.
[[nodiscard]] std::string systemZoneName();

} // namespace zorel::cli
