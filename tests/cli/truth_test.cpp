// SPDX-License-Identifier: Apache-2.0
// One truth: every way to ask for a day gives the same times, and they are the almanac's.
#include "CliRunner.h"

#include "almanac/Almanac.h"
#include "common/GlobalFuncs.h"
#include "store/AlmanacPlace.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zorel::test {
namespace {

using Json = nlohmann::json;
using almanac::Prayer;

struct PlaceDay {
    const char* id;
    const char* date;
};

/// Times before and after midnight, seams, changes of clocks, earlier days, the date line, ordinary days.
constexpr std::array kPlaceDays{
    PlaceDay{"548408", "2026-06-10"},  PlaceDay{"551487", "2027-05-01"},  PlaceDay{"2673730", "2027-06-11"},
    PlaceDay{"643492", "2027-06-10"},  PlaceDay{"3413829", "2027-06-17"}, PlaceDay{"1496503", "2027-06-10"},
    PlaceDay{"581049", "2027-05-25"},  PlaceDay{"524901", "2027-06-21"},  PlaceDay{"2643743", "2027-06-21"},
    PlaceDay{"658225", "2027-03-28"},  PlaceDay{"3553478", "2027-01-10"}, PlaceDay{"2553604", "2027-01-15"},
    PlaceDay{"6173331", "2027-01-15"}, PlaceDay{"2147714", "2026-10-04"}, PlaceDay{"4035413", "2026-12-01"},
    PlaceDay{"745044", "2026-11-21"},  PlaceDay{"104515", "2027-02-10"},  PlaceDay{"3133895", "2026-12-21"},
};

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

class CliTruth : public testing::TestWithParam<PlaceDay> {
protected:
    CliRunner run;

