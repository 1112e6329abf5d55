// SPDX-License-Identifier: Apache-2.0
/// @file
/// Catalogues of a test's own, in a temporary folder, and an environment that is put back.
#pragma once

#include "tests/support/TemporaryFolder.h"
#include "words/Language.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zorel::test {

class Catalogues {
public:
    Catalogues() {
        for (const char* name : kVariables) {
            const char* value = std::getenv(name);
            before_.emplace_back(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
            unsetenv(name);
        }
    }
    Catalogues(const Catalogues&) = delete;
    Catalogues& operator=(const Catalogues&) = delete;
    ~Catalogues() {
        useLanguages({});
        for (const auto& [name, value] : before_) {
            value ? setenv(name, value->c_str(), 1) : unsetenv(name);
        }
    }

    /// Compiles a catalogue; `entries` is the text of a po file behind its header.
    void add(const std::string& language, const std::string& plurals, const std::string& entries) {
        const std::string messages = folder.path(language) + "/LC_MESSAGES";
        std::filesystem::create_directories(messages);
        std::ofstream(folder.path("zorel.po"))
            << "msgid \"\"\nmsgstr \"\"\n\"Content-Type: text/plain; charset=UTF-8\\n\"\n"
            << "\"Plural-Forms: " << plurals << "\\n\"\n\n"
            << entries;
        const std::string command = "msgfmt -o " + messages + "/zorel.mo " + folder.path("zorel.po");
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    void use(const std::vector<std::string>& languages) const { useLanguages(languages, folder.path()); }

    TemporaryFolder folder;

private:
    static constexpr const char* kVariables[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    std::vector<std::pair<const char*, std::optional<std::string>>> before_;
};

} // namespace zorel::test
