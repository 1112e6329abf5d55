// SPDX-License-Identifier: Apache-2.0
// The program itself: it finds its bundle, writes whole lines at once, ends quietly.
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zorel::test {
namespace {

/// A running program whose output is read through a pipe.
class Program {
public:
    explicit Program(const std::vector<std::string>& words) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            return;
        }
        output_ = ends[0];
        pid_ = fork();
        if (pid_ == 0) {
            dup2(ends[1], STDOUT_FILENO);
            std::vector<char*> arguments{const_cast<char*>(ZOREL_PROGRAM)};
            for (const std::string& word : words) {
                arguments.push_back(const_cast<char*>(word.c_str()));
            }
            arguments.push_back(nullptr);
            execv(ZOREL_PROGRAM, arguments.data());
            _exit(127);
        }
        close(ends[1]);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        closeOutput();
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            waitpid(pid_, nullptr, 0);
        }
    }

    std::string readLine() {
        std::string line;
        char character = 0;
        pollfd ready{output_, POLLIN, 0};
        while (poll(&ready, 1, 20'000) > 0 && read(output_, &character, 1) == 1 && character != '\n') {
            line += character;
        }
        return line;
    }
    void closeOutput() {
        if (output_ >= 0) {
            close(output_);
        }
        output_ = -1;
    }
    [[nodiscard]] pid_t pid() const { return pid_; }
    void send(int signal) const { kill(pid_, signal); }
    /// The wait status, or -1 when it has not ended within ten seconds.
    int wait() {
        for (int i = 0; i < 1000; ++i) {
            int status = 0;
            if (waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                return status;
            }
            usleep(10'000);
        }
        return -1;
    }

private:
    int output_ = -1;
    pid_t pid_ = -1;
};

std::vector<std::string> follow(const TemporaryFolder& folder) {
    return {"--data-dir", folder.path("data"), "widget", "41,29,+3", "--follow"};
}

TEST(CliProgram, FindsItsBundleAndAnswers) {
    const TemporaryFolder folder;
    Program program({"--data-dir", folder.path("data"), "today", "745044", "--short"});
    EXPECT_NE(program.readLine().find("stanbul"), std::string::npos);
    program.closeOutput();
}

TEST(CliProgram, FollowPrintsAWholeLineAtOnceAndEndsWithItsReader) {
    const TemporaryFolder folder;
    Program program(follow(folder));
    const std::string line = program.readLine();
    EXPECT_TRUE(line.starts_with("{\"text\":")) << line;
    EXPECT_TRUE(line.ends_with("}")) << line;
    program.closeOutput();
    const int status = program.wait();
    ASSERT_NE(status, -1);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST(CliProgram, FollowEndsOnSigterm) {
    const TemporaryFolder folder;
    Program program(follow(folder));
    EXPECT_FALSE(program.readLine().empty());
    program.send(SIGTERM);
    const int status = program.wait();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
}

/// How often a process has gone to sleep by itself.
long sleepsOf(pid_t pid) {
    const std::string status = readFile("/proc/" + std::to_string(pid) + "/status");
    const auto at = status.find("\nvoluntary_ctxt_switches:");
    return at == std::string::npos ? -1 : std::stol(status.substr(at + 25));
}

TEST(CliProgram, FollowSleepsBetweenChanges) {
    const TemporaryFolder folder;
    Program program(follow(folder));
    EXPECT_FALSE(program.readLine().empty());
    usleep(200'000);
    const long before = sleepsOf(program.pid());
    ASSERT_GE(before, 1);
    usleep(1'500'000);
    EXPECT_LE(sleepsOf(program.pid()) - before, 2);
}

TEST(CliProgram, AFullDiskIsSaid) {
    const std::string command =
        std::string(ZOREL_PROGRAM) + " hijri 2026-11-21 > /dev/full 2> /dev/null; test $? = 3";
    EXPECT_EQ(std::system(command.c_str()), 0);
}

} // namespace
} // namespace zorel::test
