// SPDX-License-Identifier: Apache-2.0
/// @file
/// Owners of what libsystemd hands out.
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <memory>

namespace zorel::ring {

/// Calls a function of the library at the end of an object's life.
template <auto release> struct Releases {
    template <typename Object> void operator()(Object* object) const { release(object); }
};

using Event = std::unique_ptr<sd_event, Releases<sd_event_unref>>;
using EventSource = std::unique_ptr<sd_event_source, Releases<sd_event_source_disable_unref>>;
using Bus = std::unique_ptr<sd_bus, Releases<sd_bus_flush_close_unref>>;
using BusSlot = std::unique_ptr<sd_bus_slot, Releases<sd_bus_slot_unref>>;
using BusMessage = std::unique_ptr<sd_bus_message, Releases<sd_bus_message_unref>>;

/// An error of the bus; freed at its end.
struct BusError {
    sd_bus_error value = SD_BUS_ERROR_NULL;

    BusError() = default;
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;
    ~BusError() { sd_bus_error_free(&value); }
    [[nodiscard]] const char* text() const { return value.message == nullptr ? "no answer" : value.message; }
};

} // namespace zorel::ring
