// SPDX-License-Identifier: Apache-2.0
#include "ring/RungLog.h"

#include "platform/foundation/Files.h"
#include "ring/Lines.h"

#include <algorithm>
#include <utility>

namespace zorel::ring {
namespace {

constexpr std::size_t kLargestFile = 65536; // [bytes]
constexpr std::string_view kTold = "told\t";
constexpr std::string_view kSnoozed = "snoozed\t";

} // namespace

RungLog::RungLog(std::string path) : path_(std::move(path)) {
    read();
}

bool RungLog::has(const Ring& ring) const {
    return std::ranges::find(told_, Told{ring.prayer, ring.at}) != told_.end();
}

std::error_code RungLog::add(const Ring& ring) {
    told_.push_back({ring.prayer, ring.at});
    if (told_.size() > kKept) {
        told_.erase(told_.begin());
    }
    return write();
}

std::error_code RungLog::snooze(const Ring& ring, Instant until) {
    std::erase_if(snoozed_, [&](const Snoozed& each) { return each.ring.prayer == ring.prayer; });
    snoozed_.push_back({ring, until});
    return write();
}

std::error_code RungLog::forgetSnooze(const std::string& prayer) {
    std::erase_if(snoozed_, [&](const Snoozed& each) { return each.ring.prayer == prayer; });
    return write();
}

void RungLog::read() {
    const auto text = readSmallFile(path_, kLargestFile);
    if (!text) {
        return;
    }
    for (const std::string_view line : partsOf(*text, '\n')) {
        takeLine(line);
    }
}

void RungLog::takeLine(std::string_view line) {
    const auto fields = partsOf(line, '\t');
    if (line.starts_with(kTold) && fields.size() == 3) {
        if (const auto at = instantOf(fields[2])) {
            told_.push_back({std::string(fields[1]), *at});
        }
    } else if (line.starts_with(kSnoozed) && fields.size() > 2) {
        const auto until = instantOf(fields[1]);
        const auto ring = ringOfLine(line.substr(kSnoozed.size() + fields[1].size() + 1));
        if (until && ring) {
            snoozed_.push_back({*ring, *until});
        }
    }
}

std::error_code RungLog::write() const {
    std::string text;
    for (const Told& told : told_) {
        text += joined({"told", told.prayer, textOf(told.at)}) + '\n';
    }
    for (const Snoozed& each : snoozed_) {
        text += std::string(kSnoozed) + textOf(each.until) + '\t' + lineOf(each.ring) + '\n';
    }
    return replaceFile(path_, text);
}

} // namespace zorel::ring
