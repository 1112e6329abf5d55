// SPDX-License-Identifier: Apache-2.0
/// @file
/// The system's time zone data: which zones it has, what it says, and of which edition it is.
#pragma once

#include "almanac/Offsets.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::almanac {

/// The folder of the zones: TZDIR, else /usr/share/zoneinfo.
[[nodiscard]] std::filesystem::path zoneFolder();
/// Letters, digits, "_", "+", "-", and "/" between parts: no name that leads out of the folder. Not
/// "localtime" or "posixrules", which are names of no zone.
[[nodiscard]] bool isPlainZoneName(std::string_view name);
/// Whether the folder has a file of that plain name.
[[nodiscard]] bool zoneFileExists(std::string_view name);

/// The edition that a folder of zones says it is of ("2025b"); empty when it does not say.
[[nodiscard]] std::string zoneEditionOf(const std::filesystem::path& folder);
/// Whether edition `one` came out before `other`; false when either is not of the form "2025b".
[[nodiscard]] bool isOlderEdition(std::string_view one, std::string_view other);

/// The years whose stretches are at hand; others are asked of the library that reads the data.
inline constexpr Instant kNearFirst =
    std::chrono::sys_days(Date{std::chrono::year{2000}, std::chrono::January, std::chrono::day{1}});
inline constexpr Instant kNearEnd =
    std::chrono::sys_days(Date{std::chrono::year{2060}, std::chrono::January, std::chrono::day{1}});

/// Offsets with those of the near years at hand.
class NearOffsets : public Offsets {
public:
    /// @param near from kNearFirst or before to kNearEnd or after, in order and without a hole; it counts for
    /// the near years, `others` for the rest.
    NearOffsets(std::vector<Stretch> near, std::shared_ptr<const Offsets> others);
    [[nodiscard]] Stretch at(Instant instant) const override;

    [[nodiscard]] const std::shared_ptr<const Offsets>& others() const { return others_; }

private:
    std::vector<Stretch> near_;
    std::shared_ptr<const Offsets> others_;
};

/// A zone by its plain name, read once for the process; nullptr when the system has no such zone or its data
/// is damaged.
[[nodiscard]] std::shared_ptr<const NearOffsets> loadZone(const std::string& name);
/// The data of a file outside the folder; nullptr as above. @param path absolute
[[nodiscard]] std::shared_ptr<const NearOffsets> loadZoneFile(const std::string& path);

} // namespace zorel::almanac
