// SPDX-License-Identifier: Apache-2.0
#include "common/GlobalFuncs.h"

#include "almanac/Prayer.h"
#include "common/SpokenLanguage.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace zorel {
namespace {

/// Keys of the prayers that the language files name.
constexpr std::array<std::pair<almanac::Prayer, std::string_view>, 9> kPrayerKeys = {
    {{almanac::Prayer::fajr, "FAJR"},
     {almanac::Prayer::sunrise, "TULU"},
     {almanac::Prayer::dhuhr, "DHUHR"},
     {almanac::Prayer::asr, "ASR"},
     {almanac::Prayer::maghrib, "MAGHRIB"},
     {almanac::Prayer::isha, "ISHA"},
     {almanac::Prayer::morningFiveDegrees, "ISHRAQ"},
     {almanac::Prayer::asrSecond, "ASRTHANI"},
     {almanac::Prayer::afternoonFiveDegrees, "I-SHAMS"}}};

/// Language files below the bundle, by language id.
constexpr std::array<std::string_view, 4> kLanguageFiles = {"tr.lproj/tr.plist", "en.lproj/en.plist",
                                                            "Languages/fr.plist", "Languages/ge.plist"};
/// What stands in the log for the path of a language that there is not.
constexpr std::string_view kNoPath = "(null)";

std::string languageFilePath(const std::string& bundle, std::int32_t languageId) {
    const auto index = static_cast<std::size_t>(languageId);
    if (languageId == kLanguageWithoutNumber && !languageOfPane().empty()) {
        return fmt::format("{}/Languages/{}.plist", bundle, languageOfPane());
    }
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
    const auto wanted = std::ranges::find(kPrayerKeys, almanac::prayerOfId(prayerId),
                                          [](const auto& entry) { return std::optional(entry.first); });
    return wanted == kPrayerKeys.end() ? std::nullopt : textIn(langPack_, "PRAYERS", wanted->second);
}

void GlobalFuncs::addComboItem(std::vector<UIComboboxItem>& items, const std::string& displayText,
                               const std::string& originalText, std::int32_t itemId) const {
    items.push_back({itemId, displayText, originalText});
}

} // namespace zorel
