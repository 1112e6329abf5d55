// SPDX-License-Identifier: Apache-2.0
// Help, manual page, markdown page, completions and README say the same, and their examples run.
#include "CliRunner.h"
#include "grammar/Arguments.h"
#include "grammar/Examples.h"
#include "tests/support/Programs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

namespace zorel::test {
namespace {

using cli::CommandHelp;
using cli::describeCommands;
using cli::OptionHelp;

std::string fromSource(const std::string& path) {
    return readFile(std::string(ZOREL_SOURCE_DIR) + '/' + path);
}

std::string withoutEscapes(std::string text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        }
    }
    return result;
}

TEST(CliPages, EveryOptionIsInHelpManualAndMarkdown) {
    CliRunner run;
    const std::string manual = withoutEscapes(cli::manualPage());
    const std::string markdown = cli::manualMarkdown();
    std::size_t options = 0;
    for (const CommandHelp& command : describeCommands()) {
        const std::string help = run.plain(splitWords(command.name + " --help")).out;
        EXPECT_NE(manual.find("zorel " + command.name), std::string::npos) << command.name;
        EXPECT_NE(markdown.find("zorel " + command.name), std::string::npos) << command.name;
        EXPECT_FALSE(command.description.empty()) << command.name;
        EXPECT_FALSE(command.examples.empty()) << command.name;
        for (const OptionHelp& option : command.options) {
            for (const std::string& name : option.names) {
                EXPECT_NE(help.find(name), std::string::npos) << command.name << ' ' << name;
                EXPECT_NE(manual.find(name), std::string::npos) << command.name << ' ' << name;
                EXPECT_NE(markdown.find(name), std::string::npos) << command.name << ' ' << name;
                ++options;
            }
            EXPECT_FALSE(option.description.empty()) << command.name;
        }
    }
    EXPECT_GT(options, 60U);
}

TEST(CliPages, TheCommittedPageIsThePrintedOne) {
    EXPECT_EQ(fromSource("docs/cli.md"), cli::manualMarkdown())
        << "write it anew: zorel manual --markdown > docs/cli.md";
}

TEST(CliPages, CommandsNamedInTheReadmeExist) {
    std::set<std::string> names;
    for (const CommandHelp& command : describeCommands()) {
        names.insert(command.name);
    }
    for (const char* page : {"README.md", "docs/widgets.md", "docs/json.md"}) {
        const std::string text = fromSource(page);
        ASSERT_FALSE(text.empty()) << page;
        const std::regex command(R"((?:^|[`/ ])zorel ([a-z]+))");
        for (std::sregex_iterator it(text.begin(), text.end(), command), end; it != end; ++it) {
            const std::string before = it->prefix().str();
            const bool inCode = std::count(before.begin(), before.end(), '`') % 2 == 1;
            if (inCode) {
                EXPECT_TRUE(names.contains((*it)[1].str())) << page << ": zorel " << (*it)[1];
            }
        }
    }
}

TEST(CliPages, ExamplesThatOnlyReadRun) {
    int count = 0;
    for (const CommandHelp& command : describeCommands()) {
        for (const std::string& example : command.examples) {
            ASSERT_TRUE(example.starts_with("zorel ")) << example;
            const std::string line = example.substr(6, example.find("  # ") - 6);
            const bool runs = line.find_first_of("|>") == std::string::npos && !line.starts_with("alarms ") &&
                              !line.starts_with("cities ") && !line.starts_with("export ") &&
                              !line.starts_with("import ") && line.find("--follow") == std::string::npos &&
                              line.find("--all") == std::string::npos &&
                              line.find("--pdf") == std::string::npos;
            if (!runs) {
                continue;
            }
            CliRunner run;
            const CliResult result = run(line);
            EXPECT_EQ(result.code, 0) << example << '\n' << result.err;
            EXPECT_FALSE(result.out.empty()) << example;
            ++count;
        }
    }
    EXPECT_GE(count, 20);
}

TEST(CliPages, HelpOfTheProgramAndOfACommand) {
    CliRunner run;
    const CliResult whole = run.plain({"--help"});
    EXPECT_EQ(whole.code, 0);
    EXPECT_NE(whole.out.find("widget"), std::string::npos);
    EXPECT_NE(whole.out.find("Examples:"), std::string::npos);
    EXPECT_NE(run.plain({"table", "--help"}).out.find("--from-id"), std::string::npos);
    EXPECT_EQ(run.plain({"--version"}).out, "zorel 1.0.0\n");
    EXPECT_EQ(run.plain({"help"}).out, whole.out);
    EXPECT_EQ(run.plain({"help", "alarms", "on"}).out, run.plain({"alarms", "on", "--help"}).out);
}

TEST(CliPages, HelpTextsFitIntoATerminal) {
    CliRunner run;
    for (const CommandHelp& command : describeCommands()) {
        std::istringstream lines(run.plain(splitWords(command.name + " --help")).out);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(cli::displayWidth(line), 80U) << command.name << '\n' << line;
        }
    }
}

TEST(CliPages, TheManualPageIsGoodRoff) {
    if (!hasProgram("groff")) {
        GTEST_SKIP() << "groff is not installed";
    }
    const TemporaryFolder folder;
    writeFile(folder.path("zorel.1"), cli::manualPage());
    const std::string warnings =
        outputOf("groff -K utf8 -man -Tutf8 -ww -z " + folder.path("zorel.1") + " 2>&1");
    EXPECT_EQ(warnings, "");
    EXPECT_NE(outputOf("groff -K utf8 -man -Tutf8 " + folder.path("zorel.1") + " 2>/dev/null").find("widget"),
              std::string::npos);
}

} // namespace
} // namespace zorel::test
