// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/TsvFile.h"

#include "tools/build-catalogue/Utf8.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <fstream>

namespace zorel::catalogue {

namespace {

std::vector<std::string_view> split(std::string_view line, char separator) {
    std::vector<std::string_view> fields;
    for (std::size_t end = line.find(separator); end != std::string_view::npos; end = line.find(separator)) {
        fields.push_back(line.substr(0, end));
        line.remove_prefix(end + 1);
    }
    fields.push_back(line);
    return fields;
}

/// Takes the first line off `text`.
std::string_view takeFirstLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace

std::optional<std::vector<char>> readBytes(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream) {
        return std::nullopt;
    }
    std::vector<char> bytes(size);
    stream.read(bytes.data(), static_cast<std::streamsize>(size));
    return stream ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<TsvFile> TsvFile::read(const std::filesystem::path& folder, const TsvLayout& layout,
                                     Problems& problems) {
    auto text = readBytes(folder / layout.file);
    if (!text) {
        problems.add((folder / layout.file).string(), 0, "cannot be read");
        return std::nullopt;
    }
    return TsvFile(std::move(*text), layout);
}

TsvFile TsvFile::fromText(std::string_view text, const TsvLayout& layout) {
    return {std::vector<char>(text.begin(), text.end()), layout};
}

bool TsvFile::headerFits(std::string_view line) const {
    const auto names = split(line, '\t');
    return std::equal(names.begin(), names.end(), layout_.columns.begin(), layout_.columns.end());
}

void TsvFile::takeLine(std::string_view line, std::size_t number, Problems& problems,
                       const std::function<void(const TsvRow&)>& take) const {
    if (!isCleanText(line)) {
        problems.add(layout_.file, number, "not well-formed UTF-8 text, or a control character");
        return;
    }
    const auto fields = split(line, '\t');
    if (fields.size() != layout_.columns.size()) {
        problems.add(layout_.file, number,
                     fmt::format("{} columns instead of {}", fields.size(), layout_.columns.size()));
        return;
    }
    take({layout_.file, number, fields});
}

void TsvFile::forEachRow(Problems& problems, const std::function<void(const TsvRow&)>& take) const {
    std::string_view rest(text_.data(), text_.size());
    if (!headerFits(takeFirstLine(rest))) {
        problems.add(layout_.file, 1,
                     fmt::format("the header is not \"{}\"", fmt::join(layout_.columns, " ")));
        return;
    }
    for (std::size_t number = 2; !rest.empty(); ++number) {
        takeLine(takeFirstLine(rest), number, problems, take);
    }
}

} // namespace zorel::catalogue
