// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/IcsEvent.h"
#include "tests/eventkit/SampleEvent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace zorel {
namespace {

using testing::HasSubstr;
using testing::Not;

/// 2026-03-01 12:00:00 UTC.
constexpr Instant kStamp{std::chrono::seconds{1772366400}};

std::string written(const EKEvent& event, const std::string& previous = {}, Instant stamp = kStamp) {
    return icsFromEvent(event, previous, stamp).value_or("");
}

std::string calendarOf(const std::string& body) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//other//EN\r\n" + body + "END:VCALENDAR\r\n";
}

std::string eventOf(const std::string& lines) {
    return "BEGIN:VEVENT\r\nUID:one\r\nDTSTAMP:20260301T120000Z\r\n" + lines + "END:VEVENT\r\n";
}

EKEvent readLines(const std::string& lines) {
    return eventFromIcs(calendarOf(eventOf(lines))).value_or(EKEvent{});
}

long long utcSeconds(Instant instant) {
    return std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
}

TEST(IcsEvent, WritesThePanesEventInFull) {
    EXPECT_EQ(written(sampleEvent("zorel-a-1")), "BEGIN:VCALENDAR\r\n"
                                                 "VERSION:2.0\r\n"
                                                 "PRODID:-//Zorel//Prayer alarms//EN\r\n"
                                                 "NAME:Prayer alarms\r\n"
                                                 "COLOR:teal\r\n"
                                                 "BEGIN:VEVENT\r\n"
                                                 "CREATED:20260301T120000Z\r\n"
                                                 "UID:zorel-a-1\r\n"
                                                 "SUMMARY:Prayer Alarm\r\n"
                                                 "LOCATION:Zorel\r\n"
                                                 "DTSTAMP:20260301T120000Z\r\n"
                                                 "LAST-MODIFIED:20260301T120000Z\r\n"
                                                 "DTSTART:20260328T033000Z\r\n"
                                                 "DTEND:20260328T033100Z\r\n"
                                                 "TRANSP:TRANSPARENT\r\n"
                                                 "SEQUENCE:0\r\n"
                                                 "BEGIN:VALARM\r\n"
                                                 "ACTION:DISPLAY\r\n"
                                                 "DESCRIPTION:Prayer Alarm\r\n"
                                                 "TRIGGER:PT0S\r\n"
                                                 "END:VALARM\r\n"
                                                 "END:VEVENT\r\n"
                                                 "END:VCALENDAR\r\n");
}

TEST(IcsEvent, AnAlarmSaysItsOwnTextElseTheTitle) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.alarms = {{0, "Fajr 06:08, Istanbul"}, {-600, ""}};
    const std::string text = written(event);
    EXPECT_NE(text.find("DESCRIPTION:Fajr 06:08\\, Istanbul\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("DESCRIPTION:Prayer Alarm\r\n"), std::string::npos);
    EXPECT_EQ(eventFromIcs(text).value().alarms, event.alarms);
}

TEST(IcsEvent, FoldsLinesAtSeventyFiveOctetsWithoutCuttingCharacters) {
    EKEvent event = sampleEvent("zorel-a-1");
    for (int count = 0; count < 100; ++count) {
        event.location += "ğ€𝄞";
    }
    const std::string text = written(event);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        ASSERT_FALSE(line.empty());
        EXPECT_EQ(line.back(), '\r');
        EXPECT_LE(line.size(), 76U) << line;
        const std::size_t first = line.front() == ' ' ? 1 : 0;
        EXPECT_NE(static_cast<unsigned char>(line[first]) & 0xC0U, 0x80U) << "a character is cut: " << line;
    }
    EXPECT_EQ(eventFromIcs(text)->location, event.location);
}

TEST(IcsEvent, EscapesTexts) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.title = "a,b;c\\d\ne";
    EXPECT_THAT(written(event), HasSubstr("SUMMARY:a\\,b\\;c\\\\d\\ne\r\n"));
}

