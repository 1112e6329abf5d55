// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/FolderCalendar.h"

#include "platform/eventkit/GnomeSource.h"
#include "platform/eventkit/IcsEvent.h"
#include "platform/eventkit/IcsLines.h"
#include "platform/eventkit/OneFile.h"
#include "platform/foundation/FileLock.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"
#include "words/Tr.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>
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

bool isMissing(std::error_code error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

/// Whether a file that could not be read holds no event for certain.
bool isNoEvent(std::error_code error) {
    return isMissing(error) || error == std::errc::file_too_large || error == std::errc::not_supported;
}

/// Whether the folder may be changed; `error`: out, why not.
bool held(const FileLock& lock, std::string& error) {
    if (lock.state() == LockState::busy) {
        error = tr("another program is working on the calendar");
    } else if (lock.state() == LockState::cannotLock) {
        error = tr("cannot lock the calendar: {}", lock.error().message());
    }
    return lock.state() == LockState::acquired;
}

enum class Doing { reading, writing, removing };

/// Whether a change to a file was done; `error`: out, what was not done and why.
bool done(std::error_code result, Doing what, const std::string& path, std::string& error) {
    if (result) {
        error = what == Doing::reading   ? tr("cannot read {0}: {1}", path, result.message())
                : what == Doing::writing ? tr("cannot write {0}: {1}", path, result.message())
                                         : tr("cannot remove {0}: {1}", path, result.message());
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
    std::error_code error;
    std::filesystem::directory_iterator entry(folder_, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(kSuffix) && !name.starts_with('.')) {
            names.push_back(std::move(name));
        }
    }
    if (error && !isMissing(error)) {
        throw std::runtime_error(tr("cannot read the folder {0}: {1}", folder_, error.message()));
    }
    std::ranges::sort(names);
    return names;
}

std::optional<std::string> FolderCalendar::textOf(const std::string& name, std::string_view ours) const {
    std::error_code error;
    auto text = readSmallFile(pathOf(name), kFileLimit, error);
    if (!text && name.starts_with(ours) && !isNoEvent(error)) {
        throw std::runtime_error(tr("cannot read {0}: {1}", pathOf(name), error.message()));
    }
    return text;
}

std::optional<FolderCalendar::File> FolderCalendar::fileOf(const std::string& identifier) const {
    const std::string usual = fileName(identifier);
    const auto holds = [&](const std::string& name) -> std::optional<File> {
        auto text = textOf(name, usual);
        const bool is = text && onlyUidOf(*text) == identifier;
        return is ? std::optional(File{name, *std::move(text)}) : std::nullopt;
    };
    if (isPlain(identifier)) {
        if (auto file = holds(usual)) {
            return file;
        }
    }
    // Another program may have given the file another name.
    for (const std::string& name : fileNames()) {
        if (auto file = holds(name)) {
            return file;
        }
    }
    return std::nullopt;
}

std::optional<FolderCalendar::Entry> FolderCalendar::find(const std::string& identifier) const {
    auto file = fileOf(identifier);
    auto event = file ? eventFromIcs(file->text) : std::nullopt;
    if (!event) {
        return std::nullopt;
    }
    event->calendar = description();
    return Entry{*std::move(file), *std::move(event)};
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
        error = tr("cannot make the folder {}", folder_);
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
    if (!held(lock, error)) {
        return false;
    }
    const EKEvent wanted = withEndAfterStart(event);
    const auto present = find(wanted.eventIdentifier);
    if (present && sameEvent(present->event, wanted)) {
        return true;
    }
    if (!present && !isPlain(wanted.eventIdentifier)) {
        error = tr("the identifier cannot be a file name: {}", wanted.eventIdentifier);
        return false;
    }
    const auto text = icsFromEvent(wanted, present ? present->file.text : std::string(), now());
    if (!text) {
        error = tr("the event cannot be written as iCalendar text");
        return false;
    }
    const std::string path = pathOf(present ? present->file.name : fileName(wanted.eventIdentifier));
    return done(replaceFile(path, *text), Doing::writing, path, error);
}

bool FolderCalendar::removeEvent(const std::string& identifier, std::string& error) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder_, ignored)) {
        error = tr("there is no folder {}", folder_);
        return false;
    }
    const FileLock lock(pathOf(kLockName));
    if (!held(lock, error)) {
        return false;
    }
    const auto present = fileOf(identifier);
    if (!present) {
        error = tr("there is no event {}", identifier);
        return false;
    }
    const std::string path = pathOf(present->name);
    return done(removeFile(path), Doing::removing, path, error);
}

bool FolderCalendar::publish(std::string& error) {
    std::error_code unreadable;
    const bool isConnected = isGnomeConnected(folder_, unreadable);
    if (!done(unreadable, Doing::reading, gnomeSourcePath(), error)) {
        return false;
    }
    return !isConnected || isOneFileInStep(folder_) ||
           done(writeOneFile(folder_), Doing::writing, oneFileOf(folder_), error);
}

bool FolderCalendar::isPublished() {
    std::error_code unreadable;
    const bool isConnected = isGnomeConnected(folder_, unreadable);
    return !unreadable && (!isConnected || isOneFileInStep(folder_));
}

std::vector<std::string> FolderCalendar::identifiersWithPrefix(const std::string& prefix) {
    std::set<std::string> identifiers;
    for (const std::string& name : fileNames()) {
        const auto text = textOf(name, prefix);
        auto identifier = text ? onlyUidOf(*text) : std::nullopt;
        if (identifier && identifier->starts_with(prefix)) {
            identifiers.insert(*std::move(identifier));
        }
    }
    return {identifiers.begin(), identifiers.end()};
}

} // namespace zorel
