// SPDX-License-Identifier: Apache-2.0
#include "Numbers.h"
#include "Registry.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace zorel::golden {

std::optional<double> numberOf(const Json& value) {
    if (value.is_boolean()) {
        return value.get<bool>() ? 1.0 : 0.0;
    }
    if (value.is_number()) {
        return value.get<double>();
    }
    if (value.is_null() || value == "nan" || value == "NaN") {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (value == "inf" || value == "-inf") {
        const double infinity = std::numeric_limits<double>::infinity();
        return value == "inf" ? infinity : -infinity;
    }
    return std::nullopt;
}

Arguments::Arguments(const Json& in) : in_(in) {
    if (!in.is_array()) {
        throw MalformedFile("\"in\" is not a list: " + in.dump());
    }
}

const Json& Arguments::at(std::size_t position) const {
    if (position >= in_.size()) {
        throw MalformedFile(fmt::format("\"in\" has no position {}: {}", position, in_.dump()));
    }
    return in_[position];
}

double Arguments::number(std::size_t position) const {
    const std::optional<double> value = numberOf(at(position));
    if (!value) {
        throw MalformedFile(fmt::format("position {} of \"in\" is not a number: {}", position, in_.dump()));
    }
    return *value;
}

std::int32_t Arguments::integer(std::size_t position) const {
    using Limits = std::numeric_limits<std::int32_t>;
    const double value = number(position);
    if (!(value >= Limits::min() && value <= Limits::max()) || value != std::trunc(value)) {
        throw MalformedFile(
            fmt::format("position {} of \"in\" is not a whole number: {}", position, in_.dump()));
    }
    return static_cast<std::int32_t>(value);
}

std::string Arguments::text(std::size_t position) const {
    const Json& value = at(position);
    if (!value.is_string()) {
        throw MalformedFile(fmt::format("position {} of \"in\" is not a text: {}", position, in_.dump()));
    }
    return value.get<std::string>();
}

std::vector<double> Arguments::numbers(std::size_t position) const {
    const Json& value = at(position);
    if (!value.is_array()) {
        throw MalformedFile(fmt::format("position {} of \"in\" is not a list: {}", position, in_.dump()));
    }
    const Arguments nested(value);
    std::vector<double> result;
    for (std::size_t i = 0; i < nested.size(); ++i) {
        result.push_back(nested.number(i));
    }
    return result;
}

DateTimeRecord Arguments::record(std::size_t position) const {
    const Json& value = at(position);
    const Arguments nested(value);
    const auto field = [&nested](std::size_t i) { return i < nested.size() ? nested.integer(i) : 0; };
    return {field(0), field(1), field(2), field(3), field(4), field(5), 0.0};
}

DateTimeRecord Arguments::date(std::size_t position) const {
    return {integer(position), integer(position + 1), integer(position + 2), 0, 0, 0, 0.0};
}

const Operation* Registry::find(const std::string& name, const std::vector<std::string>& arguments) const {
    const Operation* general = nullptr;
    for (const Operation& operation : operations_) {
        if (operation.name != name) {
            continue;
        }
        if (operation.arguments == arguments) {
            return &operation;
        }
        if (operation.arguments.empty()) {
            general = &operation;
        }
    }
    return general;
}

} // namespace zorel::golden
