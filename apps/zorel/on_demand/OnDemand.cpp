// SPDX-License-Identifier: Apache-2.0
#include "on_demand/OnDemand.h"

#include <dlfcn.h>
#include <stdexcept>

namespace zorel::cli {

void* LibraryOnDemand::find(const char* function) const {
    void* const library = dlopen(file_, RTLD_NOW | RTLD_LOCAL); // counts, when it is there already
    void* const address = library != nullptr ? dlsym(library, function) : nullptr;
    if (address == nullptr) {
        throw std::runtime_error(dlerror());
    }
    return address;
}

} // namespace zorel::cli
