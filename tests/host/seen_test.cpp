// SPDX-License-Identifier: Apache-2.0
// Whether everybody can see and hit what the window shows, measured from its pictures.
#include "tests/host/PaneScreen.h"

#include "host/Contrast.h"

#include <QAccessible>
#include <QMap>
#include <gtest/gtest.h>

namespace zorel {
namespace {

using test::eventually;

/// The highest contrast that occurs within a rectangle of a picture against its most frequent colour.
double contrastWithin(const QImage& picture, const QRect& place) {
    QMap<QRgb, int> counts;
    const QRect box = place.intersected(picture.rect());
    for (int y = box.top(); y <= box.bottom(); ++y) {
        for (int x = box.left(); x <= box.right(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    QRgb ground = 0;
    int most = 0;
    for (auto color = counts.begin(); color != counts.end(); ++color) {
        if (color.value() > most) {
            most = color.value();
            ground = color.key();
        }
    }
    double best = 1.0;
    for (auto color = counts.begin(); color != counts.end(); ++color) {
        best = std::max(best, contrastOf(QColor(color.key()), QColor(ground)));
    }
    return best;
}

class Seen : public test::PaneScreen {
protected:
    using Look = std::function<void(QQuickItem&, const QRect&)>;

    /// Visits every item that is wholly on show and not behind a sheet, with its rectangle in the window.
    void visit(QQuickItem& item, const QRectF& shown, const Look& look) const {
        if (!item.isVisible() || !item.isEnabled() || item.opacity() < 0.99) {
            return;
        }
        const QRectF place = item.mapRectToScene(QRectF(0.0, 0.0, item.width(), item.height()));
        const QQuickItem* message = messageBar();
        const bool covered = message != nullptr && message != &item && !message->isAncestorOf(&item) &&
                             message->mapRectToScene(QRectF({}, message->size())).intersects(place);
        if (shown.contains(place) && !place.isEmpty() && !covered) {
            look(item, place.toAlignedRect());
        }
        for (QQuickItem* child : item.childItems()) {
            visit(*child, item.clip() ? shown.intersected(place) : shown, look);
        }
    }
    /// A message lies over what is below it for some seconds.
    [[nodiscard]] const QQuickItem* messageBar() const {
        return screen->find([](QQuickItem& item) {
            return QByteArray(item.metaObject()->className()).startsWith("MessageBar") && item.isVisible();
        });
    }
    void visitAll(const Look& look) const { visit(*window->rootObject(), QRectF({}, window->size()), look); }
    void expectContrast(const char* where) {
        const QImage picture = screen->picture();
        visitAll([&](QQuickItem& item, const QRect& place) {
            const QByteArray name = item.metaObject()->className();
            const bool isText = name.startsWith("QQuickText") &&
                                !item.property("text").toString().isEmpty() &&
                                !name.startsWith("QQuickTextInput");
            const bool isDrawn =
                name.contains("ViewItem") && item.property("handle").value<ViewHandle*>() != nullptr;
            const bool isSwitch = name.startsWith("Toggle");
            if (isText || isDrawn || isSwitch) {
                const double least = isText ? textContrast : controlContrast;
                EXPECT_GE(contrastWithin(picture, place), least)
                    << where << ": " << name.constData() << " "
                    << item.property("text").toString().toStdString();
                ++measured;
            }
        });
    }
    void expectTargets(const char* where) {
        visitAll([&](QQuickItem& item, const QRect& place) {
            if (item.metaObject()->indexOfSignal("activated()") >= 0) { // Press.qml
                const std::string name = item.property("name").toString().toStdString();
                EXPECT_GE(place.height(), 44) << where << ": " << name;
                EXPECT_GE(place.width(), 44) << where << ": " << name;
                ++targets;
            }
        });
    }
    void look(const char* where) {
        for (const bool dark : {false, true}) {
            host->setDark(dark);
            QTest::qWait(400);
            expectContrast(where);
            expectTargets(where);
        }
    }

    double textContrast = kTextContrast;
    double controlContrast = kControlContrast;
    int measured = 0;
    int targets = 0;
};

TEST_F(Seen, TextsAndControlsOfEveryScreenInLightAndDark) {
    open();
    look("first start");
    first->useSuggestion();
    QTest::qWait(200);
    look("today with a message");
    first->undo();
    first->useSuggestion();
    first->today()->ask("fajr");
    look("why");
    first->today()->dismiss();
    host->setEditing(true);
    look("edit");
    host->setEditing(false);
    first->openSearch();
    see("City Search");
    pane->addCityView().searchBar().setText("medina");
    pane->addCityView().searchBar().userTapsSearch();
    look("search");
    host->back();
    pane->table().userSelectsRow({1, 0});
    look("alarm that is off");
    pane->alarmView().alarmEnabled().userToggles();
    look("alarm");
    EXPECT_GT(measured, 200);
    EXPECT_GT(targets, 40);
    close();
}

TEST_F(Seen, WhoAsksTheDesktopForContrastGetsMore) {
    open({390, 1500});
    first->useSuggestion();
    first->alarms()->toggle(4);
    host->desktop().take("org.freedesktop.appearance", "contrast", QDBusVariant(1U));
    textContrast = 7.0; // success criterion 1.4.6
    controlContrast = 4.5;
    look("today");
    EXPECT_GT(measured, 50);
    close();
}

TEST_F(Seen, TheSmallButtonsOfTheRowsAreHitWithin44Points) {
    open({390, 900});
    first->useSuggestion();
    addCity("Konya", "Konya");
    ASSERT_TRUE(eventually([this] { return navigation->topViewController() == pane.get(); }));
    QTest::qWait(500);
    const QQuickItem* button = homeButton(1);
    ASSERT_NE(button, nullptr);
    screen->tap(test::Screen::centre(*button) + QPoint(0, 20));
    EXPECT_EQ(pane->homeCity()->name, "Konya") << "20 points below the middle of a button of 30";
    close();
}

TEST_F(Seen, DoubledTextKeepsEverythingInTheWindow) {
    open();
    first->useSuggestion();
    close();
    host = std::make_unique<Host>();
    host->setTextScale(2.0);
    host->setScreenSize(195, 390);
    pane = std::make_unique<ZorelSettingsController>();
    navigation = std::make_unique<UINavigationController>(*pane);
    host->show(*navigation);
    first = std::make_unique<FirstPage>(*host, *pane, true);
    host->setFirstPage(first.get());
    window = std::make_unique<Window>(*host, QSize(390, 780));
    screen = std::make_unique<test::Screen>(*window);
    window->show();
    see("Next prayer");
    QTest::qWait(200);
    std::function<void(QQuickItem&)> check = [&](QQuickItem& item) {
        if (!item.isVisible()) {
            return;
        }
        if (QByteArray(item.metaObject()->className()).startsWith("QQuickText") &&
            !item.property("text").toString().isEmpty()) {
            const QRectF place = item.mapRectToScene(QRectF(0.0, 0.0, item.width(), item.height()));
            EXPECT_GE(place.left(), -0.5) << item.property("text").toString().toStdString();
            EXPECT_LE(place.right(), 390.5) << item.property("text").toString().toStdString();
        }
        for (QQuickItem* child : item.childItems()) {
            check(*child);
        }
    };
    check(*window->rootObject());
    close();
}

} // namespace
} // namespace zorel
