// SPDX-License-Identifier: Apache-2.0
#include "grammar/Context.h"

#include "terminal/Wrap.h"

#include "platform/foundation/Clock.h"
#include "platform/foundation/Utf8.h"

#include <fmt/format.h>

#include <algorithm>

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

} // namespace

Context::Context(const Options& chosen, Streams& lent)
    : options(chosen), streams(lent), style(coloursWanted(chosen.colour, lent.outIsTerminal)) {}

std::string Context::nameOf(almanac::Prayer prayer) const {
    const std::int32_t id = almanac::identityOf(prayer).id;
    if (id == 0) {
        return ownNameOf(prayer);
    }
    if (auto name = services.GetTextPrayLabels(id)) {
        return cleanText(*name);
    }
    throw CliError(Exit::dataTrouble, tr("no language file in {}", services.appBundlePath),
                   tr("name the folder that holds the catalogue and the language files with --bundle DIR"));
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
    // translators: stands before a remark that is no error
    streams.err << tr("note: {}", cleanText(text)) << '\n';
}

} // namespace zorel::cli
