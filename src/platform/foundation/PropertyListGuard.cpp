// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/PropertyListGuard.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zorel {
namespace {

/// Layout of the last 32 bytes: six unused, two integer sizes, then three 64-bit numbers, big end first.
constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kTrailerSize = 32;
constexpr std::uint8_t kAsciiText = 0x5;
constexpr std::uint8_t kWideText = 0x6; ///< UTF-16, big end first
constexpr std::uint8_t kArray = 0xA;
constexpr std::uint8_t kDictionary = 0xD;
constexpr std::uint8_t kCountFollows = 0xF;

struct Object {
    std::uint8_t type = 0;
    std::uint64_t count = 0;
    std::size_t content = 0; ///< position of what follows marker and count

    [[nodiscard]] bool isContainer() const { return type >= kArray && type <= kDictionary; }
    [[nodiscard]] std::uint64_t references() const { return type == kDictionary ? 2 * count : count; }
};

/// Walks the object table of a binary property list without building anything.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {
        const std::size_t trailer = bytes.size() - kTrailerSize;
        offsetSize_ = number(trailer + 6, 1).value_or(0);
        referenceSize_ = number(trailer + 7, 1).value_or(0);
        objects_ = number(trailer + 8, 8).value_or(0);
        top_ = number(trailer + 16, 8).value_or(0);
        table_ = number(trailer + 24, 8).value_or(0);
    }

    [[nodiscard]] bool isTree() {
        if (objects_ > bytes_.size() || table_ > bytes_.size() || top_ >= objects_) {
            return false;
        }
        referredTo_.assign(objects_, false);
        referredTo_[top_] = true;
        for (std::uint64_t index = 0; index < objects_; ++index) {
            if (!visit(index)) {
                return false;
            }
        }
        return true;
    }

private:
    [[nodiscard]] std::optional<std::uint64_t> number(std::size_t position, std::uint64_t size) const {
        if (size == 0 || size > 8 || position > bytes_.size() || bytes_.size() - position < size) {
            return std::nullopt;
        }
        std::uint64_t value = 0;
        for (const char byte : bytes_.substr(position, size)) {
            value = value << 8 | static_cast<std::uint8_t>(byte);
        }
        return value;
    }

    [[nodiscard]] std::optional<Object> object(std::uint64_t index) const {
        const auto position = number(table_ + index * offsetSize_, offsetSize_);
        const auto marker = position && *position < bytes_.size() ? number(*position, 1) : std::nullopt;
        if (!marker) {
            return std::nullopt;
        }
        const auto type = static_cast<std::uint8_t>(*marker >> 4);
        const auto low = static_cast<std::uint8_t>(*marker & 0xF);
        return low == kCountFollows ? countedObject(type, *position + 1) : Object{type, low, *position + 1};
    }

    /// The count is an integer object of its own: its marker's low half says how many bytes follow, as a
    /// power of 2.
    [[nodiscard]] std::optional<Object> countedObject(std::uint8_t type, std::size_t position) const {
        const auto marker = number(position, 1);
        const std::uint64_t size = marker ? std::uint64_t{1} << (*marker & 0x7) : 0;
        const auto count = number(position + 1, size);
        if (!count || *count > bytes_.size()) {
            return std::nullopt;
        }
        return Object{type, *count, position + 1 + size};
    }

    [[nodiscard]] bool visit(std::uint64_t index) {
        const auto visited = object(index);
        if (!visited || !isWithoutZeros(*visited)) {
            return false;
        }
        containers_ += visited->isContainer() ? 1 : 0;
        return containers_ <= kMostPropertyContainers &&
               (!visited->isContainer() || visitReferences(*visited));
    }

    /// Whether no character of a text is a zero, on which libplist would end the program.
    [[nodiscard]] bool isWithoutZeros(const Object& object) const {
        const bool isText = object.type == kAsciiText || object.type == kWideText;
        const std::uint64_t width = object.type == kWideText ? 2 : 1;
        for (std::uint64_t i = 0; isText && i < object.count; ++i) {
            if (number(object.content + i * width, width).value_or(0) == 0) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool visitReferences(const Object& container) {
        for (std::uint64_t i = 0; i < container.references(); ++i) {
            const auto reference = number(container.content + i * referenceSize_, referenceSize_);
            if (!reference || *reference >= objects_ || !refer(*reference)) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool refer(std::uint64_t index) {
        const auto target = object(index);
        if (!target || (target->isContainer() && referredTo_[index])) {
            return false;
        }
        referredTo_[index] = true;
        copied_ += target->isContainer() ? 0 : target->count + 1;
        return copied_ <= kLargestPropertyContent;
    }

    std::string_view bytes_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t objects_ = 0;
    std::uint64_t top_ = 0;
    std::uint64_t table_ = 0;
    std::vector<bool> referredTo_;
    std::size_t containers_ = 0;
    std::uint64_t copied_ = 0;
};

std::size_t countOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

} // namespace

bool isBinaryPropertyList(std::string_view bytes) {
    return bytes.starts_with("bplist");
}

bool isHarmlessPropertyList(std::string_view bytes) {
    if (bytes.size() > kLargestPropertyList) {
        return false;
    }
    if (!isBinaryPropertyList(bytes)) {
        return bytes.find('\0') == std::string_view::npos &&
               countOf("<dict", bytes) + countOf("<array", bytes) <= kMostPropertyContainers;
    }
    return bytes.size() >= kHeaderSize + kTrailerSize && BinaryWalk(bytes).isTree();
}

} // namespace zorel
