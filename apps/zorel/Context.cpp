// SPDX-License-Identifier: Apache-2.0
#include "Context.h"

#include "platform/foundation/Clock.h"

#include <fmt/format.h>

#include <array>

namespace zorel::cli {

namespace {
/// Prayer id whose name belongs to a position of PrayerTimes, 0 when the language files have none.
std::int32_t prayerIdOf(int index) {
    constexpr std::array<std::int32_t, 16> ids{200, 201, 202, 203, 204, 205, 207, 0,
                                               206, 208, 0,   0,   0,   0,   0,   0};
    return ids[static_cast<std::size_t>(index)];
}

Word wordOf(int index) {
    switch (index) {
    case PrayerTimes::secondNightfall:
        return Word::secondNightfall;
    case PrayerTimes::transitMinusTemkin:
        return Word::beforeNoon;
    case PrayerTimes::lastSixthOfNight:
        return Word::lastSixth;
    case PrayerTimes::middleOfNight:
        return Word::middleOfNight;
    case PrayerTimes::firstThirdOfNight:
        return Word::firstThird;
    default:
        return Word::sunAtQibla;
    }
}

void applyLanguage(GlobalFuncs& services, const std::string& language) {
    constexpr std::array<std::string_view, 4> codes{"tr", "en", "fr", "de"};
    for (std::size_t id = 0; id < codes.size(); ++id) {
        if (codes[id] == language && services.languageId != static_cast<std::int32_t>(id)) {
            services.languageId = static_cast<std::int32_t>(id);
            services.loadLanguageFile();
        }
    }
}
} // namespace

Context::Context(const Options& chosen, Streams& lent)
    : options(chosen), streams(lent), style(coloursWanted(chosen.colour, lent.outIsTerminal)) {
    applyLanguage(services, options.language);
    language = services.languageId == 0 ? Language::turkish : Language::english;
}

std::string Context::nameOf(int index) const {
    const std::int32_t id = prayerIdOf(index);
    if (id == 0)
        return std::string(word(wordOf(index)));
    if (auto name = services.GetTextPrayLabels(id))
        return *std::move(name);
    throw CliError(Exit::dataTrouble, fmt::format("no language file in {}", services.appBundlePath),
                   "name the folder that holds the catalogue and the language files with --bundle DIR");
}

UtcSeconds Context::now() const {
    return std::chrono::floor<std::chrono::seconds>(zorel::now());
}

std::string Context::argument() const {
    return fmt::format("{}", fmt::join(options.words, " "));
}

void Context::note(std::string_view text) const {
    streams.err << "note: " << text << '\n';
}

} // namespace zorel::cli
