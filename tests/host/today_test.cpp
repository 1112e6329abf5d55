// SPDX-License-Identifier: Apache-2.0
#include "host/TodayModel.h"

#include "platform/foundation/Clock.h"
#include "words/Language.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using namespace std::chrono_literals;

class TodayTest : public testing::Test {
protected:
    static almanac::Place istanbul() {
        return {.name = "Istanbul",
                .latitude = 41.01384,
                .longitude = 28.94966,
                .clock = almanac::PlaceClock::ofZone("Europe/Istanbul").value()};
    }
    static TodayTexts texts(bool turkish, const QLocale& locale) {
        useLanguages({turkish ? "tr" : "en"});
        return {Words(),
                [](almanac::Prayer prayer) {
                    return QString::fromStdString(std::string(almanac::keyOf(prayer)));
                },
                locale};
    }
    /// Local time of Istanbul on 22 November 2026.
    void set(std::chrono::seconds timeOfDay, std::chrono::days later = std::chrono::days(0)) {
        present = std::chrono::sys_days(std::chrono::year(2026) / 11 / 22) + later + timeOfDay - 3h;
    }
    [[nodiscard]] QStringList states(const TodayModel& today) const {
        QStringList list;
        for (const QVariant& entry : today.six()) {
            list << entry.toMap()["state"].toString();
        }
        return list;
    }

    Instant present{};
    ClockOverride clock{[this] { return present; }};
    QLocale german{QLocale::German};
};

TEST_F(TodayTest, TellsTheNextPrayerTheSixTimesAndTheDate) {
    set(13h + 42min);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    EXPECT_EQ(today.nextName(), "asr");
    EXPECT_EQ(today.nextTime(), "15:30");
    EXPECT_EQ(today.nextDay(), "");
    EXPECT_EQ(today.countdown(), "in 1 h 48 min");
    EXPECT_EQ(today.date(), "Sunday, 22 November 2026");
    EXPECT_EQ(today.hijri(), "13 Jumada II 1448");
    EXPECT_EQ(states(today), (QStringList{"passed", "passed", "now", "next", "later", "later"}));
    EXPECT_NEAR(today.nowPart(), (13.0 * 60.0 + 42.0) / 1440.0, 1e-9);
    EXPECT_EQ(today.bar().size(), 4);
    EXPECT_EQ(today.others().size(), 8);
    EXPECT_EQ(today.moon()["detail"].toString(), "full in 2 days");
    EXPECT_EQ(today.qibla()["text"].toString(), "Qibla 152°");
}

TEST_F(TodayTest, SunriseIsNextButNoPrayer) {
    set(7h);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    EXPECT_EQ(today.nextName(), "sunrise");
    EXPECT_EQ(today.nextLabel(), "Next");
    set(13h);
    today.tick();
    EXPECT_EQ(today.nextLabel(), "Next prayer");
}

TEST_F(TodayTest, CountsSecondsInTheLastMinuteAndGoesOnToTheNextPrayer) {
    set(15h + 29min + 18s);
    TodayModel today(texts(true, german));
    today.setPlace(istanbul());
    EXPECT_EQ(today.countdown(), "42 sn sonra");
    QSignalSpy times(&today, &TodayModel::timesChanged);
    set(15h + 29min + 59s);
    today.tick();
    EXPECT_EQ(times.size(), 0) << "the times stay";
    EXPECT_EQ(today.countdown(), "1 sn sonra");
    set(15h + 30min);
    today.tick();
    EXPECT_EQ(times.size(), 1);
    EXPECT_EQ(today.nextName(), "maghrib");
    EXPECT_EQ(states(today), (QStringList{"passed", "passed", "passed", "now", "next", "later"}));
}

TEST_F(TodayTest, AfterTheLastPrayerTheNextIsThatOfTomorrow) {
    set(22h);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    EXPECT_EQ(today.nextName(), "fajr");
    EXPECT_EQ(today.nextDay(), "tomorrow");
    EXPECT_EQ(states(today).last(), "now");
}

