// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/IcsLines.h"

#include "platform/eventkit/IcsEvent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace zorel {
namespace {

using testing::Optional;

std::string calendarOf(const std::string& body) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//other//EN\r\n" + body + "END:VCALENDAR\r\n";
}

std::string zoneOf(const std::string& lines) {
    return "BEGIN:VTIMEZONE\r\nTZID:Odd\r\nBEGIN:STANDARD\r\n" + lines +
           "TZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
}

std::string eventIn(const std::string& zone) {
    return calendarOf(zone + "BEGIN:VEVENT\r\nUID:one\r\nDTSTAMP:20260301T120000Z\r\n"
                             "DTSTART;TZID=Odd:20260328T043000\r\nEND:VEVENT\r\n");
}

TEST(IcsLines, FoldedLinesBecomeOnePiece) {
    EXPECT_EQ(unfolded("UID:on\r\n e\r\nX:a\n\tb\n\n c"), "UID:one\nX:ab\nc\n");
    EXPECT_EQ(unfolded(""), "");
    EXPECT_EQ(unfolded(" first"), " first\n");
}

TEST(IcsLines, NameAndValueOfALine) {
    const std::string text = "dtstart;TZID=\"a:b\":20260101\nX\n";
    const auto lines = contentLines(text);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].isCalled("DTSTART"));
    EXPECT_FALSE(lines[0].isCalled("DTSTAR"));
    EXPECT_EQ(lines[0].value, "20260101");
    EXPECT_EQ(lines[1].name, "X");
    EXPECT_EQ(lines[1].value, "");
}

TEST(IcsLines, TheOneUidOfAText) {
    EXPECT_THAT(onlyUidOf("BEGIN:VEVENT\r\nUID:zorel-\r\n a-1\r\nEND:VEVENT\r\n"),
                Optional(std::string("zorel-a-1")));
    EXPECT_THAT(onlyUidOf("uid;X-A=\"b:c\":a\\,b\\\\c\n"), Optional(std::string("a,b\\c")));
    EXPECT_THAT(onlyUidOf("UID:a\nUID:a\n"), Optional(std::string("a")));
    EXPECT_EQ(onlyUidOf("UID:a\nUID:b\n"), std::nullopt);
    EXPECT_EQ(onlyUidOf("UID:\nUID:b\n"), std::nullopt);
    EXPECT_EQ(onlyUidOf("SUMMARY:UID:a\nXUID:a\n"), std::nullopt);
}

/// Zones as calendar programs write them.
TEST(IcsLines, UsualZonesAreFit) {
    for (const char* rule :
         {"FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU", "FREQ=YEARLY;BYDAY=1SU;BYMONTH=11;UNTIL=20370101T000000Z",
          "FREQ=YEARLY;BYMONTH=9;BYMONTHDAY=24,25,26,27,28,29,30;BYDAY=SU",
          "freq=yearly;interval=1;bymonth=3;byday=2su;wkst=mo", "FREQ=YEARLY;COUNT=5;BYMONTH=4"}) {
        const std::string text =
            eventIn(zoneOf(std::string("DTSTART:16011028T030000\r\nRRULE:") + rule + "\r\n"));
        EXPECT_TRUE(isFitForParsing(text)) << rule;
        EXPECT_TRUE(eventFromIcs(text)) << rule;
    }
    EXPECT_TRUE(isFitForParsing(eventIn(zoneOf("DTSTART:19700101T000000\r\nRDATE:19960101T000000\r\n"))));
}

