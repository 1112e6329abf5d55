// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "ring/SessionBus.h"
#include "words/Tr.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <thread>

namespace zorel::ring {
namespace {

constexpr std::uint64_t kAnswer = 5'000'000; // [us]
constexpr int kTries = 50;                   // of 0.1 s, until a service that was started has its name

int complain(const std::string& what) {
    std::fprintf(stderr, "zorel-ring: %s\n", what.c_str());
    return 1;
}

BusMessage callOf(sd_bus* bus, const char* member) {
    sd_bus_message* message = nullptr;
    sd_bus_message_new_method_call(bus, &message, kBusName, kBusPath, kBusName, member);
    sd_bus_message_set_auto_start(message, 0);
    return BusMessage(message);
}

BusMessage answerTo(sd_bus* bus, const BusMessage& call) {
    sd_bus_message* reply = nullptr;
    return BusMessage(sd_bus_call(bus, call.get(), kAnswer, nullptr, &reply) >= 0 ? reply : nullptr);
}

bool isRunning(sd_bus* bus) {
    BusError error;
    return sd_bus_get_name_creds(bus, kBusName, 0, nullptr) >= 0;
}

/// Has the bus or systemd start it, as its files say; false where the bus has no such file.
bool activate(sd_bus* bus) {
    BusError error;
    return sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                              "StartServiceByName", &error.value, nullptr, "su", kBusName, 0U) >= 0;
}

bool startAlone(const std::vector<std::string>& words) {
    std::vector<char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&files, 1, 2);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    pid_t process = 0;
    const int error = posix_spawn(&process, "/proc/self/exe", &files, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error == 0;
}

bool comesUp(sd_bus* bus) {
    for (int tries = 0; tries < kTries; ++tries) {
        if (isRunning(bus)) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return false;
}

} // namespace

int startService(const std::vector<std::string>& words) {
    const Bus bus = sessionBus();
    if (!bus) {
        return complain(tr("there is no session bus to start it on"));
    }
    const bool isUp = isRunning(bus.get()) || (words.size() == 1 && activate(bus.get())) ||
                      (startAlone(words) && comesUp(bus.get()));
    return isUp ? 0 : complain(tr("it could not be started"));
}

int callService(const char* member) {
    const Bus bus = sessionBus();
    if (!bus || !answerTo(bus.get(), callOf(bus.get(), member))) {
        return complain(tr("it does not run in this session"));
    }
    return 0;
}

int testService(const std::string& prayer) {
    const Bus bus = sessionBus();
    if (!bus) {
        return complain(tr("it does not run in this session"));
    }
    const BusMessage call = callOf(bus.get(), "Test");
    sd_bus_message_append(call.get(), "s", prayer.c_str());
    return answerTo(bus.get(), call) ? 0 : complain(tr("it does not run in this session"));
}

int printStatus() {
    const Bus bus = sessionBus();
    const BusMessage reply = bus ? answerTo(bus.get(), callOf(bus.get(), "Status")) : nullptr;
    const char* text = nullptr;
    if (!reply || sd_bus_message_read(reply.get(), "s", &text) < 0) {
        return complain(tr("it does not run in this session"));
    }
    std::fputs(text, stdout);
    return 0;
}

} // namespace zorel::ring