TEST(IcsEvent, ATextCannotBringALineOfItsOwn) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.title = "x\r\nATTENDEE:mailto:a@b\r\n";
    event.location = std::string("y\0\x07z", 4);
    const std::string text = written(event);
    EXPECT_THAT(text, Not(HasSubstr("\nATTENDEE")));
    EXPECT_THAT(text, HasSubstr("LOCATION:yz\r\n"));
}

TEST(IcsEvent, RaisesTheSequenceAndKeepsWhatItDoesNotKnow) {
    const std::string previous = calendarOf(
        eventOf("CREATED:20200101T000000Z\r\nSEQUENCE:6\r\nSUMMARY:old\r\nDESCRIPTION:old notes\r\n"
                "DTSTART:20260301T100000Z\r\nDTEND:20260301T100100Z\r\nRRULE:FREQ=DAILY\r\n"
                "CATEGORIES:prayer\r\nX-MOZ-LASTACK:20260301T100001Z\r\n"
                "BEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER:-PT5M\r\nEND:VALARM\r\n"));
    const std::string text = written(sampleEvent("one"), previous);
    EXPECT_THAT(text, HasSubstr("SEQUENCE:7\r\n"));
    EXPECT_THAT(text, HasSubstr("CREATED:20200101T000000Z\r\n"));
    EXPECT_THAT(text, HasSubstr("CATEGORIES:prayer\r\n"));
    EXPECT_THAT(text, HasSubstr("X-MOZ-LASTACK:20260301T100001Z\r\n"));
    EXPECT_THAT(text, Not(HasSubstr("RRULE")));
    EXPECT_THAT(text, Not(HasSubstr("old")));
    EXPECT_THAT(text, Not(HasSubstr("AUDIO")));
    EXPECT_TRUE(sameEvent(*eventFromIcs(text), sampleEvent("one")));
}

TEST(IcsEvent, WritesAllDayEventsAsDates) {
    const TimeZoneOverride zone("Europe/Berlin");
    EKEvent event = sampleEvent("one");
    event.allDay = true;
    event.startDate = instantFromLocal({2026, 3, 28, 0, 0, 0, 0.0});
    event.endDate = instantFromLocal({2026, 3, 29, 0, 0, 0, 0.0});
    const std::string text = written(event);
    EXPECT_THAT(text, HasSubstr("DTSTART;VALUE=DATE:20260328\r\n"));
    EXPECT_THAT(text, HasSubstr("DTEND;VALUE=DATE:20260329\r\n"));
    EXPECT_TRUE(sameEvent(*eventFromIcs(text), event));
}

TEST(IcsEvent, AnAllDayEventEndsOnALaterDate) {
    const TimeZoneOverride zone("Europe/Berlin");
    EKEvent event = sampleEvent("one");
    event.allDay = true;
    event.startDate = instantFromLocal({2026, 12, 31, 0, 0, 0, 0.0});
    event.endDate = event.startDate + std::chrono::hours(1);
    const std::string text = written(event);
    EXPECT_THAT(text, HasSubstr("DTSTART;VALUE=DATE:20261231\r\n"));
    EXPECT_THAT(text, HasSubstr("DTEND;VALUE=DATE:20270101\r\n"));
}

TEST(IcsEvent, RefusesWhatCannotBeWritten) {
    EKEvent event = sampleEvent("one");
    event.recurrenceRules = {"NONSENSE"};
    EXPECT_EQ(icsFromEvent(event, "", kStamp), std::nullopt);
    event = sampleEvent("one");
    event.startDate = Instant::min();
    EXPECT_EQ(icsFromEvent(event, "", kStamp), std::nullopt);
    event.startDate = Instant::max();
    EXPECT_EQ(icsFromEvent(event, "", kStamp), std::nullopt);
}

TEST(IcsEvent, ReadsBackTimesOfFiveCenturies) {
    for (const int year : {1701, 1869, 1901, 1902, 1969, 2038, 2199}) {
        EKEvent event = sampleEvent("one");
        event.startDate = instantFromLocal({year, 12, 30, 18, 38, 50, 0.0});
        event.endDate = event.startDate + std::chrono::minutes(1);
        const auto again = eventFromIcs(written(event));
        ASSERT_TRUE(again) << year;
        EXPECT_TRUE(sameEvent(*again, event)) << year;
    }
}

