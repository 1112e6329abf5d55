// SPDX-License-Identifier: Apache-2.0
#include "grammar/Context.h"

#include "terminal/Wrap.h"

#include "platform/foundation/Clock.h"
#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace zorel::cli {

namespace {
/// The name of a time that the language files have none of.
std::string ownNameOf(almanac::Prayer prayer) {
    switch (prayer) {
    case almanac::Prayer::ishaSecond:
        return tr("Second nightfall");
    case almanac::Prayer::beforeNoon:
        return tr("Before noon");
    case almanac::Prayer::lastSixthOfNight:
        return tr("Last sixth of the night");
    case almanac::Prayer::middleOfNight:
        return tr("Middle of the night");
    case almanac::Prayer::firstThirdOfNight:
        return tr("First third of the night");
    default:
        return tr("Sun at qibla");
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
    applyLanguage(services, options.language.empty() ? languageInUse() : options.language);
}

std::string Context::nameOf(almanac::Prayer prayer) const {
    const std::int32_t id = almanac::identityOf(prayer).id;
    if (id == 0) {
        return ownNameOf(prayer);
    }
    if (auto name = services.GetTextPrayLabels(id)) {
        return cleanText(*name);
    }
    throw CliError(Exit::dataTrouble, fmt::format("no language file in {}", services.appBundlePath),
                   "name the folder that holds the catalogue and the language files with --bundle DIR");
}

almanac::Instant Context::now() const {
    return std::chrono::floor<std::chrono::seconds>(zorel::now());
}

almanac::Precision Context::precision() const {
    return options.seconds ? almanac::Precision::seconds : almanac::Precision::minutes;
}

std::optional<std::size_t> Context::knownColumns() const {
    if (options.width != 0) {
        return static_cast<std::size_t>(options.width);
    }
    const auto terminal = streams.outIsTerminal ? terminalColumns(streams.outDescriptor) : std::nullopt;
    return terminal ? std::optional(static_cast<std::size_t>(std::max(*terminal, kLeastColumns)))
                    : std::nullopt;
}

bool Context::ascii() const {
    return options.ascii || (streams.outIsTerminal && !localeIsUtf8());
}

std::string Context::argument() const {
    return fmt::format("{}", fmt::join(options.words, " "));
}

void Context::note(std::string_view text) const {
    streams.err << "note: " << cleanText(text) << '\n';
}

} // namespace zorel::cli
