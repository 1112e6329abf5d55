// SPDX-License-Identifier: Apache-2.0
// Command lines and their whole output, one file each in tests/data/cli: "# zone NAME", "$ zorel ...", the
// output, and at the end "? CODE" with the exit code; lines of the error stream begin with "! ".
// ZOREL_WRITE_GOLDEN=1 writes the files anew; read the difference before committing it.
#include "CliRunner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zorel::test {
namespace {

struct GoldenCase {
    std::string path;
    std::string zone;
    std::string line;
    std::string expected;
};

std::string afterPrefix(const std::string& text, const std::string& prefix) {
    return text.starts_with(prefix) ? text.substr(prefix.size()) : std::string();
}

GoldenCase readCase(const std::string& path) {
    std::ifstream file(path);
    GoldenCase golden;
    golden.path = path;
    std::string first;
    std::string second;
    std::getline(file, first);
    std::getline(file, second);
    golden.zone = afterPrefix(first, "# zone ");
    golden.line = afterPrefix(second, "$ zorel ");
    golden.expected.assign(std::istreambuf_iterator<char>(file), {});
    return golden;
}

std::string marked(const std::string& text, const std::string& mark) {
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        result += mark + line + '\n';
    }
    return result;
}

std::string outcome(const CliResult& result) {
    return result.out + marked(result.err, "! ") + "? " + std::to_string(result.code) + '\n';
}

std::vector<std::string> casePaths() {
    std::vector<std::string> paths;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::string(ZOREL_SOURCE_DIR) + "/tests/data/cli")) {
        if (entry.path().extension() == ".case") {
            paths.push_back(entry.path().string());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

TEST(CliGolden, EveryCaseGivesItsOutput) {
    const auto paths = casePaths();
    ASSERT_GE(paths.size(), 24U);
    for (const std::string& path : paths) {
        const GoldenCase golden = readCase(path);
        ASSERT_FALSE(golden.zone.empty()) << path;
        ASSERT_FALSE(golden.line.empty()) << path;
        CliRunner run(golden.zone);
        run.common.clear();
        const std::string actual = outcome(run(golden.line));
        if (std::getenv("ZOREL_WRITE_GOLDEN") != nullptr) {
            std::ofstream(path) << "# zone " << golden.zone << "\n$ zorel " << golden.line << '\n' << actual;
        } else {
            EXPECT_EQ(actual, golden.expected) << path;
        }
    }
}

} // namespace
} // namespace zorel::test
