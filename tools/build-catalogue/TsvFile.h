// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tab-separated text: UTF-8, one header line, LF line ends, no quoting, an empty field for a missing value.
#pragma once

#include "tools/build-catalogue/Problems.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorel::catalogue {

/// Name of a source file and its columns, as its header line has to give them.
struct TsvLayout {
    std::string_view file;
    std::span<const std::string_view> columns;
};

/// One data line. The fields point into the file's text.
struct TsvRow {
    std::string_view file;
    std::size_t line = 0; ///< from 1
    std::span<const std::string_view> fields;
};

/// Hands over the names of a list that is separated by commas; empty ones are none.
template <typename Take> void forEachName(std::string_view list, Take take) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        if (end > 0) {
            take(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

/// The bytes of a file; nothing when it is no readable file.
[[nodiscard]] std::optional<std::vector<char>> readBytes(const std::filesystem::path& path);

/// A source file held in memory. Rows stay valid while the object (or the one it was moved to) lives.
class TsvFile {
public:
    /// Reads `folder`/`layout.file`. Nothing when it cannot be read, which is then added to `problems`.
    static std::optional<TsvFile> read(const std::filesystem::path& folder, const TsvLayout& layout,
                                       Problems& problems);
    /// The same from text already in memory.
    static TsvFile fromText(std::string_view text, const TsvLayout& layout);

    /// Hands over every data line that has the right number of fields and is well-formed UTF-8 without
    /// control characters; adds the others, and a wrong header, to `problems`.
    void forEachRow(Problems& problems, const std::function<void(const TsvRow&)>& take) const;

private:
    TsvFile(std::vector<char> text, const TsvLayout& layout) : text_(std::move(text)), layout_(layout) {}
    [[nodiscard]] bool headerFits(std::string_view line) const;
    void takeLine(std::string_view line, std::size_t number, Problems& problems,
                  const std::function<void(const TsvRow&)>& take) const;

    std::vector<char> text_;
    TsvLayout layout_;
};

} // namespace zorel::catalogue
