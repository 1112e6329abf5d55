// SPDX-License-Identifier: Apache-2.0
/// @file
/// A calendar in a folder of iCalendar files (the vdir convention of khal, vdirsyncer and others).
#pragma once

#include "platform/eventkit/Calendar.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

/// One file for each event, named after its UID, so that any synchronising program can carry the folder to a
/// phone.
///
/// Changes are atomic and durable. A folder that is missing is made at the first save, with the files
/// "displayname" and "color". An event that says the same as before is not written again. Files of other
/// programs, broken files, folders and pipes among them are left alone; so are files that hold more than one
/// event. An event is known by its UID, whatever its file is called; a file without the UID that is looked
/// for is not parsed. Source: RFC 5545, RFC 7986.
class FolderCalendar final : public Calendar {
public:
    /// Removes what an interrupted write left in the folder.
    explicit FolderCalendar(std::string folder);

    [[nodiscard]] const std::string& folder() const { return folder_; }

    [[nodiscard]] EKCalendar description() const override;
    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(const std::string& identifier) override;
    bool saveEvent(const EKEvent& event, std::string& error) override;
    bool removeEvent(const std::string& identifier, std::string& error) override;
    [[nodiscard]] std::vector<std::string> identifiersWithPrefix(const std::string& prefix) override;
    /// Brings GNOME's file in step (GnomeSource.h).
    bool publish(std::string& error) override;
    [[nodiscard]] bool isPublished() override;

private:
    struct File {
        std::string name;
        std::string text;
    };
    /// A file and the event in it.
    struct Entry {
        File file;
        EKEvent event;
    };

    [[nodiscard]] std::string pathOf(std::string_view name) const;
    [[nodiscard]] std::vector<std::string> fileNames() const;
    /// Throws where a file cannot be read whose name begins with `ours`.
    [[nodiscard]] std::optional<std::string> textOf(const std::string& name, std::string_view ours) const;
    /// The file whose only UID this is. Nothing is parsed for that.
    [[nodiscard]] std::optional<File> fileOf(const std::string& identifier) const;
    [[nodiscard]] std::optional<Entry> find(const std::string& identifier) const;
    bool makeFolder(std::string& error) const;

    std::string folder_;
};

} // namespace zorel
