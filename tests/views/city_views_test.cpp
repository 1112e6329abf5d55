// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"
#include "platform/uikit/UITouch.h"
#include "tests/views/ViewsFixture.h"
#include "views/UICityHeaderView.h"
#include "views/UICityView.h"

namespace zorel {
namespace {

struct HomeTaps : UICityViewDelegate {
    void delegateUICityView_HomeTapped(UICityView& view) override { views.push_back(&view); }
    std::vector<UICityView*> views;
};

struct AddTaps : UICityHeaderViewDelegate {
    void delegateUICityHeaderView_AddTapped(UIButtonX& button) override { buttons.push_back(&button); }
    std::vector<UIButtonX*> buttons;
};

class CityViews : public test::ViewsFixture {
protected:
    GlobalFuncs glbFuncs;
    Settings settings;
};

TEST_F(CityViews, RowShowsANameAndAHomeButton) {
    const UICityView view({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    EXPECT_EQ(view.backgroundColor(), UIColor::clearColor());
    const UILabel& name = view.cityName();
    EXPECT_EQ(name.frame(), (CGRect{20.0, 15.0, 300.0, 30.0}));
    EXPECT_EQ(name.font(), (UIFont{"Verdana", 15.0}));
    EXPECT_EQ(name.textColor(), settings.fifthColor);
    EXPECT_EQ(name.textAlignment(), UITextAlignment::left);
    EXPECT_TRUE(name.text().empty());
    EXPECT_FALSE(name.isHidden());
    EXPECT_FALSE(name.shadow());
    const UIButtonX& home = view.buttonHome();
    EXPECT_EQ(home.frame(), (CGRect{232.0, 15.0, 70.0, 30.0}));
    EXPECT_EQ(home.buttonType(), 2);
    EXPECT_EQ(home.buttonShape(), 6);
    EXPECT_TRUE(home.selectable());
    EXPECT_FALSE(home.isSelected());
    EXPECT_EQ(home.tag(), 0);
    EXPECT_EQ(home.accessibilityLabel(), "Home city");
    EXPECT_EQ(view.subviews().size(), 2U);
}

TEST_F(CityViews, TappingAnotherCitySelectsItAndTellsOnce) {
    UICityView view({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    HomeTaps taps;
    view.setDelegate(&taps);
    view.setCityId(17);
    UITouchDispatcher(view).tap({267.0, 30.0});
    EXPECT_TRUE(view.buttonHome().isSelected());
    EXPECT_EQ(taps.views, std::vector<UICityView*>{&view});
    EXPECT_EQ(view.cityId(), 17);
    EXPECT_EQ(view.delegate(), &taps);
}

TEST_F(CityViews, TappingTheHomeCityLeavesItSelectedAndTellsNothing) {
    UICityView view({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    HomeTaps taps;
    view.setDelegate(&taps);
    view.buttonHome().setSelected(true);
    UITouchDispatcher(view).tap({267.0, 30.0});
    EXPECT_TRUE(view.buttonHome().isSelected());
    EXPECT_EQ(view.buttonHome().text().textColor(), settings.fifthColor);
    EXPECT_TRUE(taps.views.empty());
}

TEST_F(CityViews, TapBesideTheButtonDoesNothing) {
    UICityView view({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    HomeTaps taps;
    view.setDelegate(&taps);
    UITouchDispatcher(view).tap({100.0, 30.0});
    EXPECT_FALSE(view.buttonHome().isSelected());
    EXPECT_TRUE(taps.views.empty());
}

TEST_F(CityViews, TapsWithoutADelegateAreHarmless) {
    UICityView row({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
    UITouchDispatcher(row).tap({267.0, 30.0});
    EXPECT_TRUE(row.buttonHome().isSelected());
    UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, glbFuncs, settings);
    EXPECT_TRUE(UITouchDispatcher(header).tap({285.0, 20.0}));
}

TEST_F(CityViews, HeaderShowsATitleAndAnAddButton) {
    const UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, glbFuncs, settings);
    EXPECT_EQ(header.text().frame(), (CGRect{10.0, 5.0, 200.0, 30.0}));
    EXPECT_EQ(header.text().text(), "Cities");
    EXPECT_EQ(header.text().textColor(), settings.fifthColor);
    EXPECT_EQ(header.text().textAlignment(), UITextAlignment::left);
    EXPECT_EQ(header.text().font(), (UIFont{"Verdana", 15.0}));
    const UIButtonX& add = header.buttonAdd();
    EXPECT_EQ(add.frame(), (CGRect{250.0, 5.0, 70.0, 30.0}));
    EXPECT_EQ(add.buttonType(), 2);
    EXPECT_EQ(add.buttonShape(), 2);
    EXPECT_FALSE(add.selectable());
    EXPECT_EQ(add.tag(), 0);
    EXPECT_EQ(add.accessibilityLabel(), "Add city");
    EXPECT_EQ(header.subviews().size(), 2U);
}

TEST_F(CityViews, HeaderHandsOverItsButton) {
    UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, glbFuncs, settings);
    AddTaps taps;
    header.setDelegate(&taps);
    UITouchDispatcher(header).tap({285.0, 20.0});
    EXPECT_EQ(taps.buttons, std::vector<UIButtonX*>{&header.buttonAdd()});
    EXPECT_FALSE(header.buttonAdd().isSelected());
    EXPECT_EQ(header.delegate(), &taps);
}

TEST_F(CityViews, SpeakTurkishInATurkishLocale) {
    const LocaleOverride turkish("tr_TR");
    const GlobalFuncs funcs;
    const UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, funcs, settings);
    EXPECT_EQ(header.text().text(), "Şehirler");
}

TEST_F(CityViews, ShowEmptyTextsWithoutALanguageFile) {
    Locations::current().bundle = locations.folder.path("nothing");
    const GlobalFuncs funcs;
    const UICityHeaderView header({0.0, 0.0, 320.0, 40.0}, funcs, settings);
    EXPECT_EQ(header.text().text(), "");
}

} // namespace
} // namespace zorel