TEST_F(TodayTest, TheDayChangesAtMidnightOfThePlace) {
    const TimeZoneOverride elsewhere("America/New_York");
    set(23h + 59min + 30s);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    QSignalSpy days(&today, &TodayModel::dayChanged);
    today.tick();
    EXPECT_EQ(days.size(), 0);
    set(0h, std::chrono::days(1));
    today.tick();
    EXPECT_EQ(days.size(), 1);
    EXPECT_EQ(today.date(), "Monday, 23 November 2026");
    EXPECT_EQ(today.nowPart(), 0.0);
    EXPECT_EQ(today.nextDay(), "");
}

TEST_F(TodayTest, WakesAtTheMinuteAndEverySecondOfTheLastOne) {
    set(13h + 42min + 15s);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    QSignalSpy ticks(&today, &TodayModel::ticked);
    QTest::qWait(1500);
    EXPECT_EQ(ticks.size(), 0) << "no work while nothing changes";
    set(15h + 29min + 30s);
    today.tick();
    ticks.clear();
    QTest::qWait(1500);
    EXPECT_GE(ticks.size(), 1);
}

TEST_F(TodayTest, FollowsTheClockOfTheLocale) {
    set(13h + 42min);
    TodayModel american(texts(false, QLocale("en_US")));
    american.setPlace(istanbul());
    EXPECT_EQ(american.nextTime(), "3:30 PM");
    EXPECT_EQ(american.date(), "Sunday, November 22, 2026");
    TodayModel turkish(texts(true, QLocale("tr_TR")));
    turkish.setPlace(istanbul());
    EXPECT_EQ(turkish.nextTime(), "15:30");
    EXPECT_EQ(turkish.date(), "22 Kasım 2026 Pazar");
    EXPECT_EQ(turkish.hijri(), "13 Cemaziyelahir 1448");
}

TEST_F(TodayTest, SaysWhyATimeIsWhatItIs) {
    set(13h + 42min);
    TodayModel today(texts(false, german));
    today.setPlace(istanbul());
    today.ask("fajr");
    EXPECT_EQ(today.whyTitle(), "fajr 06:08");
    EXPECT_TRUE(today.why().contains("The Sun stands 19° below the horizon.")) << today.why().toStdString();
    EXPECT_TRUE(today.why().contains("shown as 06:08, the minute before")) << today.why().toStdString();
    today.copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("Istanbul, fajr 06:08\n"));
    today.ask("next");
    EXPECT_TRUE(today.why().contains("by the length of what casts it")) << today.why().toStdString();
    EXPECT_TRUE(today.why().contains("shown as 15:30, the next minute")) << today.why().toStdString();
    today.ask("maghrib");
    EXPECT_TRUE(today.why().startsWith("The Sun sets.")) << today.why().toStdString();
    today.ask("dhuhr");
    EXPECT_TRUE(today.why().startsWith("The Sun stands highest.")) << today.why().toStdString();
    today.ask("no such prayer");
    EXPECT_EQ(today.whyTitle(), "dhuhr 13:00") << "what is not asked changes nothing";
    today.dismiss();
    EXPECT_EQ(today.why(), "");
}

TEST_F(TodayTest, SaysWhatIsUnusualInTheFarNorth) {
    present = std::chrono::sys_days(std::chrono::year(2026) / 6 / 21) + 9h;
    TodayModel today(texts(false, german));
    today.setPlace(almanac::Place{.name = "Tromsø",
                                  .latitude = 69.6489,
                                  .longitude = 18.95508,
                                  .clock = almanac::PlaceClock::ofZone("Europe/Oslo").value()});
    today.ask("maghrib");
    EXPECT_TRUE(today.why().contains("does not rise or set there that day")) << today.why().toStdString();
}

TEST_F(TodayTest, WithoutAPlaceThereAreNoTimes) {
    TodayModel today(texts(false, german));
    EXPECT_FALSE(today.known());
    EXPECT_EQ(today.nextTime(), "");
    EXPECT_EQ(today.countdown(), "");
    EXPECT_TRUE(today.six().empty());
    EXPECT_TRUE(today.bar().empty());
    today.ask("fajr");
    EXPECT_EQ(today.why(), "");
    set(13h);
    today.setPlace(istanbul());
    today.setPlace(std::nullopt);
    EXPECT_EQ(today.nextTime(), "");
    EXPECT_TRUE(today.six().empty());
    EXPECT_EQ(today.date(), "");
}

} // namespace
} // namespace zorel
