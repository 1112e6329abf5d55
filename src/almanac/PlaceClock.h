// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the clock of a place shows at an instant.
///
/// The offset comes from the system's time zone data (tz database, RFC 8536) by the place's zone, per
/// instant. The catalogue of cities carries a rule of its own for each place (a standard offset and a
/// daylight-saving rule that holds for whole days), made from an edition of the same database. The rule
/// serves
///  - where the place has no zone, or the system no data of it;
///  - on days on which the two disagree at noon, the system's edition is the older one, and the rule is known
///    to be exact.
/// Either way, and also where they disagree and the rule is not known to be exact, the clock says so: what
/// is shown to a person must carry the notice. Of days before kRuleExactFrom the rule says nothing: theirs is
/// the system's data without a notice.
///
/// A value: copied freely, never changed, safe among threads. Zone data and its edition are read once for a
/// process and shared. For years after the last that the data lists, its rule for the future holds.
#pragma once

#include "almanac/Time.h"

#include "engine/Api.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zorel::almanac {

/// Days on which a clock keeps another offset than its rule says.
struct ClockDeparture {
    Date first{};
    Date last{};         ///< inclusive
    double offset = 0.0; ///< [h] east positive

    friend auto operator<=>(const ClockDeparture&, const ClockDeparture&) = default;
};

/// The catalogue's rule.
struct ClockRule {
    double standard = 0.0; ///< [h] east positive, may be fractional
    bool saving = false;   ///< there is a daylight-saving rule, coded as for AstroGlobalFuncs::IsDSTDay
    int startMonth = 0;
    int startDay = 0;
    int stopMonth = 0;
    int stopDay = 0;
    bool exact = false; ///< right on every day from kRuleExactFrom to kRuleExactTo
    std::optional<ClockDeparture> departure = std::nullopt;

    friend auto operator<=>(const ClockRule&, const ClockRule&) = default;
};

/// The days for which the catalogue's rules speak. Its column "exact" counts them from December 1st of 2026;
/// the rules that changed in that year (Morocco, western Canada) hold since 20 September, the other exact
/// ones for the whole of it.
inline constexpr Date kRuleExactFrom{std::chrono::year{2026}, std::chrono::September, std::chrono::day{20}};
inline constexpr Date kRuleExactTo{std::chrono::year{2030}, std::chrono::December, std::chrono::day{31}};

/// Where the offset of a day comes from.
enum class ClockSource : std::uint8_t {
    zoneData, ///< the system's time zone data
    rule,     ///< the catalogue's rule
    fixed,    ///< an offset that was given
};

/// What a person has to know of the clock of a day.
enum class ClockNotice : std::uint8_t {
    none,
    ruleOnly,      ///< no zone or no zone data: the rule alone
    ruleIsNewer,   ///< system data older and different; the rule is exact for the day and was used
    systemIsOlder, ///< system data older and different; the rule is not known to be exact, the system's was
                   ///< used
};

class ZOREL_API PlaceClock {
public:
    /// Universal time.
    PlaceClock();
    [[nodiscard]] static PlaceClock fixed(std::chrono::seconds offset);
    /// By the system's data alone; nothing when it has no such zone, or none that can be read. Names are
    /// plain IANA names ("Europe/Berlin"), never paths.
    [[nodiscard]] static std::optional<PlaceClock> ofZone(const std::string& zone);
    /// A place of the catalogue. @param zone IANA name; may be empty or unknown to the system: then the rule
    /// serves. @param edition of the tz database that the rule was made from ("2026f"); empty: unknown.
    [[nodiscard]] static PlaceClock ofPlace(const std::string& zone, const ClockRule& rule,
                                            const std::string& edition);
    /// The machine's own clock (TZ, or /etc/localtime), universal time when neither can be read. Forms of TZ
    /// that name no zone ("EST5EDT,M3.2.0,M11.1.0") are left to the C library: such a clock alone follows the
    /// process when its TZ changes.
    [[nodiscard]] static PlaceClock ofMachine();

    [[nodiscard]] std::chrono::seconds offsetAt(Instant instant) const;
    /// At local noon of a date: the offset that the day is computed with.
    [[nodiscard]] std::chrono::seconds offsetOn(Date date) const;
    [[nodiscard]] LocalTime localTime(Instant instant) const;
    [[nodiscard]] Date dateAt(Instant instant) const { return localTime(instant).date; }
    /// The instant of a wall-clock time, 0:00:00 to 24:00:00. One that a change of the clock skips is moved
    /// forward by the gap; of one that occurs twice the first is taken.
    [[nodiscard]] Instant instantOf(Date date, std::chrono::seconds timeOfDay) const;
    /// The offset, when it is the same from a day before 0:00 of the date to two days after; nothing when the
    /// clock changes in between. What keeps the look-ups of a day few.
    [[nodiscard]] std::optional<std::chrono::seconds> steadyOffsetAround(Date date) const;

    [[nodiscard]] ClockSource sourceOn(Date date) const;
    [[nodiscard]] ClockNotice noticeOn(Date date) const;
    /// What the other source would give on a day with a notice about two sources; nothing otherwise.
    [[nodiscard]] std::optional<std::chrono::seconds> otherOffsetOn(Date date) const;
    /// "Europe/Berlin"; empty for a fixed offset and a place without a zone.
    [[nodiscard]] const std::string& zoneName() const;

private:
    struct Kind;
    explicit PlaceClock(std::shared_ptr<const Kind> kind);
    std::shared_ptr<const Kind> kind_;
};

/// The edition of the system's time zone data ("2025b"), from "tzdata.zi" or "+VERSION" of its folder (TZDIR,
/// /usr/share/zoneinfo); empty when it does not say.
[[nodiscard]] ZOREL_API std::string systemZoneEdition();
/// The machine's zone name from TZ or /etc/localtime ("Europe/Berlin"); empty when neither names one. It may
/// be one that the system has no data of.
[[nodiscard]] ZOREL_API std::string machineZoneName();

} // namespace zorel::almanac
