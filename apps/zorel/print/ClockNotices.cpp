// SPDX-License-Identifier: Apache-2.0
#include "print/ClockNotices.h"

#include <fmt/format.h>

namespace zorel::cli {

using almanac::ClockNotice;
using almanac::Date;

std::string clockNoticeText(const ShownPlace& place, Date date) {
    const almanac::PlaceClock& clock = place.clock();
    const ClockNotice notice = clock.noticeOn(date);
    if (notice == ClockNotice::none) {
        return {};
    }
    const auto other = clock.otherOffsetOn(date);
    if (notice == ClockNotice::ruleOnly) {
        // translators: {0} an edition of the tz database ("2025b"), {1} a time zone ("Europe/Istanbul")
        return tr("clock by the catalogue's rule (tz {0}): this system has no time zone data of {1}",
                  place.zoneEdition, clock.zoneName());
    }
    const std::string offset = almanac::isoOffset(clock.offsetOn(date));
    const std::string otherOffset = other ? almanac::isoOffset(*other) : std::string();
    if (notice == ClockNotice::ruleIsNewer) {
        // translators: {0} and {2} are editions of the tz database ("2025b"), {1} and {3} are like "+03:00"
        return tr(
            "clock by the catalogue's rule (tz {0}), UTC{1}; this system's time zone data (tz {2}) is older "
            "and says UTC{3}",
            place.zoneEdition, offset, almanac::systemZoneEdition(), otherOffset);
    }
    // translators: {0} and {2} are editions of the tz database ("2025b"), {1} and {3} are like "+03:00"
    return tr(
        "clock by this system's time zone data (tz {0}), UTC{1}; the catalogue's rule (tz {2}) is newer and "
        "says UTC{3}, but does not hold for every day",
        almanac::systemZoneEdition(), offset, place.zoneEdition, otherOffset);
}

std::string clockNoticeLine(const Context& context, const ShownPlace& place, Date date) {
    const std::string text = clockNoticeText(place, date);
    return text.empty() ? text : "  ! " + context.style.warning(text) + '\n';
}

void noteClock(const Context& context, const ShownPlace& place) {
    const std::string text = clockNoticeText(place, place.clock().dateAt(context.now()));
    if (!text.empty()) {
        context.note(text);
    }
}

void ClockNotices::add(Date date, ClockNotice notice) {
    ++days_;
    Days& days = byNotice_.at(static_cast<std::size_t>(notice));
    days.first = days.count == 0 ? date : days.first;
    days.last = date;
    ++days.count;
}

std::string ClockNotices::sentence(const Days& days) const {
    const std::string text = clockNoticeText(place_, days.first);
    if (days_ == 1) {
        return text;
    }
    // translators: {1} and {2} are days such as 2026-11-21, {3} is what holds for them
    return trPlural("{0} day from {1} to {2}: {3}", "{0} days from {1} to {2}: {3}", days.count,
                    almanac::isoDate(days.first), almanac::isoDate(days.last), text);
}

std::vector<std::string> ClockNotices::sentences() const {
    std::vector<std::string> sentences;
    for (std::size_t notice = 1; notice < byNotice_.size(); ++notice) {
        if (byNotice_[notice].count > 0) {
            sentences.push_back(sentence(byNotice_[notice]));
        }
    }
    return sentences;
}

void ClockNotices::note() const {
    for (const std::string& sentence : sentences()) {
        context_.note(sentence);
    }
}

} // namespace zorel::cli
