// SPDX-License-Identifier: Apache-2.0
/// @file
/// Asks clock_probe in a process of its own.
#pragma once

#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zorel::almanac {

/// The answers to some questions (see ClockProbe.cpp). @param environment as for env(1): "TZDIR=/tmp/zones"
inline std::vector<std::string> ask(const std::string& environment,
                                    const std::vector<std::string>& questions) {
    std::string command = "env " + environment + " '" ZOREL_CLOCK_PROBE "'";
    for (const std::string& question : questions) {
        command += " '" + question + "'";
    }
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        text += static_cast<char>(c);
    }
    if (pclose(pipe) != 0) {
        throw std::runtime_error("failed: " + command);
    }
    std::istringstream stream(text);
    std::vector<std::string> answers;
    for (std::string line; std::getline(stream, line);) {
        answers.push_back(line);
    }
    return answers;
}

} // namespace zorel::almanac
