// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace zorel::testing {

struct Outcome {
    int code = -1;
    std::string text;
};

/// Exit code and output, both streams, of a command line.
inline Outcome outcomeOf(const std::string& command) {
    Outcome outcome;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) {
        outcome.text += buffer;
    }
    outcome.code = WEXITSTATUS(::pclose(pipe));
    return outcome;
}

} // namespace zorel::testing
