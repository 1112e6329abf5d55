// SPDX-License-Identifier: Apache-2.0
/// @file
/// Notifications of the desktop (org.freedesktop.Notifications).
#pragma once

#include "ring/Sd.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorel::ring {

/// A button of a notification.
struct NotificationAction {
    std::string key;
    std::string label;
};

struct Notification {
    std::string title;
    std::string body;
    std::vector<NotificationAction> actions; ///< left out where the server has no buttons
    bool urgent = false;                     ///< stays until it is closed, and is shown over full screens
};

/// What a person did with one.
struct NotificationReply {
    std::uint32_t id = 0;
    std::string action; ///< key of the button, "default" for the notification itself; empty: it was closed
};

/// A client of the notification server. Signals of the server wake this process only while one of its own
/// notifications is open. Source: Desktop Notifications 1.2 (freedesktop.org).
class Notifications {
public:
    /// @param bus may be null: then there is no server.
    explicit Notifications(sd_bus* bus) : bus_(bus) {}

    /// Shows one. @returns its number; nothing when there is no server or it refused. Waits at most some
    /// seconds for the answer.
    [[nodiscard]] std::optional<std::uint32_t> show(const Notification& notification,
                                                    std::function<void(const NotificationReply&)> replied);
    void close(std::uint32_t id);
    /// Whether the person wants to be left alone now, where the server tells it (property `Inhibited`). Never
    /// starts a server to ask it.
    [[nodiscard]] bool areInhibited() const;

private:
    static int heard(sd_bus_message* message, void* self, sd_bus_error* error);
    void take(sd_bus_message* message);
    [[nodiscard]] bool hasActions() const;
    void listen();

    sd_bus* bus_;
    std::map<std::uint32_t, std::function<void(const NotificationReply&)>> open_;
    BusSlot listening_;
};

} // namespace zorel::ring
