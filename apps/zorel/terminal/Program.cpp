// SPDX-License-Identifier: Apache-2.0
#include "terminal/Program.h"

#include "platform/foundation/Descriptor.h"

#include <array>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel::cli {
namespace {

std::string pathOfSibling(const std::string& name) {
    std::error_code error;
    return (std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / name).string();
}

pid_t start(const std::vector<std::string>& words, int output) {
    std::vector<char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int error = posix_spawnp(&process, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? process : -1;
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(size));
    }
    return text;
}

int statusOf(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

ProgramResult runProgram(const std::vector<std::string>& words) {
    std::array<int, 2> pipe{-1, -1};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) {
        return {};
    }
    const Descriptor reading(pipe[0]);
    pid_t process = -1;
    {
        const Descriptor writing(pipe[1]);
        process = start(words, writing.get());
    }
    if (process < 0) {
        return {};
    }
    std::string output = readAll(reading.get());
    return {statusOf(process), std::move(output)};
}

ProgramResult runSibling(std::vector<std::string> words) {
    words.front() = pathOfSibling(words.front());
    return runProgram(words);
}

} // namespace zorel::cli
