// SPDX-License-Identifier: Apache-2.0
#include "print/ClockNotices.h"

#include <fmt/format.h>

namespace zorel::cli {

using almanac::ClockNotice;
using almanac::Date;

namespace {
Word wordOf(ClockNotice notice) {
    switch (notice) {
    case ClockNotice::ruleOnly:
        return Word::clockRuleOnly;
    case ClockNotice::ruleIsNewer:
        return Word::clockRuleIsNewer;
    default:
        return Word::clockSystemIsOlder;
    }
}
} // namespace

std::string clockNoticeText(const Context& context, const ShownPlace& place, Date date) {
    const almanac::PlaceClock& clock = place.clock();
    const ClockNotice notice = clock.noticeOn(date);
    if (notice == ClockNotice::none) {
        return {};
    }
    const auto other = clock.otherOffsetOn(date);
    return fmt::format(fmt::runtime(context.word(wordOf(notice))), fmt::arg("edition", place.zoneEdition),
                       fmt::arg("system", almanac::systemZoneEdition()), fmt::arg("zone", clock.zoneName()),
                       fmt::arg("offset", almanac::isoOffset(clock.offsetOn(date))),
                       fmt::arg("other", other ? almanac::isoOffset(*other) : std::string()));
}

std::string clockNoticeLine(const Context& context, const ShownPlace& place, Date date) {
    const std::string text = clockNoticeText(context, place, date);
    return text.empty() ? text : "  ! " + context.style.warning(text) + '\n';
}

void noteClock(const Context& context, const ShownPlace& place) {
    const std::string text = clockNoticeText(context, place, place.clock().dateAt(context.now()));
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
    const std::string text = clockNoticeText(context_, place_, days.first);
    if (days_ == 1) {
        return text;
    }
    const std::string when = fmt::format(
        fmt::runtime(context_.word(Word::daysFromTo)), fmt::arg("days", days.count),
        fmt::arg("first", almanac::isoDate(days.first)), fmt::arg("last", almanac::isoDate(days.last)));
    return fmt::format("{}: {}", when, text);
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
