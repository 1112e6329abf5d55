// SPDX-License-Identifier: Apache-2.0
// What the catalogue stores as text: the cipher and the coordinates in it.
#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"

#include <cstddef>

namespace {

const zorel::GlobalFuncs& functions() {
    zorel::Locations::current() = {"/dev/null", "/dev/null", "/dev/null"};
    static const zorel::GlobalFuncs functions;
    return functions;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(functions().getFloatStr(text));
    static_cast<void>(functions().getFloatStr(functions().Decrypt(text)));
    return 0;
}
