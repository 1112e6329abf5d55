// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/ProgramLocations.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace zorel {
namespace {

/// Sets an environment variable (nothing: unsets it) and puts it back at the end.
class Variable {
public:
    Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* old = std::getenv(name); old != nullptr) {
            old_ = old;
        }
        set(value);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { set(old_); }

private:
    void set(const std::optional<std::string>& value) const {
        if (value) {
            setenv(name_, value->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> old_;
};

TEST(UserDataDirectory, IsTheOneThatTheUserNames) {
    const Variable data("XDG_DATA_HOME", "/data");
    const Variable home("HOME", "/home/somebody");
    EXPECT_EQ(userDataDirectory(), "/data/zorel");
}

TEST(UserDataDirectory, LiesInTheHomeFolderOtherwise) {
    const Variable home("HOME", "/home/somebody");
    const Variable none("XDG_DATA_HOME", std::nullopt);
    EXPECT_EQ(userDataDirectory(), "/home/somebody/.local/share/zorel");
    const Variable relative("XDG_DATA_HOME", "data");
    EXPECT_EQ(userDataDirectory(), "/home/somebody/.local/share/zorel") << "a relative path does not count";
}

TEST(UserDataDirectory, IsUnknownWithoutAHome) {
    const Variable data("XDG_DATA_HOME", std::nullopt);
    const Variable none("HOME", std::nullopt);
    EXPECT_EQ(userDataDirectory(), std::nullopt);
    const Variable relative("HOME", "here");
    EXPECT_EQ(userDataDirectory(), std::nullopt);
}

TEST(UserConfigDirectory, IsTheVariableElseBelowTheHomeElseUnknown) {
    const Variable home("HOME", "/home/somebody");
    const Variable none("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(userConfigDirectory(), "/home/somebody/.config");
    const Variable config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(userConfigDirectory(), "/config");
    const Variable relative("XDG_CONFIG_HOME", "config");
    const Variable nowhere("HOME", std::nullopt);
    EXPECT_EQ(userConfigDirectory(), std::nullopt);
}

TEST(BundleBesideProgram, IsFoundInAFolderAboveTheProgram) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    const auto bundle = program.parent_path().parent_path() / "share" / "zorel" / "Zorel.bundle";
    if (std::filesystem::is_directory(bundle)) {
        EXPECT_EQ(bundleBesideProgram(), bundle.string());
    } else {
        std::filesystem::create_directories(bundle);
        EXPECT_EQ(bundleBesideProgram(), bundle.string());
        std::filesystem::remove(bundle);
    }
}

TEST(RingtonesBesideBundle, IsTheNeighbourOfTheBundle) {
    EXPECT_EQ(ringtonesBesideBundle("/usr/share/zorel/Zorel.bundle"), "/usr/share/zorel/Ringtones");
}

} // namespace
} // namespace zorel
