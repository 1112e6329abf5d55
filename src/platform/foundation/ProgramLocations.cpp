// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/ProgramLocations.h"

#include "platform/foundation/Locations.h"

#include <cstdlib>
#include <filesystem>

namespace zorel {

namespace {

std::string absolutePathIn(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

} // namespace

std::string bundleAbove(const std::string& file) {
    std::error_code error;
    const auto real = std::filesystem::canonical(file, error);
    for (auto folder = real.parent_path(); !error && folder.has_relative_path();
         folder = folder.parent_path()) {
        const auto bundle = folder / "share" / "zorel" / "Zorel.bundle";
        if (std::filesystem::is_directory(bundle, error)) {
            return bundle.string();
        }
        error.clear();
    }
    return Locations().bundle;
}

std::string bundleBesideProgram() {
    return bundleAbove("/proc/self/exe");
}

std::optional<std::string> userDataDirectory() {
    if (const std::string dataHome = absolutePathIn("XDG_DATA_HOME"); !dataHome.empty()) {
        return dataHome + "/zorel";
    }
    const std::string home = absolutePathIn("HOME");
    return home.empty() ? std::nullopt : std::optional(home + "/.local/share/zorel");
}

std::optional<std::string> userConfigDirectory() {
    if (std::string configHome = absolutePathIn("XDG_CONFIG_HOME"); !configHome.empty()) {
        return configHome;
    }
    const std::string home = absolutePathIn("HOME");
    return home.empty() ? std::nullopt : std::optional(home + "/.config");
}

std::string ringtonesBesideBundle(const std::string& bundle) {
    return (std::filesystem::path(bundle).parent_path() / "Ringtones").string();
}

} // namespace zorel
