// SPDX-License-Identifier: Apache-2.0
/// @file
/// Questions to the catalogue's index of spellings, all on one connection.
#pragma once

#include "store/Database.h"
#include "store/NamedPlace.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

class Bundle;

/// One row of the index.
struct IndexedSpelling {
    std::string_view folded; ///< valid during the call that hands it over
    std::int32_t row = 0;    ///< of the place; the larger the place the smaller, from 1
    bool other = false;      ///< not the shown name
};

/// The index of one catalogue. A catalogue that turns out to be unreadable while it is asked answers with
/// what it could read, and isSound() turns false.
class NameIndex {
public:
    /// Nothing when the catalogue cannot be opened.
    [[nodiscard]] static std::optional<NameIndex> open(const Bundle& bundle);

    /// The places with exactly this folded spelling, largest first.
    [[nodiscard]] std::vector<NamedPlace> placesCalled(const std::string& folded);
    /// The place of a row of the index.
    [[nodiscard]] std::optional<NamedPlace> placeOfRow(std::int32_t row);
    /// Numbers of the countries with exactly this folded name or code.
    [[nodiscard]] std::vector<std::int32_t> countriesCalled(const std::string& folded);
    /// Hands over every spelling that begins with a text that is not empty.
    void forEachSpelling(const std::string& beginning,
                         const std::function<void(const IndexedSpelling&)>& take);
    /// Hands over the rows of the places up to `lastRow` whose shown name contains the text, ASCII letters in
    /// either case.
    void forEachNameWith(const std::string& text, std::int32_t lastRow,
                         const std::function<void(std::int32_t)>& take);
    [[nodiscard]] bool isSound() const { return sound_; }

private:
    explicit NameIndex(Database catalogue) : catalogue_(std::move(catalogue)) {}
    /// Prepares, hands over every row, and looks whether the last one was the end.
    void run(const char* text, const std::function<void(sqlite3_stmt*)>& bind,
             const std::function<void(const Statement&)>& take);

    Database catalogue_;
    bool sound_ = true;
};

} // namespace zorel