TEST(IcsEvent, AnAlarmMayLieCenturiesBeforeItsEvent) {
    const EKEvent event =
        readLines("DTSTART:21990328T033000Z\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:x\r\n"
                  "TRIGGER;VALUE=DATE-TIME:17200328T030000Z\r\nEND:VALARM\r\n");
    ASSERT_EQ(event.alarms.size(), 1U);
    EXPECT_EQ(event.alarms[0].relativeOffset, -(1 << 30)); // the longest that an alarm holds
}

TEST(IcsEvent, AnIdentifierOfControlCharactersIsNone) {
    const std::string start = "DTSTART:20260328T033000Z\r\nEND:VEVENT\r\n";
    EXPECT_FALSE(eventFromIcs(calendarOf("BEGIN:VEVENT\r\nUID:\x7f\x7f\r\n" + start)));
    EXPECT_TRUE(eventFromIcs(calendarOf("BEGIN:VEVENT\r\nUID:\x7fx\r\n" + start)));
}

TEST(IcsEvent, RefusesTimesThatImpossibleMonthsLeadFarAway) {
    for (const std::string start : {"20268328T033000Z", "20269999T999999Z"}) {
        EXPECT_FALSE(eventFromIcs(calendarOf(eventOf("DTSTART:" + start + "\r\n")))) << start;
    }
}

TEST(IcsEvent, ReadsTimesInUtc) {
    EXPECT_EQ(utcSeconds(readLines("DTSTART:20260328T033000Z\r\n").startDate), 1774668600);
}

TEST(IcsEvent, ReadsTimesInAZoneOfTheSystem) {
    // 4:30 in Berlin is 3:30 UTC in winter and 2:30 in summer, whatever the zone of the process.
    EXPECT_EQ(utcSeconds(readLines("DTSTART;TZID=Europe/Berlin:20260328T043000\r\n").startDate), 1774668600);
    EXPECT_EQ(utcSeconds(readLines("DTSTART;TZID=Europe/Berlin:20260330T043000\r\n").startDate), 1774837800);
}

TEST(IcsEvent, ReadsTimesInAZoneOfTheFile) {
    const std::string zone =
        "BEGIN:VTIMEZONE\r\nTZID:Plus Four\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
        "TZOFFSETFROM:+0400\r\nTZOFFSETTO:+0400\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    const auto event = eventFromIcs(calendarOf(zone + eventOf("DTSTART;TZID=Plus Four:20260328T073000\r\n")));
    ASSERT_TRUE(event);
    EXPECT_EQ(utcSeconds(event->startDate), 1774668600);
}

TEST(IcsEvent, DoesNotReadATimeInAZoneOfNonsense) {
    const std::string zone =
        "BEGIN:VTIMEZONE\r\nTZID:X\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
        "TZOFFSETFROM:+0000\r\nTZOFFSETTO:+99999999999999\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
    EXPECT_FALSE(eventFromIcs(calendarOf(zone + eventOf("DTSTART;TZID=X:20260328T073000\r\n"))));
}

TEST(IcsEvent, ReadsFloatingTimesOnTheLocalClock) {
    const TimeZoneOverride zone("Pacific/Kiritimati");
    EXPECT_EQ(utcSeconds(readLines("DTSTART:20260328T173000\r\n").startDate), 1774668600);
}

TEST(IcsEvent, TakesTheEndFromADuration) {
    const EKEvent event = readLines("DTSTART:20260328T033000Z\r\nDURATION:PT1M\r\n");
    EXPECT_EQ(event.endDate - event.startDate, std::chrono::minutes{1});
}

TEST(IcsEvent, CountsDisplayAlarmsWithAnyTrigger) {
    const EKEvent event =
        readLines("DTSTART:20260328T033000Z\r\n"
                  "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:a\r\nTRIGGER:-PT15M\r\nEND:VALARM\r\n"
                  "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:b\r\n"
                  "TRIGGER;VALUE=DATE-TIME:20260328T034000Z\r\nEND:VALARM\r\n"
                  "BEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER:PT0S\r\nEND:VALARM\r\n"
                  "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:none\r\nEND:VALARM\r\n");
    EXPECT_THAT(event.alarms, testing::ElementsAre(EKAlarm{-900, "a"}, EKAlarm{600, "b"}));
}

