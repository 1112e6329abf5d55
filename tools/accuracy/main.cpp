// SPDX-License-Identifier: Apache-2.0
// accuracy FOLDER: compares the engine and the times that people are told with the reference events of a
// folder and prints tables in Markdown.
#include "Comparisons.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    using namespace zorel::accuracy;
    if (argc != 2) {
        std::cerr << "usage: accuracy FOLDER   (resources/reference)\n";
        return 2;
    }
    try {
        compareRiseSets(argv[1], std::cout);
        comparePhases(argv[1], std::cout);
        compareToldDays(argv[1], std::cout);
#ifdef ZOREL_PEERS
        comparePeers(argv[1], std::cout);
#else
        std::cerr << "accuracy: built without libnova and libitl (./test installs them): no table of peers\n";
#endif
    } catch (const std::exception& error) {
        std::cerr << "accuracy: " << error.what() << '\n';
        return 3;
    }
    return 0;
}
