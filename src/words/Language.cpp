// SPDX-License-Identifier: Apache-2.0
#include "words/Language.h"

#include "words/Catalogue.h"

#include "platform/foundation/ProgramLocations.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include <libintl.h>
#include <unistd.h>

/// gettext's count of the changes of languages: what it remembers of earlier look-ups holds for one count.
extern "C" int _nl_msg_cat_cntr; // NOLINT: the C library's name

namespace zorel {

namespace {
std::string& inUse() {
    static std::string language = "en";
    return language;
}

bool& english() {
    static bool speaks = true;
    return speaks;
}

std::string_view valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

std::string_view localeOfMessages() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const std::string_view value = valueOf(variable); !value.empty()) {
            return value;
        }
    }
    return "C";
}

/// "ar_EG" of "ar_EG.UTF-8@variant"; empty for the locales without a language.
std::string_view withoutEncoding(std::string_view locale) {
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    return name == "C" || name == "POSIX" ? "" : name;
}

std::string_view withoutCountry(std::string_view name) {
    return name.substr(0, name.find('_'));
}

/// The name of the catalogue that serves a language: for its country, else for all.
std::optional<std::string> catalogueOf(std::string_view language, const std::string& folder) {
    for (const std::string_view name : {language, withoutCountry(language)}) {
        const std::string file = folder + '/' + std::string(name) + "/LC_MESSAGES/" + words::kDomain + ".mo";
        if (name.find('/') == std::string_view::npos && access(file.c_str(), R_OK) == 0) {
            return std::string(name);
        }
    }
    return std::nullopt;
}

/// In the locale "C" gettext translates nothing.
bool leaveUntranslatedLocale() {
    const char* locale = std::setlocale(LC_MESSAGES, nullptr);
    const std::string_view name = locale != nullptr ? locale : "C";
    return (name != "C" && name != "POSIX") || std::setlocale(LC_MESSAGES, "C.UTF-8") != nullptr;
}

bool useCatalogue(const std::string& name, const std::string& folder) {
    if (!leaveUntranslatedLocale() || setenv("LANGUAGE", name.c_str(), 1) != 0 ||
        bindtextdomain(words::kDomain, folder.c_str()) == nullptr ||
        bind_textdomain_codeset(words::kDomain, "UTF-8") == nullptr) {
        return false;
    }
    bind_textdomain_codeset("libc", "UTF-8"); // what the C library says of errors stands within our texts
    ++_nl_msg_cat_cntr;
    return true;
}
} // namespace

bool words::speaksEnglish() {
    return english();
}

std::vector<std::string> languagesOfEnvironment() {
    std::vector<std::string> languages;
    const auto add = [&](std::string_view locale) {
        const std::string_view name = withoutEncoding(locale);
        if (!name.empty()) {
            languages.emplace_back(name);
        }
    };
    const std::string_view locale = localeOfMessages();
    if (locale == "C" || locale == "POSIX") {
        return languages;
    }
    std::string_view list = valueOf("LANGUAGE");
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(':'), list.size());
        add(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    add(locale);
    return languages;
}

void useLanguages(const std::vector<std::string>& wanted, const std::string& folder) {
    english() = true;
    inUse() = "en";
    std::string place = folder;
    for (const std::string& language : wanted) {
        if (withoutCountry(language) == "en") {
            return;
        }
        place = place.empty() ? catalogueFolder() : place;
        const auto name = catalogueOf(language, place);
        if (name && useCatalogue(*name, place)) {
            english() = false;
            inUse() = *name;
            return;
        }
    }
}

void useLanguageOfEnvironment() {
    useLanguages(languagesOfEnvironment());
}

const std::string& languageInUse() {
    return inUse();
}

bool isRightToLeft(std::string_view language) {
    constexpr std::array<std::string_view, 10> kLanguages{"ar", "ckb", "dv", "fa", "he",
                                                          "ps", "sd",  "ug", "ur", "yi"};
    return std::ranges::find(kLanguages, withoutCountry(language)) != kLanguages.end();
}

std::string catalogueFolder() {
    return (std::filesystem::path(bundleBesideProgram()).parent_path().parent_path() / "locale").string();
}

} // namespace zorel
