// SPDX-License-Identifier: Apache-2.0
/// @file
/// Runs the command line inside the test, with a data folder, a time zone and a clock of its own.
#pragma once

#include "Cli.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locations.h"
#include "tests/support/TemporaryFolder.h"
#include "words/Language.h"

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace zorel::test {

struct CliResult {
    int code = 0;
    std::string out;
    std::string err;
};

inline std::string builtBundle() {
    return std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle";
}

/// The words of a command line; double quotes keep blanks together.
inline std::vector<std::string> splitWords(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    bool inQuotes = false;
    for (const char character : line) {
        if (character == '"') {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (character == ' ' && !inQuotes) {
            if (inWord) {
                words.push_back(word);
            }
            word.clear();
            inWord = false;
        } else {
            word += character;
            inWord = true;
        }
    }
    if (inWord) {
        words.push_back(word);
    }
    return words;
}

class CliRunner {
public:
    explicit CliRunner(std::string zone = "Europe/Istanbul") : zone_(std::move(zone)) { speakEnglish(); }
    CliRunner(const CliRunner&) = delete;
    CliRunner& operator=(const CliRunner&) = delete;
    ~CliRunner() {
        Locations::current() = previous_;
        speakEnglish();
    }

    /// Options that come before every command line.
    std::string common = "--lang en --now 2026-11-21T09:00:00+03:00";
    bool errIsTerminal = false;

    CliResult operator()(const std::string& line) {
        std::vector<std::string> words{"--bundle", builtBundle(), "--data-dir", folder.path("data")};
        for (const std::string& word : splitWords(common + ' ' + line)) {
            words.push_back(word);
        }
        return plain(words);
    }

    /// Nothing is added to the words.
    CliResult plain(const std::vector<std::string>& words) {
        const TimeZoneOverride lives(zone_.c_str());
        std::ostringstream out;
        std::ostringstream err;
        cli::Streams streams{out, err, false, errIsTerminal, -1};
        const int code = cli::runZorel(words, streams);
        return {code, out.str(), err.str()};
    }

    TemporaryFolder folder;

private:
    /// Whatever the machine speaks and the run before spoke.
    static void speakEnglish() {
        setenv("LANGUAGE", "en", 1);
        useLanguages({"en"});
    }
    std::string zone_;
    Locations previous_ = Locations::current();
};

} // namespace zorel::test
