// SPDX-License-Identifier: Apache-2.0
// Any bytes as a property list: they are read, no deeper than the limit, or refused.
#include "platform/foundation/PropertyList.h"
#include "tests/fuzz/Fuzz.h"

#include <algorithm>

namespace {

std::size_t depthOf(const zorel::PropertyList& node) {
    std::size_t deepest = 0;
    if (const auto* list = node.array()) {
        for (const auto& entry : *list) {
            deepest = std::max(deepest, depthOf(entry));
        }
    } else if (const auto* entries = node.dictionary()) {
        for (const auto& [key, entry] : *entries) {
            deepest = std::max(deepest, depthOf(entry));
        }
    }
    return deepest + 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kDeepest = 64; // the value in the innermost list counts too
    const auto list = zorel::PropertyList::parse(zorel::fuzz::textOf(data, size));
    zorel::fuzz::require(!list || depthOf(*list) <= kDeepest);
    return 0;
}
