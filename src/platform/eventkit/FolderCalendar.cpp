// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/FolderCalendar.h"

#include "platform/eventkit/IcsEvent.h"
#include "platform/foundation/FileLock.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace zorel {
namespace {

constexpr std::string_view kSuffix = ".ics";
constexpr std::string_view kLockName = ".zorel.lock";
/// Larger files are not looked into: an event of the pane has half a kilobyte.
constexpr std::size_t kFileLimit = 256UL * 1024;
constexpr std::size_t kIdentifierLimit = 200;

/// Whether an identifier can be a file name in every file system and every synchronising program.
bool isPlain(std::string_view identifier) {
    constexpr std::string_view allowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.+-@";
    return !identifier.empty() && identifier.size() <= kIdentifierLimit && identifier.front() != '.' &&
           identifier.find_first_not_of(allowed) == std::string_view::npos;
}

std::string fileName(const std::string& identifier) {
    return identifier + std::string(kSuffix);
}

/// Whether a change to a file was done; `error`: out, what was not done and why.
bool done(std::error_code result, std::string_view what, const std::string& path, std::string& error) {
    if (result) {
        error = std::string(what) + " " + path + ": " + result.message();
    }
    return !result;
}

} // namespace

FolderCalendar::FolderCalendar(std::string folder) : folder_(std::move(folder)) {
    if (std::error_code ignored; std::filesystem::is_directory(folder_, ignored)) {
        const FileLock lock(pathOf(kLockName));
        if (lock.state() == LockState::acquired) {
            sweepTemporaryFiles(folder_);
        }
    }
}

std::string FolderCalendar::pathOf(std::string_view name) const {
    return folder_ + "/" + std::string(name);
}

EKCalendar FolderCalendar::description() const {
    const auto name = readSmallFile(pathOf("displayname"), kIdentifierLimit);
    return {folder_, name && !name->empty() ? *name : std::string(kCalendarName)};
}

std::vector<std::string> FolderCalendar::fileNames() const {
    std::vector<std::string> names;
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(folder_, ignored), end; entry != end;
         entry.increment(ignored)) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(kSuffix) && !name.starts_with('.')) {
            names.push_back(std::move(name));
        }
    }
    std::ranges::sort(names);
    return names;
}

std::optional<FolderCalendar::Entry> FolderCalendar::entryInFile(const std::string& name,
                                                                 const std::string& identifier) const {
    auto text = readSmallFile(pathOf(name), kFileLimit);
    if (!text) {
        return std::nullopt;
    }
    auto event = eventFromIcs(*text);
    if (!event || event->eventIdentifier != identifier) {
        return std::nullopt;
    }
    event->calendar = description();
    return Entry{name, std::move(*text), std::move(*event)};
}

std::optional<FolderCalendar::Entry> FolderCalendar::find(const std::string& identifier) const {
    if (isPlain(identifier)) {
        if (auto entry = entryInFile(fileName(identifier), identifier)) {
            return entry;
        }
    }
    // Another program may have given the file another name.
    for (const std::string& name : fileNames()) {
        if (auto entry = entryInFile(name, identifier)) {
            return entry;
        }
    }
    return std::nullopt;
}

std::optional<EKEvent> FolderCalendar::eventWithIdentifier(const std::string& identifier) {
    auto entry = find(identifier);
    return entry ? std::optional(std::move(entry->event)) : std::nullopt;
}

bool FolderCalendar::makeFolder(std::string& error) const {
    std::error_code ignored;
    if (std::filesystem::is_directory(folder_, ignored)) {
        return true;
    }
    if (!createDirectoryAtPath(folder_)) {
        error = "cannot make the folder " + folder_;
        return false;
    }
    // A folder without a name or colour still works, so that a failure here does no harm.
    static_cast<void>(replaceFile(pathOf("displayname"), kCalendarName));
    static_cast<void>(replaceFile(pathOf("color"), kCalendarColor));
    return true;
}

bool FolderCalendar::saveEvent(const EKEvent& event, std::string& error) {
    if (!makeFolder(error)) {
        return false;
    }
    const FileLock lock(pathOf(kLockName));
    const EKEvent wanted = withEndAfterStart(event);
    const auto present = find(wanted.eventIdentifier);
    if (present && sameEvent(present->event, wanted)) {
        return true;
    }
    if (!present && !isPlain(wanted.eventIdentifier)) {
        error = "the identifier cannot be a file name: " + wanted.eventIdentifier;
        return false;
    }
    const auto text = icsFromEvent(wanted, present ? present->text : std::string(), now());
    if (!text) {
        error = "the event cannot be written as iCalendar text";
        return false;
    }
    const std::string path = pathOf(present ? present->name : fileName(wanted.eventIdentifier));
    return done(replaceFile(path, *text), "cannot write", path, error);
}

bool FolderCalendar::removeEvent(const std::string& identifier, std::string& error) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder_, ignored)) {
        error = "there is no folder " + folder_;
        return false;
    }
    const FileLock lock(pathOf(kLockName));
    const auto present = find(identifier);
    if (!present) {
        error = "there is no event " + identifier;
        return false;
    }
    const std::string path = pathOf(present->name);
    return done(removeFile(path), "cannot remove", path, error);
}

std::vector<std::string> FolderCalendar::identifiersWithPrefix(const std::string& prefix) {
    std::vector<std::string> identifiers;
    for (std::string& name : fileNames()) {
        if (name.starts_with(prefix)) {
            name.resize(name.size() - kSuffix.size());
            identifiers.push_back(std::move(name));
        }
    }
    return identifiers;
}

} // namespace zorel
