// SPDX-License-Identifier: Apache-2.0
// engine_bits quick|full [FILE [NAME]]: proves that the engine's ways to a result give the same bits, and,
// with a file of stored hashes, that these are still the bits they were. With NAME only the workloads whose
// names begin so. Exit code 0: the same; 1: different; 2: usage, or a file that cannot be used.
#include "CLibrary.h"
#include "Stored.h"
#include "Workloads.h"
#include "engine/Processor.h"

#include <array>
#include <cstdio>
#include <fmt/format.h>
#include <stdexcept>
#include <string_view>

namespace {

using namespace zorel;
using namespace zorel::bits;

constexpr std::string_view kUsage =
    "usage: engine_bits quick|full [FILE [NAME]]     compare the engine's paths, and the hashes stored in "
    "FILE;\n"
    "                                                NAME: only the workloads whose names begin so\n";

/// A way to the results.
struct Path {
    const char* name;
    bool remember;
    bool avx2;
};

/// The first one is the plain one: nothing remembered, nothing skipped, no wide vectors.
constexpr std::array<Path, 4> kPaths{{{"plain", false, false},
                                      {"plain, AVX2", false, true},
                                      {"remembering", true, false},
                                      {"remembering, AVX2", true, true}}};

Hash run(const Workload& work, const Path& path, int steps) {
    allowAvx2(path.avx2);
    FastAstro engine;
    engine.RememberSun(path.remember);
    testing::Random random(2026);
    Hash hash;
    for (int i = 0; i < steps; ++i) {
        work.step(engine, random, i, hash);
    }
    return hash;
}

/// Whether every path gives the bits of the plain one, and these are the stored ones where there are any.
bool check(const Workload& work, bool full, const std::string& stored) {
    const int steps = full ? work.fullSteps : work.quickSteps;
    const Hash plain = run(work, kPaths.front(), steps);
    fmt::print("{}\t{}\t{}\t{}\n", full ? "full" : "quick", work.name, plain.values(), plain.text());
    std::fflush(stdout); // the next one may take minutes
    bool same = stored.empty() || stored == plain.text();
    if (!same) {
        fmt::print("    differs from the stored {}\n", stored);
    }
    for (std::size_t i = 1; i < kPaths.size(); ++i) {
        const Hash hash = run(work, kPaths[i], steps);
        if (hash.text() != plain.text()) {
            fmt::print("    {}: {}\n", kPaths[i].name, hash.text());
            same = false;
        }
    }
    return same;
}

int checkAll(bool full, const std::string& file, std::string_view name) {
    const StoredHashes stored = file.empty() ? StoredHashes() : readStored(file, cLibrary());
    fmt::print("C library {}: {}\n", cLibrary(),
               stored.empty() ? "no stored hashes, the paths are compared with each other only"
                              : "compared with the stored hashes too");
    fmt::print("AVX2 is {}\n", usesAvx2() ? "there" : "not there: its paths are the others");
    bool same = true;
    int checked = 0;
    for (const Workload& work : workloads()) {
        if (std::string_view(work.name).starts_with(name)) {
            same = check(work, full, hashOf(stored, full ? "full" : "quick", work.name)) && same;
            ++checked;
        }
    }
    if (checked == 0) {
        throw std::runtime_error(fmt::format("no workload's name begins with \"{}\"", name));
    }
    fmt::print("{}\n", same ? "the same bits on every path" : "DIFFERENT BITS");
    return same ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view size = argc > 1 ? argv[1] : "";
    if (argc > 4 || (size != "quick" && size != "full")) {
        fmt::print(stderr, "{}", kUsage);
        return 2;
    }
    try {
        return checkAll(size == "full", argc > 2 ? argv[2] : "", argc > 3 ? argv[3] : "");
    } catch (const std::exception& error) {
        fmt::print(stderr, "engine_bits: {}\n", error.what());
        return 2;
    }
}