TEST(IcsEvent, OfARepeatedEventWithExceptionsReadsTheEventItself) {
    const std::string exception =
        eventOf("RECURRENCE-ID:20260329T033000Z\r\nDTSTART:20260329T050000Z\r\nSUMMARY:exception\r\n");
    const std::string event = eventOf("DTSTART:20260328T033000Z\r\nRRULE:FREQ=DAILY\r\nSUMMARY:itself\r\n");
    EXPECT_EQ(eventFromIcs(calendarOf(exception + event))->title, "itself");
    EXPECT_EQ(eventFromIcs(calendarOf(event + exception))->title, "itself");
}

/// Texts that are no event of ours; none may be read, or crash.
class BrokenIcs : public testing::TestWithParam<std::string> {};

TEST_P(BrokenIcs, IsNotRead) {
    EXPECT_EQ(eventFromIcs(GetParam()).has_value(), false);
    const auto replacement = eventFromIcs(written(sampleEvent("one"), GetParam()));
    ASSERT_TRUE(replacement) << "but it can be overwritten";
    EXPECT_TRUE(sameEvent(*replacement, sampleEvent("one")));
}

std::string deepText(int depth) {
    std::string text;
    for (int level = 0; level < depth; ++level) {
        text += "BEGIN:VEVENT\r\n";
    }
    return calendarOf(text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BrokenIcs,
    testing::Values("", "\n", "nonsense", "BEGIN:VCALENDAR", "BEGIN:VCALENDAR\r\nEND:VCALENDAR\r\n",
                    std::string(1000, '\0'), "\xFF\xFE\x80garbage",
                    "BEGIN:VEVENT\r\nUID:one\r\nEND:VEVENT\r\n",
                    calendarOf("BEGIN:VEVENT\r\nDTSTART:20260328T033000Z\r\nEND:VEVENT\r\n"),
                    calendarOf(eventOf("SUMMARY:no start\r\n")), calendarOf(eventOf("DTSTART:yesterday\r\n")),
                    calendarOf(eventOf("DTSTART:99991231T235959Z\r\n")),
                    calendarOf(eventOf("DTSTART:00010101T000000Z\r\n")),
                    calendarOf("BEGIN:VTODO\r\nUID:one\r\nEND:VTODO\r\n"), deepText(100'000),
                    calendarOf("END:VEVENT\r\n"), "END:VCALENDAR\r\nBEGIN:VCALENDAR\r\n"));

TEST(IcsEvent, DoesNotReadAFileWithSeveralEvents) {
    const std::string one = "BEGIN:VEVENT\r\nUID:one\r\nDTSTART:20260328T033000Z\r\nEND:VEVENT\r\n";
    const std::string two = "BEGIN:VEVENT\r\nUID:two\r\nDTSTART:20260328T033000Z\r\nEND:VEVENT\r\n";
    EXPECT_TRUE(eventFromIcs(calendarOf(one)));
    EXPECT_FALSE(eventFromIcs(calendarOf(one + two)));
    EXPECT_FALSE(eventFromIcs(calendarOf(one + "BEGIN:VTODO\r\nUID:one\r\nEND:VTODO\r\n")));
}

TEST(IcsEvent, NoTextThatIsCutOffIsRead) {
    EKEvent event = sampleEvent("zorel-a-1");
    event.recurrenceRules = {"FREQ=WEEKLY;BYDAY=MO,TU"};
    const std::string whole = written(event);
    const std::size_t lastLine = whole.rfind("END:VCALENDAR");
    for (std::size_t length = 0; length <= lastLine; ++length) {
        EXPECT_FALSE(eventFromIcs(whole.substr(0, length))) << length;
    }
    EXPECT_TRUE(sameEvent(*eventFromIcs(whole), event));
}

} // namespace
} // namespace zorel