/// Each of these would keep a parser busy for minutes, or says what no zone says.
TEST(IcsLines, OddRulesOfZonesAreRefusedAtOnce) {
    const auto before = std::chrono::steady_clock::now();
    for (const char* rule :
         {"FREQ=SECONDLY", "FREQ=MINUTELY;BYMONTH=1", "FREQ=HOURLY", "FREQ=DAILY", "FREQ=WEEKLY",
          "FREQ=MONTHLY", "FREQ=YEARLY;BYSECOND=0,1,2,3", "FREQ=YEARLY;BYHOUR=1", "FREQ=YEARLY;BYMINUTE=1",
          "FREQ=YEARLY;BYYEARDAY=1,2,3", "FREQ=YEARLY;BYWEEKNO=1", "FREQ=YEARLY;BYSETPOS=1",
          "FREQ=YEARLY;BYMONTH=1,2,3", "FREQ=YEARLY;BYDAY=MO,TU", "FREQ=YEARLY;BYMONTHDAY=1,2,3,4,5,6,7,8",
          "FREQ=YEARLY;FREQ=SECONDLY", "FREQ=\"YEARLY\"", "NONSENSE"}) {
        const std::string text =
            eventIn(zoneOf(std::string("DTSTART:00010101T000000\r\nRRULE:") + rule + "\r\n"));
        EXPECT_FALSE(isFitForParsing(text)) << rule;
        EXPECT_FALSE(eventFromIcs(text)) << rule;
        EXPECT_FALSE(isFitForParsing(
            eventIn(zoneOf(std::string("DTSTART:20010101T000000\r\nRRULE;X=\":\":") + rule + "\r\n"))))
            << rule;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1));
}

TEST(IcsLines, OddZonesAreRefused) {
    const std::string yearly = "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\n";
    EXPECT_FALSE(isFitForParsing(eventIn(zoneOf("DTSTART:15821028T030000\r\n" + yearly))));
    EXPECT_TRUE(isFitForParsing(eventIn(zoneOf("DTSTART:15831028T030000\r\n" + yearly))));
    EXPECT_FALSE(isFitForParsing(eventIn(zoneOf("DTSTART:-9991028T030000\r\n"))));
    EXPECT_FALSE(isFitForParsing(eventIn(zoneOf("DTSTART:\r\n"))));
    EXPECT_FALSE(isFitForParsing(eventIn(zoneOf("DTSTART:19700101T000000\r\nEXRULE:FREQ=YEARLY\r\n"))));
    std::string many = "DTSTART:19700101T000000\r\n";
    for (int i = 0; i < 100; ++i) {
        many += yearly;
    }
    EXPECT_TRUE(isFitForParsing(eventIn(zoneOf(many))));
    EXPECT_FALSE(isFitForParsing(eventIn(zoneOf(many + yearly))));
}

TEST(IcsLines, FoldingHidesNothing) {
    EXPECT_FALSE(isFitForParsing(
        eventIn("BEGIN:VTIME\r\n ZONE\r\nTZID:Odd\r\nBEGIN:STANDARD\r\nDTSTART:0001\r\n 0101T000000\r\n"
                "RR\r\n ULE:FREQ=SEC\r\n\tONDLY\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n")));
    std::string deep;
    for (int i = 0; i < 50'000; ++i) {
        deep += "BEG\r\n IN:VEVENT\r\n";
    }
    for (int i = 0; i < 50'000; ++i) {
        deep += "EN\r\n D:VEVENT\r\n";
    }
    EXPECT_FALSE(isFitForParsing(deep));
}

/// Rules of events are not expanded by us, so that they may say anything.
TEST(IcsLines, RulesOfEventsStay) {
    EXPECT_TRUE(isFitForParsing(calendarOf("BEGIN:VEVENT\r\nUID:one\r\nDTSTART:00010101T000000Z\r\n"
                                           "RRULE:FREQ=SECONDLY\r\nEND:VEVENT\r\n")));
}

TEST(IcsLines, TextsThatAreNoneAreRefused) {
    EXPECT_FALSE(isFitForParsing(std::string("BEGIN:VCALENDAR\r\nX:a\0b\r\nEND:VCALENDAR\r\n", 36)));
    EXPECT_FALSE(isFitForParsing("BEGIN:VCALENDAR\rEND:VCALENDAR\r"));
    EXPECT_FALSE(isFitForParsing("BEGIN:VCALENDAR\r\n"));
    EXPECT_FALSE(isFitForParsing("END:VCALENDAR\r\nBEGIN:VCALENDAR\r\n"));
    EXPECT_TRUE(isFitForParsing("BEGIN:VCALENDAR\nEND:VCALENDAR\n"));
}

} // namespace
} // namespace zorel
