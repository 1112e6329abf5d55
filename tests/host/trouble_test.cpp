// SPDX-License-Identifier: Apache-2.0
// Busy, unreadable and empty look different, and nothing is shown that could not be read.
#include "tests/host/PaneScreen.h"

#include "platform/foundation/FileLock.h"

#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using test::eventually;

class TroubleTest : public test::PaneScreen {
protected:
    [[nodiscard]] QString database() const { return QString::fromStdString(pane->dbFuncs().userDBPath()); }
    /// A copy of what the programs bring along, but for the catalogue.
    [[nodiscard]] QString bundleWithoutCatalogue() const {
        const QDir bundle(QString::fromStdString(Locations::current().bundle));
        const QString copy = folder.filePath("bundle");
        EXPECT_TRUE(QDir().mkpath(copy));
        for (const QString& name : bundle.entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            if (name != "database") {
                EXPECT_TRUE(QFile::link(bundle.filePath(name), copy + '/' + name));
            }
        }
        return copy;
    }
    void readAgain() const { first->readAgain(); }
};

TEST_F(TroubleTest, AnEmptyListAsksWhereThePersonPrays) {
    open();
    see("Where do you pray?");
    see("No city added yet");
    EXPECT_EQ(first->listTrouble(), "");
    close();
}

TEST_F(TroubleTest, ABusyListSaysSoAndComesBackByItself) {
    open();
    first->useSuggestion();
    {
        const FileLock other(pane->dbFuncs().userDBPath() + ".lock", LockKind::exclusive);
        ASSERT_EQ(other.state(), LockState::acquired);
        readAgain();
        see("Another program is at work on your cities. They will be here in a moment.");
        EXPECT_FALSE(first->today()->known()) << "no times of a city that could not be read";
        EXPECT_FALSE(first->beginning()) << "nobody is asked as if there were no city";
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return first->today()->known(); }, 20'000));
    EXPECT_EQ(first->listTrouble(), "");
    close();
}

TEST_F(TroubleTest, AnUnreadableListSaysSoAndAsksForNothing) {
    open();
    first->useSuggestion();
    const QByteArray kept = [this] {
        QFile file(database());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }();
    const auto write = [this](const QByteArray& bytes) {
        QFile file(database());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    };
    write(QByteArray(5000, 'x'));
    readAgain();
    see("Your cities and alarms cannot be read, so no times are shown. Nothing was changed.");
    EXPECT_FALSE(first->today()->known());
    EXPECT_EQ(screen->text("Where do you pray?"), nullptr);
    write(kept);
    tapText("Try again");
    EXPECT_TRUE(eventually([this] { return first->today()->known(); }));
    EXPECT_EQ(first->listTrouble(), "");
    close();
}

TEST_F(TroubleTest, AMissingCatalogueShowsNoTimes) {
    open();
    first->useSuggestion();
    close();
    Locations::current().bundle = bundleWithoutCatalogue().toStdString();
    open();
    EXPECT_FALSE(first->today()->known());
    EXPECT_TRUE(first->unknownHome().endsWith("the city catalogue cannot be read."))
        << first->unknownHome().toStdString();
    see(first->unknownHome());
    const QSignalSpy said(host.get(), &Host::announced);
    first->openSearch();
    see("City Search");
    pane->addCityView().searchBar().setText("medina");
    pane->addCityView().searchBar().userTapsSearch();
    see("The city catalogue cannot be read.");
    EXPECT_EQ(screen->text("Nothing found"), nullptr) << "what cannot be read is not empty";
    EXPECT_EQ(said.last().first().toString(), "The city catalogue cannot be read.");
    close();
}

TEST_F(TroubleTest, AHomeCityThatCannotBeStoredStaysAndTheReasonStandsBelow) {
    open({390, 1600});
    first->useSuggestion();
    addCity("Konya", "Konya");
    ASSERT_TRUE(eventually([this] { return navigation->topViewController() == pane.get(); }));
    first->alarms()->toggle(4);
    const QSignalSpy said(host.get(), &Host::announced);
    QTest::qWait(300);
    ASSERT_NE(homeButton(1), nullptr);
    // An alarm that is on cannot follow where the calendar is no folder.
    ASSERT_TRUE(QDir(folder.filePath("calendar")).removeRecursively());
    QFile inTheWay(folder.filePath("calendar"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    screen->tap(*homeButton(1));
    ASSERT_NE(pane->homeCity(), nullptr);
    EXPECT_EQ(pane->homeCity()->name, "İstanbul");
    const QString reason = QString::fromStdString(pane->titleForFooterInSection(pane->table(), 0));
    EXPECT_FALSE(reason.isEmpty());
    see(reason);
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.last().first().toString(), reason) << "and is told to a screen reader";
    close();
}

TEST_F(TroubleTest, TheSearchTellsHowManyItFound) {
    open();
    tapAdd();
    see("City Search");
    QTest::qWait(300);
    const QSignalSpy said(host.get(), &Host::announced);
    screen->type("me");
    EXPECT_TRUE(eventually([&] { return !said.empty(); }));
    EXPECT_EQ(said.last().first().toString(), "three letters, please");
    screen->type("dina");
    EXPECT_TRUE(eventually([&] {
        return said.last().first().toString() ==
               QString("%1 places found").arg(pane->addCityView().searchCityList().size());
    })) << said.last().first().toString().toStdString()
        << " for " << pane->addCityView().searchBar().text();
    close();
}

} // namespace
} // namespace zorel
