// SPDX-License-Identifier: Apache-2.0
#include "tests/host/Reader.h"
#include "tests/host/Screen.h"
#include "tests/host/TestPane.h"

#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIScreen.h"
#include "words/Language.h"

#include <gtest/gtest.h>

#include <set>

namespace zorel {
namespace {

using test::eventually;

class WindowTest : public testing::Test {
protected:
    WindowTest() {
        host.show(navigation);
        window = std::make_unique<Window>(host, QSize(390, 780));
        screen = std::make_unique<test::Screen>(*window);
        window->show();
        window->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        EXPECT_TRUE(eventually([this] { return screen->text("Gamma") != nullptr; }));
    }
    void reveal(const QString& text) {
        ASSERT_TRUE(eventually([&] { return screen->text(text) != nullptr; })) << text.toStdString();
    }

    Host host;
    test::TestPane pane;
    UINavigationController navigation{pane};
    std::unique_ptr<Window> window;
    std::unique_ptr<test::Screen> screen;
};

TEST_F(WindowTest, ShowsHeadersRowsControlsAndFooter) {
    for (const char* text : {"Pane", "Alpha", "Beta", "Controls", "Flag", "Open", "Row 4",
                             "A footer that says how it all works."}) {
        EXPECT_NE(screen->text(text), nullptr) << text;
    }
    EXPECT_NE(screen->showing(pane.header), nullptr);
    std::set<QRgb> colours;
    const QImage picture = screen->picture();
    for (int y = 0; y < picture.height(); y += 3) {
        for (int x = 0; x < picture.width(); x += 3) {
            colours.insert(picture.pixel(x, y));
        }
    }
    EXPECT_GT(colours.size(), 20U) << "text and controls are drawn";
}

TEST_F(WindowTest, ATapReachesTheDrawnControlInARow) {
    auto* counter =
        static_cast<test::TapCounter*>(pane.table().cellForRowAtIndexPath({0, 1})->accessoryView());
    screen->tap(*screen->showing(*counter));
    EXPECT_EQ(counter->taps, 1);
}

TEST_F(WindowTest, ASwitchFlipsAndFollowsTheProgram) {
    screen->tap(*screen->showing(pane.flag));
    EXPECT_TRUE(pane.flag.isOn());
    EXPECT_EQ(pane.flips, 1);
    pane.flag.setOn(false);
    EXPECT_FALSE(screen->showing(pane.flag)->property("on").toBool());
}

TEST_F(WindowTest, ARowOpensAScreenAndTheBackButtonLeavesIt) {
    screen->tap(*screen->text("Open"));
    ASSERT_TRUE(eventually([this] { return screen->showing(pane.searchBar) != nullptr; }));
    EXPECT_EQ(navigation.topViewController(), &pane.second);
    EXPECT_NE(screen->text("Second"), nullptr);
    reveal("All");
    QTest::qWait(300);
    EXPECT_EQ(screen->text("Alpha"), nullptr) << "the screen below is covered";
    screen->tap(*screen->text("All"));
    EXPECT_EQ(navigation.topViewController(), &pane);
    reveal("Alpha");
}

TEST_F(WindowTest, TypingGoesToTheSearchBar) {
    struct Searcher : UISearchBarDelegate {
        int searches = 0;
        void searchBarSearchButtonClicked(UISearchBar& bar) override {
            ++searches;
            bar.resignFirstResponder();
        }
    } searcher;
    pane.searchBar.setDelegate(&searcher);
    navigation.pushViewController(pane.second, false);
    ASSERT_TRUE(eventually([this] { return screen->showing(pane.searchBar) != nullptr; }));
    screen->type("Köln");
    EXPECT_EQ(pane.searchBar.text(), "Köln");
    screen->key(Qt::Key_Return);
    EXPECT_EQ(searcher.searches, 1);
    pane.searchBar.setDelegate(nullptr);
}

TEST_F(WindowTest, ASidewaysDragUncoversDeleteAlsoFromAControl) {
    auto* counter =
        static_cast<test::TapCounter*>(pane.table().cellForRowAtIndexPath({0, 0})->accessoryView());
    screen->drag(test::Screen::centre(*screen->showing(*counter)), {-160, 0});
    EXPECT_EQ(counter->taps, 0) << "a drag is no tap";
    reveal("Delete");
    QTest::qWait(250);
    screen->tap(*screen->text("Delete"));
    reveal("Undo");
    EXPECT_EQ(pane.names.size(), 3U) << "there is time to undo it";
    host.finish();
    EXPECT_EQ(pane.names, (std::vector<std::string>{"Beta", "Gamma"}));
    EXPECT_TRUE(eventually([this] { return screen->text("Alpha") == nullptr; }));
}

TEST_F(WindowTest, ADeletionCanBeUndoneAndAnotherOneConfirmsIt) {
    host.setEditing(true);
    QTest::qWait(100);
    auto* model = qvariant_cast<QObject*>(host.handle(&pane.table())->property("model"));
    QMetaObject::invokeMethod(model, "remove", Q_ARG(int, 0), Q_ARG(int, 0));
    reveal("Undo");
    QTest::qWait(100);
    screen->tap(*screen->text("Undo"));
    host.finish();
    EXPECT_EQ(pane.names.size(), 3U);
    QMetaObject::invokeMethod(model, "remove", Q_ARG(int, 0), Q_ARG(int, 0));
    QMetaObject::invokeMethod(model, "remove", Q_ARG(int, 0), Q_ARG(int, 2));
    EXPECT_EQ(pane.names, (std::vector<std::string>{"Beta", "Gamma"}));
    host.finish();
    EXPECT_EQ(pane.names, std::vector<std::string>{"Beta"}) << "the row that was meant, though it moved up";
}

TEST_F(WindowTest, AReloadFromElsewhereKeepsWhatWasAboutToBeDeleted) {
    auto* model = qvariant_cast<QObject*>(host.handle(&pane.table())->property("model"));
    QMetaObject::invokeMethod(model, "remove", Q_ARG(int, 0), Q_ARG(int, 1));
    pane.names.insert(pane.names.begin(), "New");
    pane.table().reloadData();
    host.finish();
    EXPECT_EQ(pane.names.size(), 4U);
}

TEST_F(WindowTest, AWheelTurnsToItsEndsByPagesAndToWhatIsTyped) {
    screen->key(Qt::Key_Tab);
    for (int step = 0; step < 4; ++step) {
        screen->key(Qt::Key_Down);
    }
    screen->key(Qt::Key_Home);
    EXPECT_EQ(pane.picked, 0);
    screen->key(Qt::Key_PageDown);
    EXPECT_EQ(pane.picked, 9) << "ten on, or to the last";
    screen->key(Qt::Key_Home);
    screen->key(Qt::Key_End);
    EXPECT_EQ(pane.picked, 9);
    screen->type("r");
    EXPECT_EQ(pane.picked, 0) << "the next row that begins so";
    screen->type("x");
    EXPECT_EQ(pane.picked, 0);
}

TEST_F(WindowTest, TheKeyboardReachesEverything) {
    screen->key(Qt::Key_Tab);
    screen->key(Qt::Key_Down);
    screen->key(Qt::Key_Space);
    int taps = 0;
    for (int row = 0; row < 3; ++row) {
        auto* view = pane.table().cellForRowAtIndexPath({0, row})->accessoryView();
        taps += static_cast<test::TapCounter*>(view)->taps;
    }
    EXPECT_EQ(taps, 1) << "Space operates the control of the current row";
    for (int step = 0; step < 8; ++step) {
        screen->key(Qt::Key_Down);
    }
    screen->key(Qt::Key_Return);
    EXPECT_EQ(navigation.topViewController(), &pane.second);
    screen->key(Qt::Key_Escape);
    EXPECT_EQ(navigation.topViewController(), &pane);
}

TEST_F(WindowTest, AWheelTurnsByKeyboardAndFollowsTheProgram) {
    auto* wheel = screen->showing(pane.wheel);
    ASSERT_NE(wheel, nullptr);
    pane.wheel.selectRow(8, false);
    EXPECT_TRUE(eventually([this] { return screen->text("Row 8") != nullptr; }));
    screen->key(Qt::Key_Tab);
    for (int step = 0; step < 4; ++step) {
        screen->key(Qt::Key_Down);
    }
    screen->key(Qt::Key_Right);
    EXPECT_EQ(pane.picked, 9);
}

TEST_F(WindowTest, ANotchOfTheMousesWheelTurnsAWheelByOneRow) {
    auto* wheel = screen->showing(pane.wheel);
    ASSERT_NE(wheel, nullptr);
    screen->notches(*wheel, 1);
    EXPECT_EQ(pane.picked, 5) << "at once, so that nothing is lost when the screen is left";
    screen->notches(*wheel, -3);
    EXPECT_EQ(pane.picked, 2);
    screen->notches(*wheel, -5);
    EXPECT_EQ(pane.picked, 0);
}

TEST_F(WindowTest, ADragOnAWheelTurnsItAndLeavesTheTableAlone) {
    auto* wheel = screen->showing(pane.wheel);
    ASSERT_NE(wheel, nullptr);
    const QPoint centre = test::Screen::centre(*wheel);
    screen->drag(centre, {0, -60});
    EXPECT_TRUE(eventually([this] { return pane.picked > 4; }));
    EXPECT_EQ(test::Screen::centre(*wheel), centre);
}

TEST_F(WindowTest, TheMousesWheelThatScrollsTheTableLeavesTheWheelsAlone) {
    window->resize(390, 400);
    ASSERT_TRUE(eventually([this] { return window->rootObject()->height() == 400; }));
    screen->notches(*screen->text("Beta"), 1);
    screen->notches(*screen->showing(pane.wheel), 1);
    EXPECT_EQ(pane.picked, -1);
}

TEST_F(WindowTest, TheRightButtonUncoversDeleteAndEscapeTakesItBack) {
    screen->rightTap(*screen->text("Beta"));
    reveal("Delete");
    screen->key(Qt::Key_Escape);
    EXPECT_TRUE(eventually([this] { return screen->text("Delete") == nullptr; }));
    EXPECT_EQ(pane.names.size(), 3U);
}

TEST_F(WindowTest, ASecondTextThatIsTooLongStandsBelowInFull) {
    const QQuickItem* label = screen->text("Open");
    const double narrow = label->mapToScene({0, 0}).y();
    pane.detail = "13:00";
    pane.table().reloadData();
    reveal("13:00");
    EXPECT_LT(std::abs(screen->text("13:00")->mapToScene({0, 0}).y() - narrow), 10.0) << "beside the first";
    pane.detail = "13:41 · Alarm 13:40 · computed for a lower latitude than that of the city";
    pane.table().reloadData();
    const QString all = QString::fromStdString(pane.detail);
    reveal(all);
    const QQuickItem* detail = screen->text(all);
    label = screen->text("Open");
    EXPECT_FALSE(detail->property("truncated").toBool());
    EXPECT_GE(detail->mapToScene({0, 0}).y(), label->mapToScene({0, label->height()}).y());
    EXPECT_GT(detail->property("lineCount").toInt(), 1);
    EXPECT_LE(detail->mapToScene({detail->width(), 0}).x(), 390.0 - 32.0);
}

TEST_F(WindowTest, AfterASheetTheKeyboardIsBackWhereItWas) {
    navigation.pushViewController(pane.second, false);
    ASSERT_TRUE(eventually([this] { return screen->showing(pane.searchBar) != nullptr; }));
    screen->type("Kö");
    UIActionSheet sheet("", nullptr, "Cancel", {"Do it"});
    sheet.showInView(pane.secondView);
    screen->type("x");
    EXPECT_EQ(pane.searchBar.text(), "Kö") << "what lies below the sheet is out of reach";
    screen->key(Qt::Key_Escape);
    screen->type("ln");
    EXPECT_EQ(pane.searchBar.text(), "Köln");
}

TEST_F(WindowTest, AScreenReaderIsToldWhatEachRowIsAndWhereTheKeyboardIs) {
    pane.wheel.setAccessibilityLabel("Number");
    pane.flag.setOn(true);
    screen->key(Qt::Key_Tab);
    for (int step = 0; step < 4; ++step) {
        screen->key(Qt::Key_Down);
    }
    const test::Reader reader(*window);
    for (const char* line : {"heading: Pane", "list: Pane", "radio button: Alpha", "heading: Controls",
                             "check box: Flag, checked", "combo box: Number, Row 4, focused", "item: Open",
                             "other: A footer that says how it all works."}) {
        EXPECT_TRUE(reader.says(line)) << line << " among\n" << reader.lines().join('\n').toStdString();
    }
    EXPECT_EQ(reader.lines().filter("focused").size(), 1);
}

TEST_F(WindowTest, MayBeClosedWhileRowsAreReplaced) {
    pane.table().reloadData();
    reveal("Alpha");
    screen.reset();
    window.reset();
    EXPECT_EQ(QGuiApplication::allWindows().size(), 0);
}

TEST_F(WindowTest, ControlQClosesTheWindow) {
    screen->key(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(WindowTest, AnActionSheetAnswersAndCancels) {
    struct Answer : UIActionSheetDelegate {
        std::vector<int> indices;
        void clickedButtonAtIndex(UIActionSheet& /*sheet*/, int index) override { indices.push_back(index); }
    } answer;
    UIActionSheet sheet("", &answer, "Cancel", {"Do it"});
    sheet.showInView(pane.table());
    reveal("Do it");
    QTest::qWait(200);
    screen->tap(*screen->text("Do it"));
    EXPECT_EQ(answer.indices, std::vector<int>{0});
    sheet.showInView(pane.table());
    QTest::qWait(200);
    screen->key(Qt::Key_Escape);
    EXPECT_EQ(answer.indices, (std::vector<int>{0, 1}));
    sheet.showInView(pane.table());
    QTest::qWait(200);
    screen->tap(QPoint(195, 200));
    EXPECT_EQ(answer.indices, (std::vector<int>{0, 1, 1})) << "a tap beside the sheet cancels";
}

TEST_F(WindowTest, AViewAddedToAScreenAppearsAndFades) {
    navigation.pushViewController(pane.second, false);
    UILabel label(CGRect{0.0, 0.0, 200.0, 40.0});
    label.setText("Saved");
    UIView toast(CGRect{80.0, 200.0, 200.0, 40.0});
    toast.addSubview(label);
    toast.setAlpha(0.0);
    pane.secondView.addSubview(toast);
    toast.animate(0.1, [&] { toast.setAlpha(1.0); });
    ASSERT_TRUE(eventually([&] { return screen->showing(toast) != nullptr; }));
    EXPECT_TRUE(eventually([&] { return screen->showing(toast)->opacity() == 1.0; }))
        << "the run loop moves with the clock";
    toast.removeFromSuperview();
    EXPECT_EQ(screen->showing(toast), nullptr);
}

TEST_F(WindowTest, EveryWidthFromAPhoneToATabletIsFilled) {
    for (const int width : {320, 390, 640, 800}) {
        window->resize(width, 700);
        EXPECT_TRUE(eventually([&] { return window->rootObject()->width() == width; }));
        QTest::qWait(50);
        EXPECT_EQ(UIScreen::mainScreen().bounds().width, std::min(width, 640));
        const QQuickItem* row = screen->text("Alpha");
        ASSERT_NE(row, nullptr) << width;
        const double left = row->mapToScene({0, 0}).x();
        EXPECT_GE(left, 16.0) << width;
        const QQuickItem* button =
            screen->showing(*pane.table().cellForRowAtIndexPath({0, 0})->accessoryView());
        EXPECT_LE(button->mapToScene({button->width(), 0}).x(), width - 16.0) << width;
    }
}

TEST_F(WindowTest, DarkSurroundingsChangeTheGround) {
    const QColor light = screen->picture().pixelColor(4, 300);
    host.setDark(true);
    const QColor dark = screen->picture().pixelColor(4, 300);
    EXPECT_GT(light.lightness(), 200);
    EXPECT_LT(dark.lightness(), 60);
}

TEST(Window, LargeTextMakesEverythingLarger) {
    Host host;
    host.setTextScale(1.5);
    test::TestPane pane;
    UINavigationController navigation(pane);
    host.show(navigation);
    Window window(host, QSize(390, 780));
    test::Screen screen(window);
    window.show();
    ASSERT_TRUE(eventually([&] { return screen.text("Alpha") != nullptr; }));
    const QQuickItem* row = screen.text("Alpha");
    const double height = row->mapToScene({0, row->height()}).y() - row->mapToScene({0, 0}).y();
    EXPECT_NEAR(height, row->height() * 1.5, 0.5);
    EXPECT_EQ(UIScreen::mainScreen().bounds().width, 260.0);
    const QQuickItem* drawn = screen.showing(pane.header);
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(drawn->property("textureSize").toSize(), (drawn->size() * 1.5).toSize())
        << "as sharp as the rest";
}

TEST(Window, SaysATroubleAtItsTop) {
    useLanguages({"tr"});
    Host host;
    host.setProblem("The catalogue is missing.");
    test::TestPane pane;
    UINavigationController navigation(pane);
    host.show(navigation);
    Window window(host, QSize(390, 780));
    test::Screen screen(window);
    window.show();
    EXPECT_TRUE(eventually([&] { return screen.text("The catalogue is missing.") != nullptr; }));
    EXPECT_EQ(host.words()("delete"), "Sil");
    useLanguages({});
}

} // namespace
} // namespace zorel
