// SPDX-License-Identifier: Apache-2.0
#include "ring/SessionBus.h"

#include <cstdlib>
#include <string>

namespace zorel::ring {
namespace {

std::string addressOfSession() {
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address != nullptr && *address != '\0') {
        return address;
    }
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    return runtime != nullptr && *runtime == '/' ? "unix:path=" + std::string(runtime) + "/bus" : "";
}

} // namespace

Bus sessionBus() {
    const std::string address = addressOfSession();
    sd_bus* made = nullptr;
    if (address.empty() || sd_bus_new(&made) < 0) {
        return nullptr;
    }
    Bus bus(made);
    const bool isOpen = sd_bus_set_address(made, address.c_str()) >= 0 &&
                        sd_bus_set_bus_client(made, 1) >= 0 && sd_bus_start(made) >= 0;
    const char* name = nullptr;
    // The unique name arrives with the answer to the greeting: only then is the connection one.
    return isOpen && sd_bus_get_unique_name(made, &name) >= 0 ? std::move(bus) : nullptr;
}

} // namespace zorel::ring
