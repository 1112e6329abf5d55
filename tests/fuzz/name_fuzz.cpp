// SPDX-License-Identifier: Apache-2.0
// Names as typed: the folded form is clean text in which capitals, accents and signs at the ends make no
// difference, and slips are counted alike in both directions.
#include "platform/foundation/FoldedName.h"
#include "platform/foundation/Slips.h"
#include "platform/foundation/Utf8.h"
#include "tests/fuzz/Fuzz.h"

#include <string>

namespace {

using zorel::fuzz::require;

bool isTidy(const std::string& folded) {
    return folded.find("  ") == std::string::npos && !folded.starts_with(' ') && !folded.ends_with(' ') &&
           folded.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ-'.,/") == std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(zorel::fuzz::textOf(data, size));
    const std::string folded = zorel::foldedName(text);
    require(isTidy(folded));
    require(zorel::foldedName(" - " + text + " ") == folded);
    const std::u32string whole = zorel::charactersOf(folded);
    const std::u32string half = whole.substr(whole.size() / 2);
    const std::size_t slips = zorel::slipsBetween(whole, half, 3);
    require(slips == zorel::slipsBetween(half, whole, 3) && slips <= 4);
    require(whole.size() > 64 || zorel::slipsBetween(whole, whole, 2) == 0);
    return 0;
}
