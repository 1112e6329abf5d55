// SPDX-License-Identifier: Apache-2.0
#include "platform/preferences/PSListController.h"

#include "platform/foundation/Locations.h"
#include "platform/uikit/UIScreen.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace zorel {
namespace {

struct SampleList : PSListController {
    std::string name;
    std::vector<PSSpecifier> list;

    const std::vector<PSSpecifier>& specifiers() override {
        list = loadSpecifiersFromPlistName(name, this);
        return list;
    }
    int numberOfRowsInSection(UITableView&, int) override { return 1; }
    std::unique_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, NSIndexPath) override {
        return std::make_unique<UITableViewCell>("Pane");
    }
};

class PaneTest : public testing::Test {
protected:
    PaneTest() : bundle_(Locations::current().bundle) { Locations::current().bundle = folder.path(); }
    ~PaneTest() override { Locations::current().bundle = bundle_; }

    void write(const std::string& name, const std::string& body) const {
        std::ofstream(folder.path(name))
            << "<?xml version=\"1.0\"?><plist version=\"1.0\">" << body << "</plist>";
    }

    test::TemporaryFolder folder;
    SampleList pane;

private:
    std::string bundle_;
};

TEST(PSListController, ItsViewIsAGroupedTableOfTheScreensSize) {
    UIScreen::mainScreen().setBounds({0, 0, 320, 568});
    SampleList pane;
    UIScreen::mainScreen().setBounds({});
    EXPECT_EQ(pane.view(), &pane.table());
    EXPECT_EQ(pane.table().style(), UITableViewStyle::grouped);
    EXPECT_EQ(pane.table().frame(), (CGRect{0, 0, 320, 568}));
    EXPECT_EQ(pane.table().numberOfSections(), 1);
    EXPECT_NE(pane.table().cellForRowAtIndexPath({0, 0}), nullptr);
    EXPECT_TRUE(pane.shouldReloadSpecifiersOnResume());
}

TEST_F(PaneTest, ReadsItsSpecifiers) {
    write("Some.plist",
          "<dict><key>items</key><array>"
          "<dict><key>cell</key><string>PSGroupCell</string><key>id</key><string>Cities</string>"
          "<key>label</key><string>Şehirler</string></dict>"
          "<string>no dictionary</string><dict><key>label</key><integer>7</integer></dict>"
          "</array></dict>");
    pane.name = "Some";
    const auto& list = pane.specifiers();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].cell, "PSGroupCell");
    EXPECT_EQ(list[0].identifier, "Cities");
    EXPECT_EQ(list[0].label, "Şehirler");
    EXPECT_EQ(list[0].target, &pane);
    EXPECT_EQ(list[1].label, "");
}

TEST_F(PaneTest, AMissingOrOddFileGivesNoSpecifiers) {
    for (const char* body :
         {"<dict/>", "<array/>", "<dict><key>items</key><string>x</string></dict>", "<dict"}) {
        write("Odd.plist", body);
        pane.name = "Odd";
        EXPECT_TRUE(pane.specifiers().empty()) << body;
    }
    pane.name = "Missing";
    EXPECT_TRUE(pane.specifiers().empty());
}

TEST_F(PaneTest, TheBundlesOwnListIsRead) {
    Locations::current().bundle = ZOREL_SOURCE_DIR "/resources/Zorel.bundle";
    pane.name = "ZorelSettings";
    const auto& list = pane.specifiers();
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0].identifier, "Cities");
    EXPECT_EQ(list[1].identifier, "Alarms");
    EXPECT_EQ(list[2].identifier, "Information");
}

} // namespace
} // namespace zorel
