// SPDX-License-Identifier: Apache-2.0
#include "almanac/ZoneData.h"

#include <absl/time/civil_time.h>
#include <absl/time/time.h>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <mutex>

namespace zorel::almanac {

namespace {
using std::chrono::seconds;

/// The Gregorian calendar, weekdays included, repeats itself after 400 years.
constexpr seconds kCycle = std::chrono::days(146097);

absl::Time libraryTime(Instant instant) {
    return absl::FromUnixSeconds(instant.time_since_epoch().count());
}

Instant instantOfChange(const absl::TimeZone& zone, const absl::TimeZone::CivilTransition& change) {
    return Instant(seconds(absl::ToUnixSeconds(zone.At(change.to).trans)));
}

/// A zone as the library has it. The library tells changes for 400 years after the last one of the data, if
/// the data has a rule for the future; what lies beyond is brought into that span.
class LibraryOffsets : public Offsets {
public:
    explicit LibraryOffsets(absl::TimeZone zone)
        : zone_(zone), lastChange_(changeBefore(kLatest).value_or(kEarliest)),
          repeats_(lastChange_ > kNearEnd + kCycle / 2) {}

    [[nodiscard]] Stretch at(Instant instant) const override {
        const seconds shift =
            repeats_ && instant >= lastChange_ ? ((instant - lastChange_) / kCycle + 1) * kCycle : seconds(0);
        const Instant within = instant - shift;
        const auto from = changeBefore(within + seconds(1));
        const auto to = changeAfter(within);
        return {from ? *from + shift : kEarliest, to ? *to + shift : kLatest,
                seconds(zone_.At(libraryTime(within)).offset)};
    }

private:
    [[nodiscard]] std::optional<Instant> changeBefore(Instant instant) const {
        absl::TimeZone::CivilTransition change;
        if (!zone_.PrevTransition(libraryTime(instant), &change)) {
            return std::nullopt;
        }
        return instantOfChange(zone_, change);
    }

    [[nodiscard]] std::optional<Instant> changeAfter(Instant instant) const {
        absl::TimeZone::CivilTransition change;
        if (!zone_.NextTransition(libraryTime(instant), &change)) {
            return std::nullopt;
        }
        return instantOfChange(zone_, change);
    }

    absl::TimeZone zone_;
    Instant lastChange_;
    bool repeats_;
};

std::shared_ptr<const NearOffsets> read(const std::string& name) {
    absl::TimeZone zone;
    if (!absl::LoadTimeZone(name, &zone)) {
        return nullptr;
    }
    const auto library = std::make_shared<const LibraryOffsets>(zone);
    std::vector<Stretch> near;
    for (Instant instant = kNearFirst; instant < kNearEnd; instant = near.back().to) {
        near.push_back(library->at(instant));
    }
    return std::make_shared<const NearOffsets>(std::move(near), library);
}
} // namespace

NearOffsets::NearOffsets(std::vector<Stretch> near, std::shared_ptr<const Offsets> others)
    : near_(std::move(near)), others_(std::move(others)) {}

Stretch NearOffsets::at(Instant instant) const {
    if (instant < kNearFirst || instant >= kNearEnd) {
        return others_->at(instant);
    }
    return *std::ranges::upper_bound(near_, instant, {}, &Stretch::to);
}

std::shared_ptr<const NearOffsets> loadZoneFile(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) ? read(path) : nullptr;
}

std::shared_ptr<const NearOffsets> loadZone(const std::string& name) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const NearOffsets>> zones;
    const std::scoped_lock lock(mutex);
    if (const auto known = zones.find(name); known != zones.end()) {
        return known->second;
    }
    const auto zone = isPlainZoneName(name) && zoneFileExists(name) ? read(name) : nullptr;
    if (zone) {
        zones.emplace(name, zone);
    }
    return zone;
}

} // namespace zorel::almanac
