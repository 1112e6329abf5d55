// SPDX-License-Identifier: Apache-2.0
/// @file
/// Programs that are not ours, run by tests.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace zorel::test {

/// Whether the shell finds a program of this name. A test that needs one that is not there is skipped with a
/// reason
/// ("fish is not installed"), which ./test repeats at its end.
inline bool hasProgram(const std::string& name) {
    return std::system(("command -v '" + name + "' >/dev/null 2>&1").c_str()) == 0;
}

/// What a shell command prints; "(failed)" follows where its exit status is not 0.
inline std::string outputOf(const std::string& command) {
    std::string text;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        std::array<char, 4096> buffer{};
        for (std::size_t size = 0; (size = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
            text.append(buffer.data(), size);
        }
        text += pclose(pipe) == 0 ? "" : "(failed)";
    }
    return text;
}

} // namespace zorel::test
