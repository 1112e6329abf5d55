// SPDX-License-Identifier: Apache-2.0
#include "platform/eventkit/OneFile.h"

#include "platform/eventkit/IcsEvent.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/Locations.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace zorel {
namespace {

constexpr std::string_view kBegin = "BEGIN:VEVENT\r\n";
constexpr std::string_view kEnd = "END:VEVENT\r\n";
constexpr std::string_view kOwnFiles = "zorel-";
constexpr std::size_t kFileLimit = 256UL * 1024;

std::vector<std::string> ownFiles(const std::string& folder, std::error_code& error) {
    std::vector<std::string> paths;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(kOwnFiles) && name.ends_with(".ics")) {
            paths.push_back(entry->path().string());
        }
    }
    std::ranges::sort(paths);
    return paths;
}

/// The event of a file as it stands there; empty when the file holds none.
std::string eventText(const std::string& text) {
    const auto begin = text.find(kBegin);
    const auto end = text.rfind(kEnd);
    const bool isEvent = begin != std::string::npos && end != std::string::npos && begin < end;
    return isEvent ? text.substr(begin, end + kEnd.size() - begin) : std::string();
}

} // namespace

std::string oneFileOf(const std::string& folder) {
    return folder + ".ics";
}

std::error_code writeOneFile(const std::string& folder) {
    std::error_code error;
    std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Zorel//Prayer alarms//EN\r\nNAME:" +
                       std::string(kCalendarName) + "\r\n";
    for (const std::string& path : ownFiles(folder, error)) {
        std::error_code unreadable;
        const auto file = readSmallFile(path, kFileLimit, unreadable);
        if (!file && unreadable != std::errc::no_such_file_or_directory) {
            return unreadable;
        }
        text += file ? eventText(*file) : std::string();
    }
    const bool isRead = !error || error == std::errc::no_such_file_or_directory;
    return isRead ? replaceFile(oneFileOf(folder), text + "END:VCALENDAR\r\n") : error;
}

std::error_code keepOneFile(const std::string& folder) {
    return fileExistsAtPath(oneFileOf(folder)) ? writeOneFile(folder) : std::error_code();
}

} // namespace zorel
