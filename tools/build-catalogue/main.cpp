// SPDX-License-Identifier: Apache-2.0
// build-catalogue: source data -> cities.sqlite.
#include "tools/build-catalogue/Build.h"
#include "tools/build-catalogue/Output.h"

#include <cstdio>
#include <exception>
#include <fmt/format.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kHelp = R"(Usage: build-catalogue [--quiet] SOURCE_DIR OUTPUT.sqlite

Builds the city catalogue from the tab-separated files of SOURCE_DIR (places, regions,
countries, zones, credits). The output appears under its name only when it is complete.

  -q, --quiet   no progress on standard error
  -h, --help    this text

Exit status: 0 built, 1 the source data is faulty (each fault names file and line),
2 wrong usage, 3 the output cannot be written.
)";

enum ExitStatus : int { kBuilt = 0, kFaultyData = 1, kWrongUsage = 2, kNotWritten = 3 };

struct Arguments {
    bool help = false;
    bool quiet = false;
    bool understood = true;
    std::vector<std::string> paths;
};

Arguments parseArguments(int count, char** texts) {
    Arguments arguments;
    for (int at = 1; at < count; ++at) {
        const std::string_view text = texts[at];
        if (text == "-h" || text == "--help") {
            arguments.help = true;
        } else if (text == "-q" || text == "--quiet") {
            arguments.quiet = true;
        } else if (text.starts_with('-')) {
            arguments.understood = false;
        } else {
            arguments.paths.emplace_back(text);
        }
    }
    arguments.understood = arguments.understood && (arguments.help || arguments.paths.size() == 2);
    return arguments;
}

int reportProblems(const zorel::catalogue::Problems& problems) {
    fmt::print(stderr, "\n");
    for (const std::string& line : problems.lines()) {
        fmt::print(stderr, "{}\n", line);
    }
    if (problems.count() > problems.lines().size()) {
        fmt::print(stderr, "... and {} more\n", problems.count() - problems.lines().size());
    }
    fmt::print(stderr, "build-catalogue: nothing written, {} fault(s) in the source data\n",
               problems.count());
    return kFaultyData;
}

int build(const Arguments& arguments) {
    using namespace zorel::catalogue;
    Problems problems;
    Progress progress(arguments.quiet);
    const BuildCounts counts = buildCatalogue(arguments.paths[0], arguments.paths[1], problems, progress);
    if (!problems.empty()) {
        return reportProblems(problems);
    }
    progress.finish(
        fmt::format("{}: {} places in {} countries", arguments.paths[1], counts.places, counts.countries));
    return kBuilt;
}

} // namespace

int main(int count, char** texts) {
    const Arguments arguments = parseArguments(count, texts);
    if (!arguments.understood || arguments.help) {
        fmt::print(arguments.understood ? stdout : stderr, "{}", kHelp);
        return arguments.understood ? kBuilt : kWrongUsage;
    }
    try {
        return build(arguments);
    } catch (const std::exception& error) {
        fmt::print(stderr, "\nbuild-catalogue: {}\n", error.what());
        return kNotWritten;
    }
}
