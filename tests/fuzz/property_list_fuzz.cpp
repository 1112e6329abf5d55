// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/PropertyList.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(zorel::PropertyList::parse({reinterpret_cast<const char*>(data), size}));
    return 0;
}
