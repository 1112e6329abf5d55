// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the views find around them: folders of their own, English texts, a screen, the real catalogue.
#pragma once

#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIScreen.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zorel::test {

inline constexpr CGRect kScreen = {0.0, 0.0, 320.0, 568.0};

/// A bundle made of the source tree's texts and the build tree's catalogue; data and ringtones in an empty
/// folder.
class ViewsFixture : public testing::Test {
protected:
    ViewsFixture() {
        const std::string bundle = locations.folder.path("Zorel.bundle");
        std::filesystem::create_directory(bundle);
        for (const auto& entry : std::filesystem::directory_iterator(Locations::current().bundle)) {
            std::filesystem::create_symlink(entry.path(), bundle + "/" + entry.path().filename().string());
        }
        std::filesystem::create_directory_symlink(
            std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle/database", bundle + "/database");
        Locations::current().bundle = bundle;
        UIScreen::mainScreen().setBounds(kScreen);
    }
    /// Messages on show end by themselves.
    ~ViewsFixture() override {
        RunLoop::main().advance(600.0);
        UIScreen::mainScreen().setBounds({});
    }

    void addRingtone(const std::string& name) {
        writeFile(Locations::current().ringtones + "/" + name, "tone");
    }
    [[nodiscard]] std::string log() const { return readFile(Locations::current().data + "/SettingsLog.txt"); }

    TemporaryLocations locations;
    LocaleOverride locale{"en_US"};
};

} // namespace zorel::test
