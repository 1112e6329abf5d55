// SPDX-License-Identifier: Apache-2.0
// The catalogue that the build has made from the real source data.
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "tests/catalogue/Fixture.h"
#include "tools/build-catalogue/Build.h"
#include "tools/build-catalogue/Sources.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unordered_map>

namespace zorel {
namespace {

const std::string kCatalogue =
    std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle/database/cities.sqlite";

/// First column of the first row.
std::string answer(const std::string& query) {
    std::string text = "no answer";
    sqlite3* database = nullptr;
    sqlite3_open_v2(kCatalogue.c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_exec(
        database, query.c_str(),
        [](void* out, int, char** values, char**) {
            *static_cast<std::string*>(out) = values[0] != nullptr ? values[0] : "NULL";
            return 1;
        },
        &text, nullptr);
    sqlite3_close(database);
    return text;
}

TEST(Catalogue, HasAllRows) {
    EXPECT_EQ(answer("SELECT count(*) FROM CITY"), "146487");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY_PARENT"), "3818");
    EXPECT_EQ(answer("SELECT count(*) FROM COUNTRY"), "246");
    EXPECT_EQ(answer("SELECT count(*) FROM ZONE"), "391");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY WHERE TEMKIN = 1"), "44046");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY WHERE TEMKIN = 0"), "102441");
}

TEST(Catalogue, IsSound) {
    EXPECT_EQ(answer("PRAGMA integrity_check"), "ok");
    EXPECT_LE(std::filesystem::file_size(kCatalogue), 45'000'000U);
}

TEST(Catalogue, EveryReferenceHoldsForEveryPlace) {
    EXPECT_EQ(answer("SELECT count(*) FROM CITY C JOIN CITY_PARENT P ON P.PARENT = C.PARENT "
                     "JOIN COUNTRY CC ON CC.CID = P.CID JOIN DST D ON D.DSTID = P.DSTID "
                     "JOIN ZONE Z ON Z.ZONE = C.ZONE"),
              "146487");
    EXPECT_EQ(answer("SELECT count(*) FROM SQUARE_DEGREE S JOIN CITY C ON C.ROWID = S.CITY"), "146487");
    EXPECT_EQ(answer("SELECT count(*) FROM ZONE Z JOIN CITY C ON C.ID = Z.LARGEST AND C.ZONE = Z.ZONE"),
              "391");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY_PARENT P WHERE NOT EXISTS "
                     "(SELECT 1 FROM COUNTRY CC WHERE CC.CID = P.CID)"),
              "0");
}

TEST(Catalogue, MostZonesAreExact) {
    EXPECT_EQ(answer("SELECT count(*) FROM ZONE WHERE EXACT = 1"), "376");
    EXPECT_EQ(answer("SELECT count(*) FROM ZONE WHERE EXACT = 0"), "15");
    EXPECT_EQ(answer("SELECT group_concat(NAME) FROM ZONE WHERE DEPARTGMT IS NOT NULL"), "America/Havana");
}

TEST(Catalogue, RowsComeInTheOrderOfPopulation) {
    EXPECT_EQ(answer("SELECT count(*) FROM CITY A JOIN CITY B ON B.ROWID = A.ROWID + 1 "
                     "WHERE B.POPULATION > A.POPULATION"),
              "0");
    EXPECT_EQ(answer("SELECT max(ROWID) FROM CITY"), "146487");
}

TEST(Catalogue, RegionsWithSeveralClocks) {
    const std::string split = "FROM (SELECT count(*) N FROM CITY_PARENT GROUP BY CID, NAME HAVING N = ";
    EXPECT_EQ(answer("SELECT count(*) " + split + "3)"), "4");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY_PARENT CP WHERE CP.NAME = 'Chihuahua'"), "3");
}

TEST(Catalogue, NameOfEveryPlaceIsSearchable) {
    EXPECT_EQ(answer("SELECT count(*) FROM CITY WHERE instr(NAMESRC, NAME) <> 1"), "0");
    EXPECT_EQ(answer("SELECT count(*) FROM CITY WHERE NAME LIKE '%|%'"), "0");
}

TEST(Catalogue, EveryCoordinateIsThatOfTheSource) {
    catalogue::Problems problems;
    const auto sources =
        catalogue::Sources::read(std::string(ZOREL_SOURCE_DIR) + "/resources/catalogue", problems);
    std::unordered_map<std::string, const catalogue::Place*> places;
    for (const auto& entry : sources.places) {
        places[std::to_string(entry.place.id)] = &entry.place;
    }
    const test::RealCatalogue real;
    std::size_t wrong = 0;
    forEachPlace(real.glbFuncs, 1, [&](const CataloguePlace& place) {
        const catalogue::Place* source = places.at(place.city.cityId);
        // Six decimals and a thousandth of a second: half a unit of each [deg].
        constexpr double kMost = 0.5e-6 + 0.5e-3 / 3600.0;
        const bool near = std::abs(doubleValue(place.city.latitude) - source->latitude) <= kMost &&
                          std::abs(doubleValue(place.city.longitude) - source->longitude) <= kMost;
        wrong += near && place.city.name == source->name && place.timeZone == source->zone ? 0 : 1;
        return true;
    });
    EXPECT_EQ(wrong, 0U);
}

TEST(Catalogue, ASecondBuildGivesTheSameBytes) {
    const test::TemporaryFolder folder;
    catalogue::Problems problems;
    catalogue::Progress progress(true);
    catalogue::buildCatalogue(std::string(ZOREL_SOURCE_DIR) + "/resources/catalogue",
                              folder.path("again.sqlite"), problems, progress);
    EXPECT_TRUE(problems.empty());
    EXPECT_TRUE(test::readFile(folder.path("again.sqlite")) == test::readFile(kCatalogue));
}

} // namespace
} // namespace zorel
