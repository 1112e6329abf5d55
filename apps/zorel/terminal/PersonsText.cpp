// SPDX-License-Identifier: Apache-2.0
#include "terminal/PersonsText.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <array>

namespace zorel::cli {

namespace {
constexpr std::string_view kIsolate = "\xE2\x81\xA6";      // U+2066, left to right
constexpr std::string_view kEndOfIsolate = "\xE2\x81\xA9"; // U+2069

bool isDigit(char32_t code) {
    return code >= '0' && code <= '9';
}

bool isLatin(char32_t code) {
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0x24F);
}

/// Signs that may begin a figure or an option.
bool isSign(char32_t code) {
    return code == '+' || code == '-' || code == '~' || code == '/' || code == 0x2212;
}

/// What may stand within a run, beside letters and digits.
bool isWithin(char32_t code) {
    return (code >= 0x20 && code < 0x7F) || code == 0xB0 || code == 0xB1 || code == 0x2032 || code == 0x2019;
}

std::string utf8(char32_t code) {
    std::string text;
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | (code >> 6U));
        text += static_cast<char>(0x80 | (code & 0x3FU));
    } else {
        text += static_cast<char>(0xE0 | (code >> 12U));
        text += static_cast<char>(0x80 | ((code >> 6U) & 0x3FU));
        text += static_cast<char>(0x80 | (code & 0x3FU));
    }
    return text;
}

std::string inDigits(std::string_view run, char32_t zero) {
    std::string text;
    for (const char character : run) {
        text += isDigit(static_cast<unsigned char>(character)) ? utf8(zero + (character - '0'))
                                                               : std::string(1, character);
    }
    return text;
}

/// "\x1b[1m" at the beginning of a text: the bytes that it takes, else 0.
std::size_t escapeAt(std::string_view text) {
    if (!text.starts_with("\x1b[")) {
        return 0;
    }
    const std::size_t end = text.find_first_of("mKJHABCD", 2);
    return end == std::string_view::npos ? text.size() : end + 1;
}

struct Run {
    std::size_t bytes = 0;
    bool latin = false;
    bool signs = false; ///< something beside digits
};

/// Without the blanks and marks at its end that belong to the sentence around it. A closing bracket stays
/// where its opening one is within.
std::string_view trimmed(std::string_view run) {
    while (!run.empty()) {
        const char last = run.back();
        const bool closes = last == ')' || last == ']' || last == '}';
        const char opener = last == ')' ? '(' : last == ']' ? '[' : '{';
        const bool mark = std::string_view(" .,;:!?\"'|([{").find(last) != std::string_view::npos;
        if (!mark && !(closes && run.find(opener) == std::string_view::npos)) {
            break;
        }
        if (last == '"' && std::ranges::count(run, '"') % 2 == 0) {
            break;
        }
        run.remove_suffix(1);
    }
    return run;
}

/// The run that begins a text; no bytes where none does.
Run runAt(std::string_view text) {
    const Utf8Character first = firstCharacter(text);
    const Utf8Character second =
        text.size() > first.bytes ? firstCharacter(text.substr(first.bytes)) : Utf8Character{};
    if (!isDigit(first.code) && !isLatin(first.code) &&
        !(isSign(first.code) && (isDigit(second.code) || isLatin(second.code) || second.code == '-'))) {
        return {};
    }
    std::size_t end = 0;
    while (end < text.size() && !text.substr(end).starts_with("  ")) {
        const Utf8Character next = firstCharacter(text.substr(end));
        if (!isLatin(next.code) && !isWithin(next.code)) {
            break;
        }
        end += next.bytes;
    }
    const std::string_view kept = trimmed(text.substr(0, end));
    Run run{kept.size()};
    for (std::string_view rest = kept; !rest.empty(); rest.remove_prefix(firstCharacter(rest).bytes)) {
        const char32_t code = firstCharacter(rest).code;
        run.latin = run.latin || isLatin(code);
        run.signs = run.signs || !isDigit(code);
    }
    return run;
}
} // namespace

char32_t nativeZero(std::string_view language) {
    struct Script {
        std::string_view language;
        char32_t zero;
    };
    constexpr std::array kScripts{Script{"ar", 0x660}, Script{"bn", 0x9E6}, Script{"fa", 0x6F0},
                                  Script{"ur", 0x6F0}};
    const auto* const found =
        std::ranges::find(kScripts, language.substr(0, language.find('_')), &Script::language);
    return found == kScripts.end() ? U'0' : found->zero;
}

std::string written(std::string_view line, Writing writing) {
    std::string text;
    while (!line.empty()) {
        if (const std::size_t escape = escapeAt(line); escape > 0) {
            text += line.substr(0, escape);
            line.remove_prefix(escape);
            continue;
        }
        const Run run = runAt(line);
        if (run.bytes == 0) {
            const std::size_t bytes = firstCharacter(line).bytes;
            text += line.substr(0, bytes);
            line.remove_prefix(bytes);
            continue;
        }
        const std::string_view kept = line.substr(0, run.bytes);
        const bool isolate = writing.rightToLeft && run.signs;
        text += isolate ? kIsolate : std::string_view();
        text += run.latin || writing.zero == U'0' ? std::string(kept) : inDigits(kept, writing.zero);
        text += isolate ? kEndOfIsolate : std::string_view();
        line.remove_prefix(run.bytes);
    }
    return text;
}

PersonsStream::PersonsStream(std::ostream& target, Writing writing)
    : std::ostream(static_cast<std::streambuf*>(this)), target_(target), writing_(writing) {}

PersonsStream::~PersonsStream() {
    pass();
}

void PersonsStream::pass() {
    target_ << written(line_, writing_);
    line_.clear();
}

PersonsStream::int_type PersonsStream::overflow(int_type character) {
    if (character == traits_type::eof()) {
        return 0;
    }
    line_ += static_cast<char>(character);
    if (character == '\n') {
        pass();
    }
    return target_.good() ? character : traits_type::eof();
}

int PersonsStream::sync() {
    pass();
    target_.flush();
    return target_.good() ? 0 : -1;
}

} // namespace zorel::cli
