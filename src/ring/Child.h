// SPDX-License-Identifier: Apache-2.0
/// @file
/// A program that the ring service starts, and hears from when it ends.
#pragma once

#include "platform/foundation/Descriptor.h"
#include "ring/Sd.h"

#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace zorel::ring {

/// One process. Its standard output is collected, its error output is that of this process. When the object
/// goes, the process is killed and nobody hears of it any more.
class Child {
public:
    struct Result {
        int status = -1; ///< exit status; -1: it was killed or could not be started
        std::string output;
    };
    using Ended = std::function<void(const Result&)>;

    /// @param words program, found without PATH, and its arguments. @param ended is called once, from the
    /// event loop; the object may be destroyed there.
    Child(sd_event* event, const std::vector<std::string>& words, Ended ended);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Asks the process to end; `ended` is still called.
    void stop() const;

private:
    static int heard(sd_event_source* source, int descriptor, std::uint32_t events, void* self);
    static int exited(sd_event_source* source, const siginfo_t* info, void* self);
    static int failed(sd_event_source* source, void* self);
    [[nodiscard]] bool start(const std::vector<std::string>& words, int output);
    void watch(sd_event* event);
    void collect();
    void end(int status);

    Ended ended_;
    std::unique_ptr<Descriptor> output_;
    std::string collected_;
    pid_t process_ = -1;
    EventSource hearing_;
    EventSource exiting_;
};

} // namespace zorel::ring
