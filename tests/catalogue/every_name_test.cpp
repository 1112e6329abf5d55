// SPDX-License-Identifier: Apache-2.0
// The shown names of all places, each resolved as if a person had typed it. ZOREL_NAMES_STEP=1 takes every
// one; without it one in so many is taken.
#include "platform/foundation/FoldedName.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "store/NameResolution.h"
#include "tests/catalogue/Fixture.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <vector>

namespace zorel {
namespace {

constexpr std::int64_t kLargeCity = 100'000;

std::size_t stepOr(std::size_t usual) {
    const char* text = std::getenv("ZOREL_NAMES_STEP");
    return text != nullptr ? static_cast<std::size_t>(integerValue(text)) : usual;
}

class EveryName : public testing::Test {
protected:
    std::vector<std::string> namesFrom(std::int64_t population) {
        std::vector<std::string> names;
        forEachPlace(real_.glbFuncs, 1, [&](const CataloguePlace& place) {
            if (place.population >= population) {
                names.push_back(place.city.name);
            }
            return true;
        });
        return names;
    }
    test::RealCatalogue real_;
};

TEST_F(EveryName, OfALargeCityResolvesToAPlaceOfThatName) {
    auto names = namesFrom(kLargeCity);
    std::ranges::sort(names);
    names.erase(std::ranges::unique(names).begin(), names.end());
    ASSERT_EQ(names.size(), 5'873U);
    for (std::size_t at = 0; at < names.size(); at += stepOr(12)) {
        const auto result = resolveName(real_.glbFuncs, names[at]);
        ASSERT_TRUE(result) << names[at];
        ASSERT_FALSE(result->places.empty()) << names[at];
        EXPECT_EQ(foldedName(result->places[0].name), foldedName(names[at]));
        EXPECT_GE(result->places[0].population, kLargeCity) << names[at];
    }
}

TEST_F(EveryName, ResolvesToItsPlaceOrToAMuchLargerOneWhichIsSaid) {
    const auto names = namesFrom(0);
    ASSERT_EQ(names.size(), 146'487U);
    const std::size_t step = stepOr(250);
    std::size_t own = 0;
    std::size_t larger = 0;
    for (std::size_t at = 0; at < names.size(); at += step) {
        const auto result = resolveName(real_.glbFuncs, names[at]);
        ASSERT_TRUE(result && !result->places.empty()) << names[at];
        const bool same = foldedName(result->places[0].name) == foldedName(names[at]);
        ASSERT_NE(same, result->largerFirst) << names[at];
        own += same ? 1 : 0;
        larger += same ? 0 : 1;
    }
    std::cout << own << " of " << own + larger << " shown names resolve to a place of that name, " << larger
              << " to one at least ten times as large that is known by it\n";
    EXPECT_LT(larger * 50, own);
}

} // namespace
} // namespace zorel
