// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/OneFile.h"

#include "platform/eventkit/IcsEvent.h"
#include "platform/eventkit/IcsLines.h"
#include "platform/foundation/Files.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

namespace zorel {
namespace {

constexpr std::string_view kBegin = "BEGIN:VEVENT\r\n";
constexpr std::string_view kEnd = "END:VEVENT\r\n";
constexpr std::string_view kOwn =
    "zorel-"; ///< the beginning of our UIDs, and of the names that we give files
constexpr std::size_t kFileLimit = 256UL * 1024;
constexpr std::size_t kOneFileLimit = 64 * kFileLimit;

std::vector<std::string> fileNames(const std::string& folder, std::error_code& error) {
    std::vector<std::string> names;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(".ics") && !name.starts_with('.')) {
            names.push_back(std::move(name));
        }
    }
    if (error == std::errc::no_such_file_or_directory) {
        error.clear();
    }
    std::ranges::sort(names);
    return names;
}

bool isOurs(const std::string& text) {
    const auto uid = onlyUidOf(text);
    return uid && uid->starts_with(kOwn);
}

/// The event of a file as it stands there; empty when the file holds none.
std::string eventText(const std::string& text) {
    const auto begin = text.find(kBegin);
    const auto end = text.rfind(kEnd);
    const bool isEvent = begin != std::string::npos && end != std::string::npos && begin < end;
    return isEvent ? text.substr(begin, end + kEnd.size() - begin) : std::string();
}

std::string calendarOf(const std::string& events) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Zorel//Prayer alarms//EN\r\nNAME:" +
           std::string(kCalendarName) + "\r\n" + events + "END:VCALENDAR\r\n";
}

/// What the file has to hold. A file that cannot be read is not taken for none, unless it is another's.
std::string textOf(const std::string& folder, std::error_code& error) {
    std::string events;
    for (const std::string& name : fileNames(folder, error)) {
        std::error_code unreadable;
        const auto file = readSmallFile(folder + "/" + name, kFileLimit, unreadable);
        if (!file && name.starts_with(kOwn) && unreadable != std::errc::no_such_file_or_directory) {
            error = unreadable;
        }
        events += file && isOurs(*file) ? eventText(*file) : std::string();
    }
    return calendarOf(events);
}

} // namespace

std::string oneFileOf(const std::string& folder) {
    return folder + ".ics";
}

std::error_code writeOneFile(const std::string& folder) {
    std::error_code error;
    const std::string text = textOf(folder, error);
    return error ? error : replaceFile(oneFileOf(folder), text);
}

std::error_code emptyOneFile(const std::string& folder) {
    return replaceFile(oneFileOf(folder), calendarOf(""));
}

bool isOneFileInStep(const std::string& folder) {
    std::error_code error;
    const std::string text = textOf(folder, error);
    return !error && readSmallFile(oneFileOf(folder), kOneFileLimit) == text;
}

} // namespace zorel
