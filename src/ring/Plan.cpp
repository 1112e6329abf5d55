// SPDX-License-Identifier: Apache-2.0
#include "ring/Plan.h"

#include "ring/Lines.h"

namespace zorel::ring {
namespace {

constexpr std::size_t kRingFields = 8;

/// Takes one line of a plan; false when it is none.
bool take(Plan& plan, std::string_view word, std::string_view rest) {
    if (word == "ring") {
        if (auto ring = ringOfLine(rest)) {
            plan.rings.push_back(*std::move(ring));
            return true;
        }
        return false;
    }
    if (word == "again") {
        plan.again = instantOf(rest);
        return plan.again.has_value();
    }
    std::string* const text = word == "stop"      ? &plan.stop
                              : word == "snooze"  ? &plan.snooze
                              : word == "keeper"  ? &plan.keeper
                              : word == "trouble" ? &plan.trouble
                                                  : nullptr;
    if (text != nullptr) {
        *text = rest;
    }
    return text != nullptr;
}

} // namespace

std::string lineOf(const Ring& ring) {
    return joined({ring.prayer, textOf(ring.at), ring.title, ring.body, ring.missed, ring.ringtone,
                   ring.bundled, std::to_string(ring.duration.count())});
}

std::optional<Ring> ringOfLine(std::string_view line) {
    const auto fields = partsOf(line, '\t');
    if (fields.size() != kRingFields) {
        return std::nullopt;
    }
    const auto at = instantOf(fields[1]);
    const auto duration = instantOf(fields[7]);
    if (!at || !duration) {
        return std::nullopt;
    }
    return Ring{std::string(fields[0]), *at,
                std::string(fields[2]), std::string(fields[3]),
                std::string(fields[4]), std::string(fields[5]),
                std::string(fields[6]), duration->time_since_epoch()};
}

std::string textOf(const Plan& plan) {
    std::string text;
    for (const Ring& ring : plan.rings) {
        text += "ring\t" + lineOf(ring) + '\n';
    }
    if (plan.again) {
        text += "again\t" + textOf(*plan.again) + '\n';
    }
    text += joined({"stop", plan.stop}) + '\n' + joined({"snooze", plan.snooze}) + '\n';
    text += joined({"keeper", plan.keeper}) + '\n' + joined({"trouble", plan.trouble}) + '\n';
    return text + "end\n";
}

std::optional<Plan> planOfText(std::string_view text) {
    Plan plan;
    const auto lines = partsOf(text, '\n');
    for (const std::string_view line : lines) {
        if (line == "end") {
            return plan;
        }
        const auto tab = line.find('\t');
        if (tab == std::string_view::npos || !take(plan, line.substr(0, tab), line.substr(tab + 1))) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace zorel::ring
