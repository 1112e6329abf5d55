// SPDX-License-Identifier: Apache-2.0
/// @file
/// Text for a person on its last way to the terminal: in a language that is written from right to left, what
/// is Latin within its lines keeps its order; numbers get the digits of the language where they were asked
/// for. Columns have been measured before, and what programs read never comes here.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace zorel::cli {

/// The digits of a language's own script, by their zero (CLDR's numbering system "native": Arabic U+0660,
/// Persian and Urdu U+06F0, Bengali U+09E6); '0' for a language that writes Latin ones.
[[nodiscard]] char32_t nativeZero(std::string_view language);

struct Writing {
    bool rightToLeft = false;
    char32_t zero = U'0';
};

/// A line as it is written. Latin words and figures with signs in them ("2026-11-21", "zorel today PLACE",
/// "+1") stand between U+2066 and U+2069: after an Arabic letter their parts would change places else (UAX
/// #9, W2 and W5). Two blanks part columns, which are not held together. Digits among Latin letters stay as
/// they are: they are names, options, zones.
[[nodiscard]] std::string written(std::string_view line, Writing writing);

/// A stream that writes each line so, to another stream.
class PersonsStream : private std::streambuf, public std::ostream {
public:
    PersonsStream(std::ostream& target, Writing writing);
    ~PersonsStream() override;
    PersonsStream(const PersonsStream&) = delete;
    PersonsStream& operator=(const PersonsStream&) = delete;

private:
    using int_type = std::streambuf::int_type;
    using traits_type = std::streambuf::traits_type;

    int_type overflow(int_type character) override;
    int sync() override;
    void pass();

    std::ostream& target_;
    Writing writing_;
    std::string line_;
};

} // namespace zorel::cli
