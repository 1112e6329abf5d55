// SPDX-License-Identifier: Apache-2.0
#include "ring/Child.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/epoll.h>
#include <sys/wait.h>
#include <utility>

namespace zorel::ring {
namespace {

constexpr std::size_t kLargestOutput = 65536; // [bytes]; what comes behind it is dropped

/// What a child starts with: its output into the pipe, and every signal as usual.
class Setting {
public:
    explicit Setting(int output) {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK);
    }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;
    ~Setting() {
        posix_spawn_file_actions_destroy(&files_);
        posix_spawnattr_destroy(&attributes_);
    }
    [[nodiscard]] const posix_spawn_file_actions_t* files() const { return &files_; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

} // namespace

Child::Child(sd_event* event, const std::vector<std::string>& words, Ended ended) : ended_(std::move(ended)) {
    std::array<int, 2> pipe{-1, -1};
    const bool hasPipe = pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) == 0;
    output_ = std::make_unique<Descriptor>(pipe[0]);
    const Descriptor writing(pipe[1]);
    sd_event_source* source = nullptr;
    if (hasPipe && start(words, writing.get())) {
        watch(event);
    } else if (sd_event_add_defer(event, &source, failed, this) >= 0) {
        exiting_.reset(source);
    }
}

void Child::stop() const {
    if (process_ > 0) {
        kill(process_, SIGTERM);
    }
}

bool Child::start(const std::vector<std::string>& words, int output) {
    std::vector<char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    const Setting setting(output);
    if (posix_spawn(&process_, arguments[0], setting.files(), setting.attributes(), arguments.data(),
                    environ) != 0) {
        process_ = -1;
    }
    return process_ > 0;
}

void Child::watch(sd_event* event) {
    sd_event_source* source = nullptr;
    if (sd_event_add_io(event, &source, output_->get(), EPOLLIN, heard, this) >= 0) {
        hearing_.reset(source);
    }
    if (sd_event_add_child(event, &source, process_, WEXITED, exited, this) >= 0) {
        // Without this a process whose object goes first would stay behind, dead, until this one ends.
        sd_event_source_set_child_process_own(source, 1);
        exiting_.reset(source);
    }
}

int Child::heard(sd_event_source* /*source*/, int /*descriptor*/, std::uint32_t /*events*/, void* self) {
    static_cast<Child*>(self)->collect();
    return 0;
}

int Child::exited(sd_event_source* /*source*/, const siginfo_t* info, void* self) {
    auto* const child = static_cast<Child*>(self);
    child->process_ = -1; // and may soon be another's number
    child->collect();
    child->end(info->si_code == CLD_EXITED ? info->si_status : -1);
    return 0;
}

int Child::failed(sd_event_source* /*source*/, void* self) {
    static_cast<Child*>(self)->end(-1);
    return 0;
}

void Child::collect() {
    std::array<char, 4096> buffer;
    ssize_t size = 0;
    while ((size = read(output_->get(), buffer.data(), buffer.size())) > 0) {
        const std::size_t room = kLargestOutput - collected_.size();
        collected_.append(buffer.data(), std::min(room, static_cast<std::size_t>(size)));
    }
    if (size == 0) {
        hearing_.reset();
    }
}

void Child::end(int status) {
    hearing_.reset();
    exiting_.reset();
    const Ended ended = std::exchange(ended_, nullptr);
    const Result result{status, std::move(collected_)};
    ended(result); // may destroy this object
}

} // namespace zorel::ring
