// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include <array>
#include <fmt/format.h>

namespace zorel {
namespace {

constexpr std::int32_t kFirstPrayerId = 200;
/// Keys of the prayer names, from the first prayer id on.
constexpr std::array<std::string_view, 9> kPrayerKeys = {"FAJR", "TULU",   "DHUHR",    "ASR",    "MAGHRIB",
                                                         "ISHA", "ISHRAQ", "ASRTHANI", "I-SHAMS"};

/// Language files below the bundle, by language id.
constexpr std::array<std::string_view, 4> kLanguageFiles = {"tr.lproj/tr.plist", "en.lproj/en.plist",
                                                            "Languages/fr.plist", "Languages/ge.plist"};
/// What stands in the log for the path of a language that there is not.
constexpr std::string_view kNoPath = "(null)";

std::string languageFilePath(const std::string& bundle, std::int32_t languageId) {
    const auto index = static_cast<std::size_t>(languageId);
    return languageId >= 0 && index < kLanguageFiles.size()
               ? fmt::format("{}/{}", bundle, kLanguageFiles[index])
               : std::string();
}

std::optional<std::string> textIn(const std::optional<PropertyList>& pack, std::string_view section,
                                  std::string_view key) {
    const PropertyList* entries = pack ? pack->find(section) : nullptr;
    const PropertyList* entry = entries != nullptr ? entries->find(key) : nullptr;
    const std::string* text = entry != nullptr ? entry->text() : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

} // namespace

void GlobalFuncs::loadLanguageFile() {
    const std::string path = languageFilePath(appBundlePath, languageId);
    if (path.empty() || !fileExists(path)) {
        NSLogToFile(fmt::format("Language file not found : {}", path.empty() ? kNoPath : path));
        return;
    }
    auto pack = PropertyList::read(path);
    if (!pack || pack->dictionary() == nullptr) {
        NSLogToFile(fmt::format("Language file not readable : {}", path));
        return;
    }
    langPack_ = std::move(pack);
}

std::optional<std::string> GlobalFuncs::GetKeyValue(std::int32_t key) const {
    return textIn(langPack_, "COMMON", fmt::format("{}", key));
}

std::optional<std::string> GlobalFuncs::GetTextPrayLabels(std::int32_t prayerId) const {
    const std::int64_t index = std::int64_t{prayerId} - kFirstPrayerId;
    if (index < 0 || index >= std::ssize(kPrayerKeys)) {
        return std::nullopt;
    }
    return textIn(langPack_, "PRAYERS", kPrayerKeys[static_cast<std::size_t>(index)]);
}

void GlobalFuncs::addComboItem(std::vector<UIComboboxItem>& items, const std::string& displayText,
                               const std::string& originalText, std::int32_t itemId) const {
    items.push_back({itemId, displayText, originalText});
}

} // namespace zorel
