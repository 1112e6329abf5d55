// SPDX-License-Identifier: Apache-2.0
// The next prayer time in one line: the pattern and its fields, and when the line has to be made again.
#include "CliRunner.h"
#include "print/NextLine.h"

#include "almanac/Almanac.h"

#include <gtest/gtest.h>

namespace zorel::test {
namespace {

using namespace std::chrono_literals;
using cli::NextPattern;

std::string partsText(std::string_view written) {
    const NextPattern pattern(written);
    std::string text;
    for (const NextPattern::Part& part : pattern.parts()) {
        text += part.isField ? '<' + part.text + '>' : part.text;
    }
    return text;
}

TEST(CliNext, APatternIsTextAndFields) {
    EXPECT_EQ(partsText(""), "");
    EXPECT_EQ(partsText("plain"), "plain");
    EXPECT_EQ(partsText("{name}{time}"), "<name><time>");
    EXPECT_EQ(partsText("a {name}, b {city} c"), "a <name>, b <city> c");
    EXPECT_EQ(partsText("{{name}} {{{name}}}"), "{name} {<name>}");
    EXPECT_EQ(partsText("100 % $x"), "100 % $x");
}

TEST(CliNext, WhatIsNoPatternEndsTheCommand) {
    for (const char* pattern :
         {"{", "}", "{name", "name}", "{nome}", "{}", "{ name}", "{name}}", "{{name}"}) {
        EXPECT_THROW((void)NextPattern(pattern), cli::CliError) << pattern;
    }
}

TEST(CliNext, OnlyWhatIsLeftCounts) {
    EXPECT_FALSE(NextPattern("{name} {time} {key} {city} {date} {weekday} {hijri} minutes").counts());
    EXPECT_TRUE(NextPattern("{countdown}").counts());
    EXPECT_TRUE(NextPattern("in {minutes}").counts());
    EXPECT_TRUE(NextPattern("{name} {clock}").counts());
}

TEST(CliNext, TheFieldsSayWhatTheDayDocumentSays) {
    CliRunner run;
    EXPECT_EQ(run("next Istanbul").out, "Dhuhr 13:00, in 4 h\n");
    EXPECT_EQ(run("next Istanbul --format \"{key} {minutes} {clock} {countdown}\"").out,
              "dhuhr 240 4:00 4 h\n");
    EXPECT_EQ(run("next Istanbul --format \"{city} {date} {weekday} {hijri}\"").out,
              "İstanbul 2026-11-21 Saturday 12 Jumada II 1448\n");
    EXPECT_EQ(run("next 41.01,28.97,+3 --format {city}").out, "41.0100 N, 28.9700 E\n");
}

TEST(CliNext, AfterNightfallItIsTomorrowsDawn) {
    CliRunner run;
    run.common = "--lang en --now 2026-11-21T23:00:00+03:00";
    EXPECT_EQ(run("next Istanbul").out, "Fajr 06:08 +1, in 7 h 8 min\n");
    run.common = "--lang tr --now 2026-11-22T00:00:00+03:00";
    EXPECT_EQ(run("next Istanbul").out, "İmsak 06:08, kalan 6 sa 8 dk\n");
}

TEST(CliNext, TheSecondOfATimeIsAlreadyTheNextOnes) {
    CliRunner run;
    run.common = "--lang en --now 2026-11-21T12:59:59+03:00";
    EXPECT_EQ(run("next Istanbul").out, "Dhuhr 13:00, in less than a minute\n");
    run.common = "--lang en --now 2026-11-21T13:00:00+03:00";
    EXPECT_EQ(run("next Istanbul").out, "Asr 15:31, in 2 h 31 min\n");
}

TEST(CliNext, MistakesAreToldWithTheFields) {
    CliRunner run;
    const CliResult wrong = run("next Istanbul --format {nome}");
    EXPECT_EQ(wrong.code, 2);
    EXPECT_NE(wrong.err.find("no field \"nome\""), std::string::npos);
    EXPECT_NE(wrong.err.find("{name} {key}"), std::string::npos);
    EXPECT_EQ(run("next Istanbul --follow").code, 2);
    EXPECT_EQ(run("next Istanbul --format \"\"").code, 2);
}

/// What changes a line, seen from 12:00 by a fixed clock.
cli::StatusLine lineAtNoon(const char* pattern) {
    static const cli::Options options;
    static std::ostringstream out;
    static cli::Streams streams{out, out};
    Locations::current().bundle = builtBundle();
    const cli::Context context(options, streams);
    cli::ShownPlace place;
    place.place.latitude = 41.01;
    place.place.longitude = 28.97;
    place.place.clock = almanac::PlaceClock::fixed(3h);
    almanac::Memory memory;
    return nextLine(context, memory, place, NextPattern(pattern),
                    std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + 9h + 20s);
}

TEST(CliNext, TheLineIsMadeAgainAtTheTimeOrAtEachMinute) {
    const Locations before = Locations::current();
    const auto noon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + 9h;
    EXPECT_EQ(lineAtNoon("{time}").nextChange, noon + 1h);
    EXPECT_EQ(lineAtNoon("{minutes}").nextChange, noon + 1min);
    EXPECT_EQ(lineAtNoon("{minutes}").line, "59");
    Locations::current() = before;
}

TEST(CliStatusLine, TheEarliestMomentThatIsStillToCome) {
    const almanac::Instant now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
    EXPECT_EQ(cli::earliestAfter(now, {}), now + 24h);
    EXPECT_EQ(cli::earliestAfter(now, {now, now - 1s}), now + 24h);
    EXPECT_EQ(cli::earliestAfter(now, {now + 5s, now + 3s, now + 9s}), now + 3s);
    EXPECT_EQ(cli::nextMinute(now), now + 1min);
    EXPECT_EQ(cli::nextMinute(now + 59s), now + 1min);
    // The night in which the clock goes forward is an hour shorter.
    const auto berlin = *almanac::PlaceClock::ofZone("Europe/Berlin");
    const almanac::Instant eve = std::chrono::sys_days(std::chrono::year(2027) / 3 / 28) - 1h;
    EXPECT_EQ(cli::nextMidnight(berlin, eve), eve + 23h);
}

} // namespace
} // namespace zorel::test
