// SPDX-License-Identifier: Apache-2.0
// Cities and alarms to another device: export and import.
#include "commands/Commands.h"

#include "alarm_commands/AlarmList.h"
#include "alarm_commands/ExportText.h"
#include "alarm_commands/RingClient.h"
#include "commands/CataloguePlaces.h"
#include "commands/HeadlessPane.h"
#include "commands/UserData.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "words/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace zorel::cli {

namespace {
constexpr const char* kStandardStream = "-";

UserRows storedRows() {
    UserRows rows = storedUserRows(Locations::current().data + "/user.sqlite");
    if (rows.result.state == StoreState::missing) {
        throw CliError(Exit::noResult, tr("there are no cities and alarms to export yet"),
                       "zorel cities add NAME");
    }
    requireRead(rows.result);
    return rows;
}

std::string standardInput() {
    std::string text(kLargestExport + 1, '\0');
    std::cin.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::cin.gcount()));
    return text;
}

std::string textOf(const std::string& file) {
    if (file == kStandardStream) {
        return standardInput();
    }
    std::error_code error;
    auto text = readSmallFile(file, kLargestExport, error);
    if (!text) {
        throw CliError(Exit::dataTrouble, tr("cannot read {0}: {1}", quote(file), error.message()),
                       tr("name a file that zorel export wrote, or - for the standard input"));
    }
    return *std::move(text);
}

/// Alarms of a city without times would never ring.
void requireKnown(const Context& context, const UserRows& rows) {
    for (const UserCity& city : rows.cities) {
        bool readable = false;
        const auto place = placeById(context.services, integerValue(city.cityId), readable);
        if (!readable) {
            throw unreadableCatalogue(context.services);
        }
        if (!place) {
            throw CliError(
                Exit::dataTrouble,
                tr("nothing was imported: the catalogue of this device has no city {}", city.cityId),
                tr("install the same version of zorel on both devices"));
        }
    }
}

/// Another device may have other tones; the bundled one rings then.
void noteMissingRingtones(const Context& context, const HeadlessPane& pane, const UserRows& rows) {
    for (const AlarmRow& row : rows.alarms) {
        const std::string name = row.info().melodyName;
        const bool isThere = std::ranges::any_of(
            pane.ringtones(), [&](const UIComboboxItem& item) { return item.originalText == name; });
        if (row.active && !name.empty() && !isThere) {
            context.note(tr("there is no ringtone {} here; another one rings", quote(name)));
        }
    }
}
} // namespace

Exit runExport(const Context& context) {
    const std::string text = exportText(storedRows());
    if (context.options.file == kStandardStream) {
        context.streams.out << text;
        return Exit::ok;
    }
    std::error_code unknown;
    const auto kind = std::filesystem::status(context.options.file, unknown).type();
    const bool isOther = kind != std::filesystem::file_type::not_found &&
                         kind != std::filesystem::file_type::regular; // a device must stay one
    const std::error_code error =
        isOther ? std::make_error_code(std::errc::not_supported) : replaceFile(context.options.file, text);
    if (error) {
        throw CliError(Exit::dataTrouble,
                       tr("cannot write {0}: {1}", quote(context.options.file), error.message()),
                       tr("name another file, or - to print it"));
    }
    return Exit::ok;
}

Exit runImport(const Context& context) {
    const UserRows wanted = rowsOfExport(textOf(context.options.file));
    requireKnown(context, wanted);
    HeadlessPane pane;
    const ActionResult result = pane.act([&](UserActions& actions) { return actions.replaceAll(wanted); });
    requireDone(result, tr("the import"));
    noteMissingRingtones(context, pane, wanted);
    showAfterwards(context, pane, [&] { printAlarms(context, pane, *result.alarms); });
    tellWhoRings(context);
    return Exit::ok;
}

} // namespace zorel::cli
