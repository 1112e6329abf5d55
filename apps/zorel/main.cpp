// SPDX-License-Identifier: Apache-2.0
#include "Cli.h"

#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    zorel::cli::Streams streams{std::cout, std::cerr, isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1,
                                STDOUT_FILENO};
    return zorel::cli::runZorel(words, streams);
}