    std::string out(const std::string& line) {
        const CliResult result = run(line);
        EXPECT_EQ(result.code, 0) << line << '\n' << result.err;
        return result.out;
    }
    [[nodiscard]] Json day(const std::string& options = {}) {
        return Json::parse(out("today " + id() + " --json --date " + date() + options));
    }
    [[nodiscard]] std::string id() const { return GetParam().id; }
    [[nodiscard]] std::string date() const { return GetParam().date; }
    [[nodiscard]] std::string range() const { return " --from " + date() + " --to " + date() + ' '; }
    [[nodiscard]] almanac::Day told() const {
        const auto place = placeById(GlobalFuncs(), std::stoi(id()));
        return almanac::Almanac(almanacPlace(place.value())).day(almanac::parseDate(date(), {}).value());
    }
};

TEST_P(CliTruth, TheDayIsTheAlmanacs) {
    const Json shown = day(); // first: it names the bundle
    const almanac::Day told = this->told();
    for (const Prayer prayer : almanac::kListedPrayers) {
        const bool isOneOfSix = almanac::identityOf(prayer).row >= 0;
        const std::string key(almanac::keyOf(prayer));
        const Json& time = shown[isOneOfSix ? "times" : "other_times"][key];
        const almanac::DayTime& own = told[prayer];
        EXPECT_EQ(time, own.exists() ? Json(almanac::isoDateTime(own.local)) : Json(nullptr)) << key;
    }
}

/// "23:51-1" of an instant of the JSON document, as the tables write it.
std::string cellOf(const Json& time, const std::string& date, const std::string& blank) {
    if (time.is_null()) {
        return blank.empty() ? "" : "none today";
    }
    const std::string text = time;
    const auto on = almanac::parseDate(text.substr(0, 10), {});
    const auto days = almanac::daysBetween(almanac::parseDate(date, {}).value(), on.value());
    const std::string sign = days > 0 ? "+" : "";
    return text.substr(11, 5) + (days == 0 ? "" : blank + sign + std::to_string(days));
}

TEST_P(CliTruth, TablesSayTheSame) {
    const Json times = day()["times"];
    const std::string csv = linesOf(out("table " + id() + range() + "--csv"))[1];
    const std::string all =
        linesOf(out("table --all --csv --count 1 --on " + date() + " --from-id " + id()))[1];
    const std::string text = linesOf(out("table " + id() + range()))[2];
    std::string cells;
    for (const Prayer prayer : almanac::kSixPrayers) {
        const Json& time = times[std::string(almanac::keyOf(prayer))];
        cells += ',' + cellOf(time, date(), "");
        EXPECT_NE(text.find(cellOf(time, date(), " ")), std::string::npos) << text;
    }
    EXPECT_NE(csv.find(cells + ','), std::string::npos) << csv << '\n' << cells;
    EXPECT_TRUE(all.ends_with(csv)) << all << '\n' << csv;
    EXPECT_EQ(Json::parse(out("table " + id() + range() + "--json"))["days"][0]["times"], times);
    EXPECT_EQ(Json::parse(out("table --all --json --count 1 --on " + date() + " --from-id " + id()))["times"],
              times);
}

TEST_P(CliTruth, TheCalendarHasTheSameInstants) {
    const Json times = day()["times"];
    const std::string ics = out("table " + id() + range() + "--ics");
    for (const auto& [key, time] : times.items()) {
        const std::string uid = "UID:" + id() + '-' + date() + '-' + key + "@zorel";
        if (time.is_null()) {
            EXPECT_EQ(ics.find(uid), std::string::npos);
            continue;
        }
        const auto moment = almanac::parseMoment(time.get<std::string>());
        const almanac::Instant instant =
            std::chrono::sys_days(*moment->date) + moment->timeOfDay - *moment->offset;
        const DateTimeRecord at = almanac::engineInstant(instant);
        std::array<char, 40> start{};
        std::snprintf(start.data(), start.size(), "DTSTART:%04d%02d%02dT%02d%02d00Z", at.year, at.month,
                      at.day, at.hour, at.minute);
        const auto event = ics.find(uid);
        ASSERT_NE(event, std::string::npos) << uid;
        EXPECT_EQ(ics.find(start.data(), event), ics.find("DTSTART:", event)) << key << ' ' << start.data();
    }
}

/// Seconds after 0:00 of the day of "-00:08:29" or "24:12:03".
long secondsOf(const std::string& hours) {
    const bool isBefore = hours.front() == '-';
    int h = 0;
    int m = 0;
    int s = 0;
    EXPECT_EQ(std::sscanf(hours.c_str() + (isBefore ? 1 : 0), "%d:%d:%d", &h, &m, &s), 3) << hours;
    const long seconds = h * 3600L + m * 60L + s;
    return isBefore ? -seconds : seconds;
}

/// The same of an ISO 8601 time, by its own offset.
long secondsOf(const std::string& time, const std::string& date) {
    const auto moment = almanac::parseMoment(time);
    const auto days = almanac::daysBetween(almanac::parseDate(date, {}).value(), *moment->date);
    return static_cast<long>(days * 86400 + moment->timeOfDay.count());
}

TEST_P(CliTruth, TheExplanationIsThatOfTheShownTime) {
    const Json shown = day(" --explain");
    const Json seconds = day(" --seconds");
    ASSERT_EQ(shown["explanations"].size(), 14U);
    for (const Json& why : shown["explanations"]) {
        const std::string key = why["name"];
        const std::string group = shown["times"].contains(key) ? "times" : "other_times";
        const Json& time = shown[group][key];
        ASSERT_EQ(time.is_null(), why["exact"].is_null()) << key;
        EXPECT_EQ(why["corrections"],
                  shown["corrections"].contains(key) ? shown["corrections"][key] : Json::array());
        if (time.is_null()) {
            continue;
        }
        const long exact = secondsOf(why["exact"].get<std::string>());
        EXPECT_EQ(exact, secondsOf(seconds[group][key].get<std::string>(), date())) << key;
        const bool isLater =
            almanac::identityOf(almanac::prayerOfKey(key).value()).rounding == almanac::Rounding::later;
        const long minute = isLater ? (exact + 59 + 86400) / 60 - 1440 : (exact + 86400) / 60 - 1440;
        EXPECT_EQ(minute * 60, secondsOf(time.get<std::string>(), date())) << key << ' ' << why.dump();
    }
}

TEST_P(CliTruth, TheStatusBarShowsTheSameTable) {
    run.common = "--lang en --now " + date() + "T12:00:00Z";
    const Json bar = Json::parse(out("widget " + id()));
    const Json today = Json::parse(out("today " + id() + " --json"));
    for (const auto& [key, time] : today["times"].items()) {
        EXPECT_NE(bar["tooltip"].get<std::string>().find(cellOf(time, today["date"], " ")), std::string::npos)
            << key << '\n'
            << bar["tooltip"];
    }
    EXPECT_NE(bar["text"].get<std::string>().find(cellOf(today["next"]["at"], today["date"], " ")),
              std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(PlaceDays, CliTruth, testing::ValuesIn(kPlaceDays),
                         [](const auto& tested) { return "Id" + std::string(tested.param.id); });

TEST(CliExplain, AltitudesAndShadowsAreNumbers) {
    CliRunner run;
    const Json why = Json::parse(run("today Istanbul --json --explain").out)["explanations"];
    const std::map<std::string, double> altitudes{{"fajr", -19.0},
                                                  {"sunrise", 0.0},
                                                  {"maghrib", 0.0},
                                                  {"isha", -17.0},
                                                  {"isha_second", -19.0},
                                                  {"morning_five_degrees", 5.0},
                                                  {"afternoon_five_degrees", 5.0}};
    int shadows = 0;
    for (const Json& one : why) {
        const std::string name = one["name"];
        if (altitudes.contains(name)) {
            EXPECT_EQ(one["altitude"], altitudes.at(name)) << name;
        } else if (one["rule"] == "shadow") {
            EXPECT_GT(one["altitude"], 10.0) << name;
            ++shadows;
        } else {
            EXPECT_TRUE(one["altitude"].is_null()) << name;
        }
    }
    EXPECT_EQ(shadows, 2);
}

TEST(CliCompass, BearingsStayBelowAWholeTurn) {
    CliRunner run;
    // South of the Kaaba, where the compass points east of north: the needle's bearing goes through zero.
    int wrapped = 0;
    for (const char* point : {"10,39.8262,+3", "0,39.6,+3", "-10,39.7,+3", "-20,39.9,+3", "5,39.8262,+3"}) {
        const Json compass =
            Json::parse(run("compass " + std::string(point) + " --json --date 2026-11-21").out);
        const double qibla = compass["qibla_true"];
        const double declination = compass["magnetic"]["declination"];
        const double expected = qibla - declination;
        const double needle = compass["qibla_magnetic"];
        EXPECT_GE(needle, 0.0);
        EXPECT_LT(needle, 360.0);
        EXPECT_NEAR(std::remainder(needle - expected, 360.0), 0.0, 0.011) << point;
        wrapped += expected < 0.0 || expected >= 360.0 ? 1 : 0;
    }
    EXPECT_GT(wrapped, 0);
}

TEST(CliCompass, SaysWhatTheModelIsWorth) {
    CliRunner run;
    const Json now = Json::parse(run("compass 40.71,-74.01,-5 --json --date 2026-11-21").out)["magnetic"];
    EXPECT_EQ(now["model"], "WMM2025");
    EXPECT_NEAR(now["uncertainty"].get<double>(), 0.37, 0.02);
    EXPECT_EQ(now["extrapolated"], false);
    const CliResult later = run("compass 40.71,-74.01,-5 --date 2035-01-01");
    EXPECT_NE(later.out.find("IGRF-11"), std::string::npos) << later.out;
    EXPECT_NE(later.out.find("extrapolated"), std::string::npos) << later.out;
    EXPECT_EQ(later.out.find("±"), std::string::npos) << later.out;
    EXPECT_NE(run("compass 85.8,145,+0 --date 2026-11-21").out.find("a compass is useless"),
              std::string::npos);
    EXPECT_NE(run("compass 75,-75,-5 --date 2026-11-21").out.find("a compass is unreliable"),
              std::string::npos);
}

} // namespace
} // namespace zorel::test
