// SPDX-License-Identifier: Apache-2.0
// The cipher of the catalogue: any bytes are deciphered up to the first faulty pair into well-formed UTF-8,
// and any bytes without a zero come back from what the catalogue's builder makes of them.
#include "common/DecryptKey.h"
#include "platform/foundation/CodePage1254.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/Services.h"
#include "tools/build-catalogue/Coordinates.h"

#include <algorithm>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using zorel::fuzz::require;
    const std::string_view text = zorel::fuzz::textOf(data, size);
    constexpr std::size_t kLongestCharacter = 3;
    const std::string read = zorel::fuzz::services().Decrypt(text);
    require(read.size() <= text.size() / 2 * kLongestCharacter && read.find('\0') == std::string::npos);

    std::string bytes(text.substr(0, text.find('\0')));
    const std::uint8_t first = size == 0 ? 0 : data[size - 1];
    const std::string enciphered = zorel::catalogue::encipher(bytes, first, zorel::kDecryptKey);
    require(zorel::fuzz::services().Decrypt(enciphered) == zorel::utf8FromCodePage1254(bytes));
    std::string lower = enciphered;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char digit) { return digit >= 'A' ? static_cast<char>(digit - 'A' + 'a') : digit; });
    require(zorel::fuzz::services().Decrypt(lower) == zorel::utf8FromCodePage1254(bytes));
    return 0;
}
