// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/RunLoop.h"
#include "store/CitySearch.h"
#include "tests/views/ViewsFixture.h"
#include "views/AddCityView.h"

namespace zorel {
namespace {

struct Chosen : AddCityViewDelegate {
    void delegateAddCityView_AddTapped(const City& city) override {
        names.push_back(city.name);
        ids.push_back(city.cityId);
    }
    std::vector<std::string> names;
    std::vector<std::string> ids;
};

class AddCity : public test::ViewsFixture {
protected:
    AddCity() { view.setDelegate(&chosen); }

    void search(const std::string& text) {
        view.searchBar().userTypes(text);
        view.searchBar().userTapsSearch();
    }
    [[nodiscard]] std::string rowText(int row) {
        return view.searchTableView().cellForRowAtIndexPath({0, row})->textLabel().text();
    }
    [[nodiscard]] int rows() { return view.searchTableView().numberOfRowsInSection(0); }
    /// The row whose text is the given one, or -1.
    [[nodiscard]] int rowOf(const std::string& text) {
        for (int row = 0; row < rows(); ++row) {
            if (rowText(row) == text) {
                return row;
            }
        }
        return -1;
    }

    AddCityView view{{0.0, 64.0, 320.0, 504.0}};
    Chosen chosen;
};

TEST_F(AddCity, SearchBarStandsAboveTheTable) {
    UISearchBar& bar = view.searchBar();
    EXPECT_EQ(bar.frame(), (CGRect{0.0, 64.0, 320.0, 44.0}));
    EXPECT_EQ(bar.autoresizingMask(), 7U);
    EXPECT_EQ(bar.placeholder(), "Search for a city");
    EXPECT_EQ(bar.tag(), 1010);
    UITableView& table = view.searchTableView();
    EXPECT_EQ(table.frame(), (CGRect{0.0, 108.0, 320.0, 460.0}));
    EXPECT_EQ(table.style(), UITableViewStyle::plain);
    EXPECT_EQ(table.backgroundColor(), UIColor::whiteColor());
    EXPECT_EQ(table.rowHeight(), 33.0);
    EXPECT_EQ(table.autoresizingMask(), 39U);
    EXPECT_EQ(table.tag(), 1033);
    EXPECT_EQ(view.subviews(), (std::vector<UIView*>{&bar, &table}));
    EXPECT_EQ(rows(), 0);
    EXPECT_EQ(view.delegate(), &chosen);
}

TEST_F(AddCity, SearchListsTheCataloguesCities) {
    search("istanbul");
    ASSERT_GT(rows(), 0);
    EXPECT_FALSE(view.searchBar().isFirstResponder());
    const auto found = searchCities(GlobalFuncs(), "istanbul");
    ASSERT_EQ(static_cast<std::size_t>(rows()), found.size());
    EXPECT_EQ(rowText(0), citySearchText(GlobalFuncs(), found.front()));
    EXPECT_EQ(view.searchTableView().heightForRow({0, 0}), 33.0);
    EXPECT_NE(rowText(0).find("İstanbul"), std::string::npos) << rowText(0);
    EXPECT_TRUE(
        view.searchTableView().cellForRowAtIndexPath({0, 0})->textLabel().adjustsFontSizeToFitWidth());
    EXPECT_EQ(view.searchTableView().cellForRowAtIndexPath({0, 0})->reuseIdentifier(), "SearchList");
}

TEST_F(AddCity, RegionIsNamedUnlessItHasTheCitysName) {
    search("stan");
    int twoParts = 0;
    int threeParts = 0;
    for (int row = 0; row < rows(); ++row) {
        const FoundCity& city = view.searchCityList()[static_cast<std::size_t>(row)];
        if (rowText(row).find(" — ") != std::string::npos) {
            continue;
        }
        const bool same = city.name == city.nameParent;
        EXPECT_EQ(rowText(row), same ? city.name + " / " + city.countryNameEn
                                     : city.name + " / " + city.nameParent + " / " + city.countryNameEn);
        ++(same ? twoParts : threeParts);
    }
    EXPECT_GT(twoParts, 0);
    EXPECT_GT(threeParts, 0);
}

TEST_F(AddCity, CountryIsTurkishInTurkish) {
    const LocaleOverride turkish("tr_TR");
    AddCityView turkishView({0.0, 64.0, 320.0, 504.0});
    turkishView.searchBar().userTypes("berlin");
    turkishView.searchBar().userTapsSearch();
    ASSERT_FALSE(turkishView.searchCityList().empty());
    const std::string text = turkishView.searchTableView().cellForRowAtIndexPath({0, 0})->textLabel().text();
    EXPECT_NE(text.find("Almanya"), std::string::npos) << text;
}

TEST_F(AddCity, TwoCharactersEmptyTheResults) {
    search("ank");
    ASSERT_GT(rows(), 0);
    search("an");
    EXPECT_EQ(rows(), 0);
    EXPECT_TRUE(view.searchCityList().empty());
    EXPECT_FALSE(view.searchBar().isFirstResponder());
}

TEST_F(AddCity, QuoteAndMissingCatalogueShowNothing) {
    search("a'b");
    EXPECT_EQ(rows(), 0);
    search("ankara");
    ASSERT_GT(rows(), 0);
    std::filesystem::remove(Locations::current().bundle + "/database");
    search("ankara");
    EXPECT_EQ(rows(), 0);
}

TEST_F(AddCity, TheTableFollowsTheTextAfterAPause) {
    view.searchBar().userTypes("ankar");
    EXPECT_EQ(rows(), 0);
    RunLoop::main().advance(0.2);
    view.searchBar().userTypes("ankara");
    RunLoop::main().advance(0.2);
    EXPECT_EQ(rows(), 0) << "typing goes on";
    RunLoop::main().advance(0.1);
    ASSERT_GT(rows(), 0);
    EXPECT_EQ(rowText(0), "Ankara / Türkiye");
    EXPECT_TRUE(view.searchBar().isFirstResponder()) << "the keyboard stays";
    view.searchBar().userTypes("an");
    RunLoop::main().advance(0.3);
    EXPECT_EQ(rows(), 0) << "two characters find nothing";
}

TEST_F(AddCity, TheSearchKeyDoesNotWaitAndNothingComesAfterIt) {
    search("ankara");
    ASSERT_GT(rows(), 0);
    view.searchBar().setText("konya");
    RunLoop::main().advance(1.0);
    EXPECT_EQ(rowText(0), "Ankara / Türkiye") << "the pause of the typing has no search of its own";
}

TEST_F(AddCity, AViewThatIsGoneIsNotSearchedIn) {
    auto shortLived = std::make_unique<AddCityView>(CGRect{0.0, 64.0, 320.0, 504.0});
    shortLived->searchBar().userTypes("ankara");
    shortLived.reset();
    RunLoop::main().advance(1.0);
}

TEST_F(AddCity, ARowSaysByWhichSpellingTheCityWasFound) {
    search("cologne");
    EXPECT_EQ(rowText(0), "Köln — Cologne / North Rhine-Westphalia / Germany");
    search("köln");
    EXPECT_EQ(rowText(0), "Köln / North Rhine-Westphalia / Germany");
}

TEST_F(AddCity, WildcardsAreLetters) {
    for (const char* text : {"%%%", "___", "a%b"}) {
        search(text);
        EXPECT_EQ(rows(), 0) << text;
    }
}

TEST_F(AddCity, CitiesOfTheListAreMarked) {
    view.setListedCities({"323786"});
    search("ankara");
    EXPECT_EQ(rowText(0), "Ankara / Türkiye ✓");
    EXPECT_EQ(rowText(1).find("✓"), std::string::npos);
    view.setListedCities({});
    EXPECT_EQ(rowText(0), "Ankara / Türkiye") << "at once";
}

TEST_F(AddCity, ChoosingAsksForConfirmation) {
    search("ankara");
    EXPECT_EQ(view.confirmation(), nullptr);
    view.searchBar().userTypes("ankara");
    view.searchTableView().userSelectsRow({0, 0});
    EXPECT_FALSE(view.searchBar().isFirstResponder());
    ASSERT_NE(view.confirmation(), nullptr);
    EXPECT_TRUE(view.confirmation()->isVisible());
    EXPECT_EQ(view.confirmation()->title(), rowText(0)) << "which city is meant";
    EXPECT_EQ(view.confirmation()->buttonTitles(), (std::vector<std::string>{"Add city", "Cancel"}));
    EXPECT_EQ(view.confirmation()->cancelButtonIndex(), 1);
    EXPECT_TRUE(chosen.names.empty());
}

TEST_F(AddCity, ConfirmingHandsOverTheChosenCity) {
    search("ankara");
    const FoundCity second = view.searchCityList().at(1);
    view.searchTableView().userSelectsRow({0, 1});
    view.confirmation()->userTapsButton(0);
    EXPECT_EQ(chosen.ids, std::vector<std::string>{second.cityId});
    EXPECT_EQ(chosen.names, std::vector<std::string>{second.name});
    EXPECT_FALSE(view.confirmation()->isVisible());
}

TEST_F(AddCity, CancellingAddsNothing) {
    search("ankara");
    view.searchTableView().userSelectsRow({0, 0});
    view.confirmation()->userTapsButton(1);
    EXPECT_TRUE(chosen.ids.empty());
}

TEST_F(AddCity, SameRowCanBeChosenAgain) {
    search("ankara");
    for (int time = 0; time < 2; ++time) {
        view.searchTableView().userSelectsRow({0, 0});
        view.confirmation()->userTapsButton(0);
    }
    EXPECT_EQ(chosen.ids.size(), 2U);
}

TEST_F(AddCity, NewSearchForgetsTheChoice) {
    search("ankara");
    view.searchTableView().userSelectsRow({0, 0});
    search("xx");
    view.confirmation()->userTapsButton(0);
    EXPECT_TRUE(chosen.ids.empty());
}

TEST_F(AddCity, DelegateMaySearchAnewOrBeAbsent) {
    struct Searcher : AddCityViewDelegate {
        void delegateAddCityView_AddTapped(const City& city) override {
            view->searchBar().setText("xx");
            view->searchBarSearchButtonClicked(view->searchBar());
            name = city.name;
        }
        AddCityView* view = nullptr;
        std::string name;
    } searcher;
    searcher.view = &view;
    view.setDelegate(&searcher);
    search("ankara");
    const std::string expected = view.searchCityList().front().name;
    view.searchTableView().userSelectsRow({0, 0});
    view.confirmation()->userTapsButton(0);
    EXPECT_EQ(searcher.name, expected);
    view.setDelegate(nullptr);
    search("ankara");
    view.searchTableView().userSelectsRow({0, 0});
    view.confirmation()->userTapsButton(0);
}

TEST_F(AddCity, RowsCannotBeDeletedAndOtherTablesAreIgnored) {
    search("ankara");
    EXPECT_FALSE(view.searchTableView().canDeleteRow({0, 0}));
    UITableView other({}, UITableViewStyle::plain);
    view.didSelectRowAtIndexPath(other, {0, 0});
    EXPECT_EQ(view.confirmation(), nullptr);
}

TEST_F(AddCity, CellsAreReused) {
    search("ankara");
    UITableViewCell* first = view.searchTableView().cellForRowAtIndexPath({0, 0});
    view.searchTableView().endDisplayingRow({0, 0});
    EXPECT_EQ(view.searchTableView().cellForRowAtIndexPath({0, 1}), first);
    EXPECT_EQ(rowText(1), citySearchText(GlobalFuncs(), view.searchCityList().at(1), "Palankaraja"));
}

} // namespace
} // namespace zorel
