// SPDX-License-Identifier: Apache-2.0
// By which clock a place's times are told, and that every output says what is to be known of it.
#include "CliRunner.h"
#include "tests/support/Programs.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zorel::test {
namespace {

using Json = nlohmann::json;

std::string csvOf(CliRunner& run, const std::string& place, const std::string& date) {
    const std::string table = run("table " + place + " --csv --from " + date + " --to " + date).out;
    return table.substr(table.find('\n') + 1);
}

TEST(CliClocks, ArePlacesOwnWhateverTheEditionOfTheSystemsData) {
    CliRunner run("UTC");
    for (const auto& [place, date, offset] : std::vector<std::array<std::string, 3>>{
             {"3553478", "2026-12-01", "-04:00"}, // Havana
             {"3553478", "2027-07-01", "-04:00"},
             {"2553604", "2027-01-15", "+00:00"}, // Casablanca
             {"6173331", "2027-01-15", "-07:00"}, // Vancouver
             {"2147714", "2027-04-03", "+11:00"}, // Sydney, the day before the change and that of it
             {"2147714", "2027-04-04", "+10:00"},
             {"2193733", "2026-09-27", "+13:00"}, // Auckland
             {"3871336", "2027-04-03", "-03:00"}, // Santiago
         }) {
        EXPECT_TRUE(csvOf(run, place, date).starts_with(date + ',' + offset + ','))
            << csvOf(run, place, date) << ' ' << place;
    }
}

/// The program in a process of its own: the system's zone data is read once.
std::string zorelWith(const std::string& environment, const std::string& line,
                      const std::string& errors = "2>&1") {
    const TemporaryFolder folder;
    return outputOf("env LC_ALL=C.UTF-8 TZ=UTC " + environment + " '" ZOREL_PROGRAM "' --bundle '" +
                    builtBundle() + "' --data-dir '" + folder.path("data") + "' --lang en " + line + ' ' +
                    errors);
}

const std::string kOldData = "TZDIR='" ZOREL_OLD_ZONES "'";
const std::string kNoData = "TZDIR=/nonexistent";
const std::string kHavana = "--now 2026-12-01T12:00:00Z ";

TEST(CliClocks, EveryOutputSaysThatTheSystemsDataIsOlder) {
    const std::string sentence =
        "clock by the catalogue's rule (tz 2026f), UTC-04:00; this system's time zone "
        "data (tz 2025b) is older and says UTC-05:00";
    for (const char* line : {"today 3553478", "today 3553478 --short", "tomorrow 3553478",
                             "table 3553478 --to today", "table 3553478 --to +1", "table 3553478 --csv",
                             "table 3553478 --ics", "sky 3553478", "compass 3553478", "widget 3553478"}) {
        const std::string text = zorelWith(kOldData, kHavana + line);
        EXPECT_NE(text.find(sentence), std::string::npos) << line << '\n' << text;
        EXPECT_EQ(text.find("(failed)"), std::string::npos) << text;
    }
    const std::string all = zorelWith(kOldData, "table --all --on 2026-12-01 --from-id 3553478 --count 1");
    EXPECT_NE(all.find("note: 1 place by the catalogue's clock rule"), std::string::npos) << all;
}

TEST(CliClocks, EveryDocumentSaysIt) {
    const Json expected{
        {"source", "rule"}, {"notice", "rule_is_newer"}, {"other_offset", "-05:00"}, {"of_place", nullptr}};
    for (const char* line : {"today 3553478 --json", "sky 3553478 --json", "compass 3553478 --json",
                             "table --all --on 2026-12-01 --from-id 3553478 --count 1 --json"}) {
        const std::string text = zorelWith(kOldData, kHavana + line, "2>/dev/null");
        EXPECT_EQ(Json::parse(text)["clock"], expected) << line;
    }
    const Json table = Json::parse(zorelWith(kOldData, kHavana + "table 3553478 --to +3 --json"));
    ASSERT_EQ(table["days"].size(), 4U);
    EXPECT_EQ(table["days"][3]["clock"], expected);
    const Json bar = Json::parse(zorelWith(kOldData, kHavana + "widget 3553478", "2>/dev/null"));
    EXPECT_NE(bar["tooltip"].get<std::string>().find("clock by the catalogue's rule"), std::string::npos);
}

TEST(CliClocks, TheCalendarCarriesItForWhoSubscribes) {
    std::string ics = zorelWith(kOldData, kHavana + "table 3553478 --to today --ics", "2>/dev/null");
    for (std::size_t at = 0; (at = ics.find("\r\n ", at)) != std::string::npos;) {
        ics.erase(at, 3);
    }
    EXPECT_NE(ics.find("DESCRIPTION:clock by the catalogue's rule (tz 2026f)\\, UTC-04:00"),
              std::string::npos)
        << ics;
    EXPECT_EQ(zorelWith("", "table 745044 --to today --ics").find("DESCRIPTION"), std::string::npos);
}

TEST(CliClocks, AnInexactRuleGivesWayToTheSystemsOlderData) {
    // Auckland's rule begins summer time on the first day of October, not on the last Sunday of September.
    const std::string line = "table 2193733 --from 2027-09-20 --to 2027-10-05 ";
    const Json days = Json::parse(zorelWith(kOldData, line + "--json"))["days"];
    ASSERT_EQ(days.size(), 16U);
    for (const Json& day : days) {
        const std::string date = day["date"];
        const bool isNoticed = date >= "2027-09-26" && date < "2027-10-01";
        EXPECT_EQ(day["utc_offset"], date < "2027-09-26" ? "+12:00" : "+13:00") << date;
        EXPECT_EQ(day["clock"]["source"], "zone_data");
        EXPECT_EQ(day["clock"]["notice"], isNoticed ? Json("system_is_older") : Json(nullptr)) << date;
        EXPECT_EQ(day["clock"]["other_offset"], isNoticed ? Json("+12:00") : Json(nullptr)) << date;
    }
    const std::string text = zorelWith(kOldData, line);
    EXPECT_NE(text.find("! 5 days from 2027-09-26 to 2027-09-30: clock by this system's time zone data (tz "
                        "2025b), UTC+13:00; the catalogue's rule (tz 2026f) is newer and says UTC+12:00"),
              std::string::npos)
        << text;
}

TEST(CliClocks, WithoutZoneDataTheRuleServesAndSaysSo) {
    const std::string text = zorelWith(kNoData, "--now 2026-12-01T12:00:00Z today 745044 --short");
    EXPECT_NE(text.find("UTC+03:00"), std::string::npos) << text;
    EXPECT_NE(text.find("clock by the catalogue's rule (tz 2026f): this system has no time zone data of "
                        "Europe/Istanbul"),
              std::string::npos)
        << text;
    const Json day = Json::parse(zorelWith(kNoData, "today 745044 --json"));
    EXPECT_EQ(day["clock"]["notice"], "rule_only");
    EXPECT_EQ(day["clock"]["source"], "rule");
}

TEST(CliClocks, TheNoteOnAlarmsIsTrue) {
    // By old data Havana's clock and this machine's differ; the alarms follow the machine's.
    CliRunner here("America/Havana");
    here.common = "--lang en --now 2027-07-01T12:00:00Z";
    ASSERT_EQ(here("cities add 3553478").code, 0);
    EXPECT_EQ(here("alarms").err.find("this machine's clock"), std::string::npos) << here("alarms").err;
    const Json list = Json::parse(here("alarms --json").out);
    EXPECT_EQ(list["clock"]["source"], "zone_data");
}

TEST(CliNearestClock, APointTakesTheClockOfTheNearestPlaceAndSaysSo) {
    CliRunner run("Asia/Tokyo");
    const CliResult document = run("today 41.01,28.97 --json");
    EXPECT_EQ(document.err, "");
    const Json day = Json::parse(document.out);
    EXPECT_EQ(day["place"]["zone"], "Europe/Istanbul");
    EXPECT_EQ(day["utc_offset"], "+03:00");
    EXPECT_EQ(day["clock"]["source"], "zone_data");
    EXPECT_LT(day["clock"]["of_place"]["distance_km"], 5.0);
    EXPECT_EQ(day["times"], Json::parse(run("today 41.01,28.97,Europe/Istanbul --json").out)["times"]);
    const std::string owner = day["clock"]["of_place"]["name"];
    for (const char* command : {"today", "tomorrow", "table", "sky", "compass", "widget"}) {
        const std::string note = run(command + std::string(" 41.01,28.97")).err;
        EXPECT_NE(note.find("the clock is that of " + owner), std::string::npos) << command << note;
        EXPECT_NE(note.find("(Europe/Istanbul)"), std::string::npos) << note;
    }
}

TEST(CliNearestClock, FarFromEveryPlaceItIsTheMeridians) {
    CliRunner run("Asia/Tokyo");
    for (const auto& [point, offset] : std::vector<std::array<std::string, 2>>{{"0,-30", "-02:00"},
                                                                               {"-50,-127.4", "-08:00"},
                                                                               {"-50,-127.6", "-09:00"},
                                                                               {"90,180", "+12:00"},
                                                                               {"90,-180", "-12:00"}}) {
        const Json day = Json::parse(run("today " + point + " --json").out);
        EXPECT_EQ(day["utc_offset"], offset) << point;
        EXPECT_EQ(day["clock"]["source"], "meridian") << point;
        EXPECT_TRUE(day["clock"]["of_place"].is_null());
        const std::string note = run("today " + point).err;
        EXPECT_NE(note.find("the clock is that of the meridian (UTC" + offset + ")"), std::string::npos)
            << note;
    }
}

TEST(CliNearestClock, APointWithItsClockIsNotSpokenOf) {
    CliRunner run("Asia/Tokyo");
    for (const char* point : {"41.01,28.97,+3", "41.01,28.97,Europe/Istanbul"}) {
        EXPECT_EQ(run("today " + std::string(point)).err, "");
    }
}

} // namespace
} // namespace zorel::test
