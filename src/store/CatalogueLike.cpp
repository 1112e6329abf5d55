// SPDX-License-Identifier: Apache-2.0
#include "store/CatalogueLike.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <sqlite3.h>

namespace zorel {

namespace {

constexpr char kAnyText = '%';

char lowerCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

char upperCase(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

/// How rare a byte is in the catalogue's names; the larger the rarer.
std::size_t rarity(char byte) {
    constexpr std::string_view kLettersByFrequency = "aeinorltsuhmdgkbcyvpzwfjxq";
    constexpr std::size_t kFirstByteOfCharacter = 8; // one script has few of them
    constexpr std::size_t kFurtherByteOfCharacter = 30;
    constexpr std::size_t kOtherAscii = 12;
    const auto value = static_cast<unsigned char>(byte);
    if (value >= 0x80) {
        return value >= 0xC0 ? kFirstByteOfCharacter : kFurtherByteOfCharacter;
    }
    const std::size_t position = kLettersByFrequency.find(byte);
    return position == std::string_view::npos ? kOtherAscii : position;
}

/// What is kept of a pattern from row to row.
struct PreparedPattern {
    std::optional<ContainedText> contained;
};

bool isTooLong(sqlite3_context* context, sqlite3_value* pattern) {
    sqlite3* const connection = sqlite3_context_db_handle(context);
    return sqlite3_value_bytes(pattern) > sqlite3_limit(connection, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, -1);
}

void forget(void* pattern) {
    delete static_cast<PreparedPattern*>(pattern);
}

std::string_view bytesOf(sqlite3_value* value) {
    const auto* const bytes = static_cast<const char*>(sqlite3_value_blob(value));
    return {bytes, bytes != nullptr ? static_cast<std::size_t>(sqlite3_value_bytes(value)) : 0};
}

const char* textOf(sqlite3_value* value) {
    return reinterpret_cast<const char*>(sqlite3_value_text(value));
}

/// The pattern as the statement's rows before this one have left it, or made from the argument; nothing when
/// the argument is none.
const PreparedPattern* preparedPattern(sqlite3_context* context, sqlite3_value* pattern) {
    if (const void* kept = sqlite3_get_auxdata(context, 0)) {
        return static_cast<const PreparedPattern*>(kept);
    }
    if (sqlite3_value_type(pattern) == SQLITE_NULL) {
        return nullptr;
    }
    if (isTooLong(context, pattern)) {
        sqlite3_result_error(context, "LIKE pattern too long", -1);
        return nullptr;
    }
    auto prepared = std::make_unique<PreparedPattern>();
    if (ContainedText::isPatternOf(bytesOf(pattern))) {
        prepared->contained.emplace(bytesOf(pattern));
    }
    sqlite3_set_auxdata(context, 0, prepared.release(), &forget);
    return static_cast<const PreparedPattern*>(sqlite3_get_auxdata(context, 0));
}

/// LIKE as SQLite calls it: pattern, then name. NULL has no answer.
void like(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const PreparedPattern* const prepared = preparedPattern(context, values[0]);
    const std::string_view name = bytesOf(values[1]);
    if (prepared == nullptr || (name.empty() && sqlite3_value_type(values[1]) == SQLITE_NULL)) {
        return;
    }
    const bool found = prepared->contained ? prepared->contained->isIn(name)
                                           : sqlite3_strlike(textOf(values[0]), textOf(values[1]), 0) == 0;
    sqlite3_result_int(context, found ? 1 : 0);
}

} // namespace

bool ContainedText::isPatternOf(std::string_view pattern) {
    return pattern.size() > 2 && pattern.front() == kAnyText && pattern.back() == kAnyText;
}

ContainedText::ContainedText(std::string_view pattern) : text_(pattern.substr(1, pattern.size() - 2)) {
    std::ranges::transform(text_, text_.begin(), lowerCase);
    rarestAt_ = static_cast<std::size_t>(std::ranges::max_element(text_, {}, rarity) - text_.begin());
}

bool ContainedText::isIn(std::string_view name, char rarest) const {
    for (std::size_t at = name.find(rarest, rarestAt_); at != std::string_view::npos;
         at = name.find(rarest, at + 1)) {
        const std::string_view part = name.substr(at - rarestAt_, text_.size());
        if (std::ranges::equal(part, text_, {}, lowerCase)) {
            return true;
        }
    }
    return false;
}

bool ContainedText::isIn(std::string_view name) const {
    const char rarest = text_[rarestAt_];
    return isIn(name, rarest) || (upperCase(rarest) != rarest && isIn(name, upperCase(rarest)));
}

void useCatalogueLike(sqlite3* connection) {
    sqlite3_create_function(connection, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                            nullptr, &like, nullptr, nullptr);
}

} // namespace zorel
