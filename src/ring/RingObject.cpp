// SPDX-License-Identifier: Apache-2.0
#include "ring/RingObject.h"

#include "ring/SessionBus.h"

namespace zorel::ring {

RingObject::RingObject(sd_bus* bus, RingService& service) : service_(service) {
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_object(bus, &slot, kBusPath, called, this) >= 0) {
        slot_.reset(slot);
    }
}

int RingObject::called(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    return static_cast<RingObject*>(self)->answer(message);
}

int RingObject::answer(sd_bus_message* message) {
    const auto asks = [message](const char* member) {
        return sd_bus_message_is_method_call(message, kBusName, member) > 0;
    };
    if (asks("Stop")) {
        service_.stop();
    } else if (asks("Snooze")) {
        service_.snooze();
    } else if (asks("Test")) {
        const char* prayer = nullptr;
        if (const int result = sd_bus_message_read(message, "s", &prayer); result < 0) {
            return result;
        }
        service_.test(prayer);
    } else if (asks("Status")) {
        return sd_bus_reply_method_return(message, "s", service_.status().c_str());
    } else {
        return 0; // the library answers
    }
    return sd_bus_reply_method_return(message, "");
}

} // namespace zorel::ring
