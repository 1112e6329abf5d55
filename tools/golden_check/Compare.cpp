// SPDX-License-Identifier: Apache-2.0
#include "Compare.h"

#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <string_view>

namespace zorel::golden {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// How the numbers of one operation are compared.
struct Rules {
    std::vector<Field> fields; // one for each position known
    std::vector<std::string> names;
    double tolerance = 0.0;
};

const Json& member(const Json& object, const char* key, const std::string& name) {
    if (!object.is_object() || !object.contains(key)) {
        throw MalformedFile(fmt::format("operation {}: a case or entry without \"{}\"", name, key));
    }
    return object[key];
}

std::vector<std::string> texts(const Json& list) {
    std::vector<std::string> result;
    if (!list.is_array()) {
        return result;
    }
    for (const Json& item : list) {
        result.push_back(item.is_string() ? item.get<std::string>() : item.dump());
    }
    return result;
}

/// The tolerance that a result's name gives for it, as in "jd (tol 1e-3)"; below zero when it gives none.
double toleranceInName(std::string_view name) {
    constexpr std::string_view kMark = "(tol ";
    const std::size_t at = name.find(kMark);
    double value = -1.0;
    if (at != std::string_view::npos) {
        const std::string_view digits = name.substr(at + kMark.size());
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
    }
    return value;
}

Rules rulesOf(const std::string& name, const Json& entry, const Operation& operation) {
    Rules rules;
    const std::optional<double> tolerance = numberOf(member(entry, "tolerance", name));
    if (!tolerance || !(*tolerance >= 0.0)) {
        throw MalformedFile(fmt::format("operation {}: \"tolerance\" is not a number of 0 or more", name));
    }
    rules.tolerance = *tolerance;
    if (entry.contains("result")) {
        rules.names = texts(entry["result"]);
    }
    for (std::size_t i = 0; i < rules.names.size(); ++i) {
        const double own = toleranceInName(rules.names[i]);
        if (own >= 0.0) {
            rules.fields.push_back({.position = i, .tolerance = own});
        }
    }
    rules.fields.insert(rules.fields.begin(), operation.fields.begin(), operation.fields.end());
    return rules;
}

void flatten(const Json& value, const std::string& name, Outputs& out) {
    if (value.is_array()) {
        for (const Json& item : value) {
            flatten(item, name, out);
        }
        return;
    }
    const std::optional<double> number = numberOf(value);
    if (!number) {
        throw MalformedFile(
            fmt::format("operation {}: an \"out\" that is not a number: {}", name, value.dump()));
    }
    out.push_back(*number);
}

std::vector<std::size_t> skipped(const Json& item) {
    std::vector<std::size_t> result;
    if (item.contains("skip")) {
        for (const Json& position : item["skip"]) {
            if (position.is_number_unsigned()) {
                result.push_back(position.get<std::size_t>());
            }
        }
    }
    return result;
}

double difference(double expected, double actual, double period) {
    if (expected == actual) {
        return 0.0;
    }
    if (std::isnan(expected)) { // not-a-number, or a field that a fresh engine leaves at 0
        return std::isnan(actual) || actual == 0.0 ? 0.0 : kInfinity;
    }
    const double plain = std::fabs(expected - actual);
    if (!std::isfinite(plain)) {
        return kInfinity;
    }
    return period > 0.0 ? std::fabs(std::remainder(plain, period)) : plain;
}

struct Difference {
    double size = 0.0;
    double tolerance = 0.0;

    [[nodiscard]] bool failed() const { return size > tolerance; }
    [[nodiscard]] double fraction() const {
        if (size == 0.0) {
            return 0.0;
        }
        return tolerance > 0.0 ? size / tolerance : kInfinity;
    }
};

Difference compareField(const Rules& rules, std::size_t position, double expected, double actual) {
    Field field;
    const auto known = std::find_if(rules.fields.begin(), rules.fields.end(),
                                    [position](const Field& f) { return f.position == position; });
    if (known != rules.fields.end()) {
        field = *known;
    }
    Difference result;
    result.size = difference(expected, actual, field.period);
    result.tolerance = field.tolerance >= 0.0 ? field.tolerance : rules.tolerance;
    if (field.relative) {
        result.tolerance *= std::fabs(expected);
    }
    return result;
}

std::string fieldName(const Rules& rules, std::size_t position) {
    return position < rules.names.size() ? rules.names[position] : fmt::format("#{}", position);
}

/// One case: true when every number is within its tolerance.
class CaseRun {
public:
    CaseRun(const Rules& rules, const Operation& operation, const Json& item, Report& report)
        : rules_(rules), operation_(operation), item_(item), report_(report), skip_(skipped(item)) {}

    bool run() {
        const Arguments in(member(item_, "in", report_.name));
        Outputs expected;
        flatten(member(item_, "out", report_.name), report_.name, expected);
        bool passed = compare(expected, operation_.run(in));
        if (operation_.back && item_.contains("back")) {
            Outputs days;
            flatten(item_["back"], report_.name, days);
            passed = days == operation_.back(in) && passed;
        }
        return passed;
    }

private:
    bool compare(const Outputs& expected, const Outputs& actual) {
        if (expected.size() != actual.size()) {
            note({kInfinity, 0.0}, fmt::format("{} results, {} expected", actual.size(), expected.size()));
            return false;
        }
        bool passed = true;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (isSkipped(i)) {
                continue;
            }
            Difference d = compareField(rules_, i, expected[i], actual[i]);
            if (operation_.tolerancePosition >= 0) {
                d.tolerance = expected[static_cast<std::size_t>(operation_.tolerancePosition)];
            }
            note(d, fieldName(rules_, i));
            passed = passed && !d.failed();
        }
        return passed;
    }

    [[nodiscard]] bool isSkipped(std::size_t position) const {
        return static_cast<int>(position) == operation_.tolerancePosition ||
               std::find(skip_.begin(), skip_.end(), position) != skip_.end();
    }

    void note(const Difference& d, const std::string& field) {
        report_.largest = std::max(report_.largest, d.size);
        if (d.fraction() > report_.fraction || report_.worst.empty()) {
            report_.fraction = d.fraction();
            report_.worst = item_["in"].dump();
            report_.field = field;
        }
    }

    const Rules& rules_;
    const Operation& operation_;
    const Json& item_;
    Report& report_;
    std::vector<std::size_t> skip_;
};

} // namespace

std::vector<std::string> argumentNames(const Json& entry) {
    return entry.is_object() && entry.contains("args") ? texts(entry["args"]) : std::vector<std::string>{};
}

Report runOperation(const std::string& name, const Json& entry, const Operation& operation) {
    const Rules rules = rulesOf(name, entry, operation);
    const Json& cases = member(entry, "cases", name);
    if (!cases.is_array()) {
        throw MalformedFile(fmt::format("operation {}: \"cases\" is not a list", name));
    }
    Report report;
    report.name = name;
    for (const Json& item : cases) {
        ++report.cases;
        report.failures += CaseRun(rules, operation, item, report).run() ? 0 : 1;
    }
    return report;
}

} // namespace zorel::golden
