// SPDX-License-Identifier: Apache-2.0
#include "ring/Notifications.h"

#include <string_view>

namespace zorel::ring {
namespace {

constexpr const char* kServer = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kSignals = "type='signal',path='/org/freedesktop/Notifications',"
                                 "interface='org.freedesktop.Notifications'";
constexpr std::uint64_t kAnswer = 2'000'000;    // [us]
constexpr std::uint64_t kQuickAnswer = 300'000; // [us]
constexpr std::uint32_t kClosedByPerson = 2;    // reason of NotificationClosed
constexpr std::uint8_t kNormal = 1;             // urgency
constexpr std::uint8_t kCritical = 2;

BusMessage callOf(sd_bus* bus, const char* interface, const char* member) {
    sd_bus_message* message = nullptr;
    return BusMessage(sd_bus_message_new_method_call(bus, &message, kServer, kPath, interface, member) < 0
                          ? nullptr
                          : message);
}

BusMessage answerTo(sd_bus* bus, const BusMessage& call, std::uint64_t timeout) {
    BusError error;
    sd_bus_message* reply = nullptr;
    return BusMessage(call && sd_bus_call(bus, call.get(), timeout, &error.value, &reply) >= 0 ? reply
                                                                                               : nullptr);
}

void appendActions(sd_bus_message* message, const std::vector<NotificationAction>& actions) {
    sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "s");
    for (const NotificationAction& action : actions) {
        sd_bus_message_append(message, "ss", action.key.c_str(), action.label.c_str());
    }
    sd_bus_message_close_container(message);
}

/// "suppress-sound": this program sounds itself.
void appendHints(sd_bus_message* message, bool urgent) {
    sd_bus_message_append(message, "a{sv}", 3, "urgency", "y", urgent ? kCritical : kNormal, "suppress-sound",
                          "b", 1, "desktop-entry", "s", "org.zorel.Settings");
}

} // namespace

std::optional<std::uint32_t> Notifications::show(const Notification& notification,
                                                 std::function<void(const NotificationReply&)> replied) {
    const BusMessage call = bus_ == nullptr ? nullptr : callOf(bus_, kServer, "Notify");
    if (!call) {
        return std::nullopt;
    }
    const bool withActions = !notification.actions.empty() && hasActions();
    listen();
    sd_bus_message_append(call.get(), "susss", "Zorel", 0U, "org.zorel.Settings", notification.title.c_str(),
                          notification.body.c_str());
    appendActions(call.get(), withActions ? notification.actions : std::vector<NotificationAction>());
    appendHints(call.get(), notification.urgent);
    // 0: never expires; -1: as the server likes.
    sd_bus_message_append(call.get(), "i", notification.urgent ? 0 : -1);
    const BusMessage reply = answerTo(bus_, call, kAnswer);
    std::uint32_t id = 0;
    if (!reply || sd_bus_message_read(reply.get(), "u", &id) < 0) {
        return std::nullopt;
    }
    open_[id] = std::move(replied);
    return id;
}

void Notifications::close(std::uint32_t id) {
    open_.erase(id);
    if (const BusMessage call = callOf(bus_, kServer, "CloseNotification")) {
        sd_bus_message_append(call.get(), "u", id);
        sd_bus_message_set_expect_reply(call.get(), 0);
        sd_bus_send(bus_, call.get(), nullptr);
    }
    if (open_.empty()) {
        listening_.reset();
    }
}

bool Notifications::areInhibited() const {
    const BusMessage call =
        bus_ == nullptr ? nullptr : callOf(bus_, "org.freedesktop.DBus.Properties", "Get");
    if (!call) {
        return false;
    }
    sd_bus_message_set_auto_start(call.get(), 0);
    sd_bus_message_append(call.get(), "ss", kServer, "Inhibited");
    const BusMessage reply = answerTo(bus_, call, kQuickAnswer);
    int inhibited = 0;
    return reply && sd_bus_message_read(reply.get(), "v", "b", &inhibited) >= 0 && inhibited != 0;
}

bool Notifications::hasActions() const {
    const BusMessage reply = answerTo(bus_, callOf(bus_, kServer, "GetCapabilities"), kAnswer);
    char** words = nullptr;
    if (!reply || sd_bus_message_read_strv(reply.get(), &words) < 0) {
        return false;
    }
    bool found = false;
    for (char** word = words; word != nullptr && *word != nullptr; ++word) {
        found = found || std::string_view(*word) == "actions";
        free(*word);
    }
    free(words);
    return found;
}

void Notifications::listen() {
    sd_bus_slot* slot = nullptr;
    if (!listening_ && sd_bus_add_match(bus_, &slot, kSignals, heard, this) >= 0) {
        listening_.reset(slot);
    }
}

int Notifications::heard(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    static_cast<Notifications*>(self)->take(message);
    return 0;
}

void Notifications::take(sd_bus_message* message) {
    NotificationReply reply;
    const char* action = "";
    std::uint32_t reason = 0;
    const bool isAction = sd_bus_message_is_signal(message, kServer, "ActionInvoked") > 0;
    const bool isClosed = sd_bus_message_is_signal(message, kServer, "NotificationClosed") > 0;
    if (isAction ? sd_bus_message_read(message, "us", &reply.id, &action) < 0
                 : !isClosed || sd_bus_message_read(message, "uu", &reply.id, &reason) < 0) {
        return;
    }
    const auto found = open_.find(reply.id);
    if (found == open_.end()) {
        return;
    }
    reply.action = action;
    const auto replied = found->second;
    if (isClosed) {
        open_.erase(found);
    }
    // A notification that only ran out of time was not answered.
    if (isAction || reason == kClosedByPerson) {
        replied(reply);
    }
    if (open_.empty()) {
        listening_.reset();
    }
}

} // namespace zorel::ring
