// SPDX-License-Identifier: Apache-2.0
// Spellings that people type, and the place that each of them has to find.
#include "store/CitySearch.h"
#include "store/NameResolution.h"
#include "tests/catalogue/Fixture.h"

#include <gtest/gtest.h>
#include <ostream>

namespace zorel {
namespace {

struct Spelling {
    const char* text;
    int id; ///< GeoNames id
    const char* name;
};

constexpr Spelling kSpellings[] = {
    {"Istanbul", 745044, "İstanbul"},
    {"İstanbul", 745044, "İstanbul"},
    {"istanbul", 745044, "İstanbul"},
    {"ISTANBUL", 745044, "İstanbul"},
    {"İSTANBUL", 745044, "İstanbul"},
    {"Ankara", 323786, "Ankara"},
    {"Konya", 306571, "Konya"},
    {"Köln", 2886242, "Köln"},
    {"Koln", 2886242, "Köln"},
    {"Cologne", 2886242, "Köln"},
    {"München", 2867714, "Munich"},
    {"Mekke", 104515, "Makkah"},
    {"Makkah", 104515, "Makkah"},
    {"Mecca", 104515, "Makkah"},
    {"مكة", 104515, "Makkah"},
    {"Medina", 109223, "Madinah"},
    {"Kudüs", 281184, "Jerusalem"},
    {"Jerusalem", 281184, "Jerusalem"},
    {"Kairo", 360630, "Cairo"},
    {"Cairo", 360630, "Cairo"},
    {"القاهرة", 360630, "Cairo"},
    {"Jakarta", 1642911, "Jakarta"},
    {"Karachi", 1174872, "Karachi"},
    {"کراچی", 1174872, "Karachi"},
    {"Dhaka", 1185241, "Dhaka"},
    {"Sarajevo", 3191281, "Sarajevo"},
    {"Skopje", 785842, "Skopje"},
    {"Üsküp", 785842, "Skopje"},
    {"Москва", 524901, "Moscow"},
    {"Moscow", 524901, "Moscow"},
    {"New York", 5128581, "New York City"},
    {"London", 2643743, "London"},
    {"Paris", 2988507, "Paris"},
    {"Tromsø", 3133895, "Tromsø"},
    {"Tromso", 3133895, "Tromsø"},
    {"Reykjavik", 3413829, "Reykjavík"},
    {"Medine", 109223, "Madinah"},
    {"MEDİNE", 109223, "Madinah"},
    {"Kahire", 360630, "Cairo"},
    {"KAHİRE", 360630, "Cairo"},
    {"Londra", 2643743, "London"},
    {"Moskova", 524901, "Moscow"},
    {"москва", 524901, "Moscow"},
    {"МОСКВА", 524901, "Moscow"},
    {"köln", 2886242, "Köln"},
    {"KÖLN", 2886242, "Köln"},
    {"REYKJAVÍK", 3413829, "Reykjavík"},
    {"İzmir", 311046, "İzmir"},
    {"izmir", 311046, "İzmir"},
    {"IZMIR", 311046, "İzmir"},
    {"İZMİR", 311046, "İzmir"},
    {"DİYARBAKIR", 316541, "Diyarbakır"},
    {"diyarbakir", 316541, "Diyarbakır"},
    {"şanlıurfa", 298333, "Şanlıurfa"},
    {"ŞANLIURFA", 298333, "Şanlıurfa"},
    {"Sanliurfa", 298333, "Şanlıurfa"},
    {"IĞDIR", 311665, "Iğdır"},
    {"ığdır", 311665, "Iğdır"},
    {"Igdir", 311665, "Iğdır"},
    {"Munchen", 2867714, "Munich"},
    {"Saraybosna", 3191281, "Sarajevo"},
    {"Selanik", 734077, "Thessaloníki"},
    {"Halep", 170063, "Aleppo"},
    {"Şam", 170654, "Damascus"},
    {"Bağdat", 98182, "Baghdad"},
    {"BAĞDAT", 98182, "Baghdad"},
    {"Tahran", 112931, "Tehran"},
    {"Tiflis", 611717, "Tbilisi"},
    {"Bakü", 587084, "Baku"},
    {"المدينة", 109223, "Madinah"},
    {"القدس", 281184, "Jerusalem"},
    {"دمشق", 170654, "Damascus"},
    {"بغداد", 98182, "Baghdad"},
    {"Уфа", 479561, "Ufa"},
    {"Казань", 551487, "Kazan"},
    {"Priştine", 786714, "Pristina"},
    {"Viyana", 2761369, "Vienna"},
    {"Atina", 264371, "Athens"},
    {"são paulo", 3448439, "São Paulo"},
};
static_assert(std::size(kSpellings) == 79);

void PrintTo(const Spelling& spelling, std::ostream* out) {
    *out << spelling.text;
}

class Spellings : public testing::TestWithParam<Spelling> {
protected:
    test::RealCatalogue real_;
};

TEST_P(Spellings, FindsItsPlaceFirst) {
    const std::vector<FoundCity> cities = searchCities(real_.glbFuncs, GetParam().text);
    // "Koln" is in the middle of Stockholm's Nordic name, and Stockholm has more inhabitants.
    const std::size_t position = std::string(GetParam().text) == "Koln" ? 1 : 0;
    ASSERT_GT(cities.size(), position);
    EXPECT_EQ(cities[position].cityId, std::to_string(GetParam().id));
    EXPECT_EQ(cities[position].name, GetParam().name);
}

TEST_P(Spellings, ResolvesToItsPlace) {
    const auto resolution = resolveName(real_.glbFuncs, GetParam().text);
    ASSERT_TRUE(resolution);
    ASSERT_FALSE(resolution->places.empty());
    EXPECT_EQ(resolution->places[0].id, GetParam().id);
    EXPECT_EQ(resolution->places[0].name, GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(All, Spellings, testing::ValuesIn(kSpellings));

} // namespace
} // namespace zorel
