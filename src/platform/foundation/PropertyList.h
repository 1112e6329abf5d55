// SPDX-License-Identifier: Apache-2.0
/// @file
/// Property lists (XML or binary) as plain values, read through libplist.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zorel {

class PropertyList;
using PropertyArray = std::vector<PropertyList>;
using PropertyDictionary = std::map<std::string, PropertyList, std::less<>>;

/// One node: a text, an integer, a real, a truth value, a list or a dictionary. Dates, data and the like are
/// empty.
class PropertyList {
public:
    std::variant<std::monostate, std::string, std::int64_t, double, bool, PropertyArray, PropertyDictionary>
        value;

    /// The entry of a dictionary, or nullptr.
    [[nodiscard]] const PropertyList* find(std::string_view key) const;
    /// The text of a text node, or nullptr.
    [[nodiscard]] const std::string* text() const;
    [[nodiscard]] const PropertyArray* array() const;
    [[nodiscard]] const PropertyDictionary* dictionary() const;

    /// Parses bytes; nothing when they are not a property list or nest deeper than 64 levels.
    [[nodiscard]] static std::optional<PropertyList> parse(std::string_view bytes);
    /// Reads a file; nothing when it is missing, unreadable or not a property list. @throws nothing
    [[nodiscard]] static std::optional<PropertyList> read(const std::string& path);
};

} // namespace zorel
