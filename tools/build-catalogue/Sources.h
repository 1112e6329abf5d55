// SPDX-License-Identifier: Apache-2.0
/// @file
/// All source files together: what refers to what, and whether a place lies where it can lie.
#pragma once

#include "tools/build-catalogue/Records.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zorel::catalogue {

/// A place with its further spellings and the positions of what it refers to in the lists of Sources.
struct PlacedPlace {
    Place place;
    std::size_t country = 0;
    std::size_t region = 0;
    std::size_t zone = 0;
    std::string_view exactSpellings; ///< names within longer ones of its other names; separated by commas
    std::string_view moreSpellings;  ///< other scripts, accented forms; separated by commas
};

/// A credit with the text of its licence file (empty without one).
struct CreditText {
    Credit credit;
    std::string licenceText;
};

/// The checked source data. Places are ordered by population, largest first; places of equal population keep
/// the order of the file.
struct Sources {
    std::vector<Country> countries;
    std::vector<Region> regions;
    std::vector<Zone> zones;
    std::vector<PlacedPlace> places;
    std::vector<CreditText> credits;
    std::vector<TsvFile> files; ///< keep the texts that the records point into

    /// Reads and checks the folder. What is faulty is left out and added to `problems`.
    [[nodiscard]] static Sources read(const std::filesystem::path& folder, Problems& problems);
};

/// Adds to `problems` every place that lies more than three degrees from the median place of its region,
/// while it would lie at less than half that distance with latitude and longitude exchanged.
void checkExchangedAxes(const Sources& sources, Problems& problems);

} // namespace zorel::catalogue
