// SPDX-License-Identifier: Apache-2.0
#include "store/City.h"
#include "store/UserCities.h"
#include "tests/store/DatabaseFixture.h"

#include <filesystem>

namespace zorel {

void PrintTo(const UserCity& city, std::ostream* out) {
    *out << city.cityId << (isMarkedAsHome(city) ? " home" : "");
}

namespace {

using testing::ElementsAre;
using testing::FieldsAre;

class StoredUserCities : public test::DatabaseFixture {
protected:
    void SetUp() override { database_.generateUserDatabaseFile(); }
};

TEST_F(StoredUserCities, StandInTheOrderOfTheList) {
    runFreely("INSERT INTO USER_CITY VALUES (30, 0), (10, 1), (20, 0), (30, 0)");
    const UserCities cities = storedUserCities(path());
    EXPECT_TRUE(cities.result.isDone());
    EXPECT_THAT(cities.rows, ElementsAre(FieldsAre("30", "0"), FieldsAre("10", "1"), FieldsAre("20", "0"),
                                         FieldsAre("30", "0")));
    EXPECT_EQ(homePosition(cities.rows), 1U);
}

TEST_F(StoredUserCities, AnEmptyListIsComplete) {
    const UserCities cities = storedUserCities(path());
    EXPECT_TRUE(cities.result.isDone());
    EXPECT_TRUE(cities.rows.empty());
}

TEST_F(StoredUserCities, AMissingFileIsNoListAndIsNotMade) {
    std::filesystem::remove(path());
    EXPECT_FALSE(storedUserCities(path()).result.isDone());
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(StoredUserCities, AnotherFileAMissingTableAndALockAreNoEmptyList) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_FALSE(storedUserCities(path()).result.isDone());
    sqlite3_close(other);
    EXPECT_TRUE(storedUserCities(path()).result.isDone());
    runFreely("DROP TABLE USER_CITY");
    EXPECT_FALSE(storedUserCities(path()).result.isDone());
    test::writeFile(path(), "this is no database, it is a text of some length");
    EXPECT_FALSE(storedUserCities(path()).result.isDone());
}

TEST_F(StoredUserCities, AListThatBreaksOffIsNotComplete) {
    runFreely("WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 2000) "
              "INSERT INTO USER_CITY SELECT I, 0 FROM N");
    std::string bytes = test::readFile(path());
    ASSERT_EQ(storedUserCities(path()).rows.size(), 2000U);
    bytes.replace(bytes.size() - 4096, 4096, 4096, '\xff');
    test::writeFile(path(), bytes);
    const UserCities cities = storedUserCities(path());
    EXPECT_FALSE(cities.result.isDone());
    EXPECT_GT(cities.rows.size(), 0U);
    EXPECT_LT(cities.rows.size(), 2000U);
}

std::vector<UserCity> marked(const std::vector<std::string>& marks) {
    std::vector<UserCity> cities(marks.size());
    std::transform(marks.begin(), marks.end(), cities.begin(), [](const std::string& mark) {
        return UserCity{"7", mark};
    });
    return cities;
}

TEST(HomePosition, IsTheFirstMarkedElseTheFirst) {
    EXPECT_EQ(homePosition(marked({})), std::nullopt);
    EXPECT_EQ(homePosition(marked({"0"})), 0U);
    EXPECT_EQ(homePosition(marked({"0", "0", "1", "1"})), 2U);
    EXPECT_EQ(homePosition(marked({"", "2", "-1", "home"})), 0U) << "none of these is a mark";
}

TEST(HomePosition, IsThatOfThePanesCitiesToo) {
    const GlobalFuncs functions;
    std::vector<City> cities(3, City(functions));
    cities[1].setAsHome = "1";
    EXPECT_EQ(homePosition(cities), 1U);
}

} // namespace
} // namespace zorel
