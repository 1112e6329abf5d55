// SPDX-License-Identifier: Apache-2.0
// The first page with the real pane: first start, another city, what has been done and how it is undone.
#include "tests/host/PaneScreen.h"

#include <gtest/gtest.h>

namespace zorel {
namespace {

using test::eventually;

class FirstPageTest : public test::PaneScreen {
protected:
    [[nodiscard]] std::string home() const {
        return pane->homeCity() != nullptr ? pane->homeCity()->name : std::string();
    }
};

TEST_F(FirstPageTest, TheFirstStartOffersTheCityOfTheTimeZone) {
    open();
    see("Where do you pray?");
    see("Zorel tells the prayer times of your city and can wake you for them.");
    tapText("İstanbul, Türkiye");
    EXPECT_EQ(home(), "İstanbul");
    see("İstanbul is your home city now");
    see("İstanbul");
    EXPECT_TRUE(eventually([this] { return screen->text("Where do you pray?") == nullptr; }));
    see("Maghrib");
    tapText("Undo");
    see("Where do you pray?");
    EXPECT_TRUE(pane->userCities().empty());
    close();
}

TEST_F(FirstPageTest, TheSearchLeadsBackToTheFirstPageWithAWord) {
    open();
    tapText("Search for another city");
    see("City Search");
    QTest::qWait(300);
    screen->type("ankara");
    screen->key(Qt::Key_Return);
    tapText("Ankara");
    tapText("Add city");
    see("Ankara is your home city now");
    EXPECT_TRUE(eventually([this] { return navigation->topViewController() == pane.get(); }));
    addCity("Konya", "Konya");
    see("Konya is in your list now");
    EXPECT_TRUE(eventually([this] { return navigation->topViewController() == pane.get(); }));
    EXPECT_EQ(home(), "Ankara");
    close();
}

TEST_F(FirstPageTest, ElsewhereTheCityOfTheZoneIsOfferedAndCanBeUndone) {
    open();
    first->useSuggestion();
    close();
    const TimeZoneOverride travelled("Europe/Berlin");
    open();
    see("You seem to be in Berlin. Use it?");
    tapText("Use it");
    EXPECT_EQ(home(), "Berlin");
    EXPECT_EQ(pane->userCities().size(), 2U);
    see("Berlin is your home city now");
    EXPECT_FALSE(first->elsewhere());
    tapText("Undo");
    EXPECT_EQ(home(), "İstanbul");
    EXPECT_EQ(pane->userCities().size(), 1U) << "the list is what it was";
    close();
}

TEST_F(FirstPageTest, WhoDeclinesIsNotAskedAgainForThatZone) {
    open();
    first->useSuggestion();
    close();
    const TimeZoneOverride travelled("Europe/Berlin");
    open();
    tapText("No");
    EXPECT_FALSE(first->elsewhere());
    EXPECT_EQ(home(), "İstanbul");
    close();
    open();
    EXPECT_FALSE(first->elsewhere()) << "remembered";
    close();
    const TimeZoneOverride further("Asia/Tokyo");
    open();
    EXPECT_TRUE(first->elsewhere());
    close();
}

TEST_F(FirstPageTest, AnotherNameOfTheSameZoneIsNotElsewhere) {
    open();
    first->useSuggestion();
    close();
    const TimeZoneOverride same("Turkey");
    open();
    EXPECT_FALSE(first->elsewhere());
    close();
}

TEST_F(FirstPageTest, ATapOnATimeAnswersWhy) {
    open();
    first->useSuggestion();
    tapText("Fajr");
    see("Copy");
    EXPECT_TRUE(first->today()->whyTitle().startsWith("Fajr "));
    screen->key(Qt::Key_Escape);
    EXPECT_EQ(first->today()->why(), "");
    EXPECT_TRUE(eventually([this] { return screen->text("Copy") == nullptr; }));
    close();
}

TEST_F(FirstPageTest, AWideWindowShowsTodayBesideThePane) {
    open({1040, 660});
    first->useSuggestion();
    see("Maghrib");
    QTest::qWait(100);
    const QQuickItem* next = screen->text("Maghrib");
    const QQuickItem* header = screen->showing(pane->cityHeaderView());
    EXPECT_GT(header->mapToScene({0, 0}).x(), next->mapToScene({next->width(), 0}).x());
    EXPECT_LT(header->mapToScene({0, 0}).y(), 200.0);
    window->resize(500, 660);
    EXPECT_TRUE(eventually([&] {
        const QQuickItem* above = screen->text("Maghrib");
        const QQuickItem* below = screen->showing(pane->cityHeaderView());
        return above != nullptr && (below == nullptr || below->mapToScene({0, 0}).y() > 300.0);
    }));
    close();
}

TEST_F(FirstPageTest, ANarrowAndLowWindowBeginsWithToday) {
    open({320, 480}); // much lower than what there is to show
    first->useSuggestion();
    see("Maghrib");
    QTest::qWait(200);
    EXPECT_GT(screen->text("Maghrib")->mapToScene({0, 0}).y(), 50.0);
    close();
}

TEST_F(FirstPageTest, ACityThatTheCatalogueDoesNotHaveShowsNoTimes) {
    open();
    pane->dbFuncs().executeSQL("INSERT INTO USER_CITY (ID,SETASHOME) VALUES (1, 1)");
    pane->loadAllUserCities();
    pane->table().reloadData();
    EXPECT_FALSE(first->today()->known());
    see("The times of 1 cannot be told: the city catalogue does not have it.");
    close();
}

} // namespace
} // namespace zorel
