// SPDX-License-Identifier: Apache-2.0
/// @file
/// What other programs of the session may ask the ring service, over the bus.
#pragma once

#include "ring/RingService.h"
#include "ring/Sd.h"

namespace zorel::ring {

/// The object "/org/zorel/Ring" with the interface "org.zorel.Ring":
///
///     Stop()              silence
///     Snooze()            silence, and once more in five minutes
///     Test(s prayer)      rings an alarm now, as it would
///     Status() -> s       lines of a word, a tab and a text
class RingObject {
public:
    RingObject(sd_bus* bus, RingService& service);

private:
    static int called(sd_bus_message* message, void* self, sd_bus_error* error);
    [[nodiscard]] int answer(sd_bus_message* message);

    RingService& service_;
    BusSlot slot_;
};

} // namespace zorel::ring
