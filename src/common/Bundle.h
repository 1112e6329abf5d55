// SPDX-License-Identifier: Apache-2.0
/// @file
/// The bundle as those know it who only read its catalogue: where it lies, and how its stored values are
/// read. Nothing here knows of languages or views, so that a program that looks a city up needs none of
/// either.
#pragma once

#include <string>
#include <string_view>

namespace zorel {

class Bundle {
public:
    std::string appBundlePath; ///< bundle folder, without a slash at its end

    /// Sexagesimal text ("41;30;36") to decimal text ("41.510000"). Every field that ends with ";" after the
    /// first counts as minutes, the text after the last ";" as seconds; a field that is no number is 0.
    [[nodiscard]] std::string getFloatStr(std::string_view text) const;
    /// Deciphers a stored catalogue value (pairs of hexadecimal digits, DecryptKey.h) to UTF-8. A pair that
    /// is none and a deciphered zero end the text.
    [[nodiscard]] std::string Decrypt(std::string_view hexadecimal) const;
};

} // namespace zorel
