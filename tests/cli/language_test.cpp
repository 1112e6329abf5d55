// SPDX-License-Identifier: Apache-2.0
// One language from the first word to the last: of the environment, or of --lang.
#include "tests/cli/CliRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace zorel::test {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {
/// The variables of the locale while it lives.
class Environment {
public:
    using Values = std::vector<std::pair<const char*, const char*>>;
    explicit Environment(const Values& values) {
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
            const char* value = std::getenv(name);
            before_.emplace_back(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
            unsetenv(name);
        }
        for (const auto& [name, value] : values) {
            setenv(name, value, 1);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        for (const auto& [name, value] : before_) {
            value ? setenv(name, value->c_str(), 1) : unsetenv(name);
        }
    }

private:
    std::vector<std::pair<const char*, std::optional<std::string>>> before_;
};
} // namespace

TEST(CliLanguage, TheEnvironmentChooses) {
    CliRunner run;
    run.common = "--now 2026-11-21T09:00:00+03:00";
    const Environment turkish(Environment::Values{{"LANG", "tr_TR.UTF-8"}});
    EXPECT_THAT(run("next Ankara").out, StartsWith("Öğle "));
    EXPECT_THAT(run("hijri").out, HasSubstr("Cumartesi"));
}

TEST(CliLanguage, AnUnknownLanguageIsEnglish) {
    CliRunner run;
    run.common = "--now 2026-11-21T09:00:00+03:00";
    const Environment unknown({{"LC_ALL", "xx_XX.UTF-8"}, {"LANGUAGE", "yy"}});
    EXPECT_THAT(run("next Ankara").out, StartsWith("Dhuhr "));
}

TEST(CliLanguage, TheOptionOutranksTheEnvironment) {
    CliRunner run;
    run.common = "--now 2026-11-21T09:00:00+03:00";
    const Environment turkish(Environment::Values{{"LC_ALL", "tr_TR.UTF-8"}});
    EXPECT_THAT(run("next Ankara --lang en").out, StartsWith("Dhuhr "));
    EXPECT_THAT(run("next Ankara --lang=EN").out, StartsWith("Dhuhr "));
}

TEST(CliLanguage, ErrorsAndHelpAreSaidInItToo) {
    CliRunner run;
    run.common = "--lang tr";
    EXPECT_THAT(run("todya").err, HasSubstr("\"todya\" diye bir komut yok"));
    EXPECT_THAT(run("today --date x").err, HasSubstr("bir tarih değil"));
    EXPECT_THAT(run("today Zzzzq").err, HasSubstr("adlı bir yer yok"));
    const std::string help = run("today --help").out;
    EXPECT_THAT(help, HasSubstr("Kullanım: zorel today"));
    EXPECT_THAT(help, HasSubstr("--ezani"));
    EXPECT_THAT(help, Not(HasSubstr("Options")));
    EXPECT_THAT(run("manual").out, HasSubstr(".SH DOSYALAR"));
}

TEST(CliLanguage, WhatProgramsReadIsTheSameInEveryLanguage) {
    CliRunner run;
    const auto day = [&](const std::string& language) {
        return run("today Ankara --csv --lang " + language).out +
               run("table Ankara --csv --to +1 --lang " + language).out;
    };
    run.common = "--now 2026-11-21T09:00:00+03:00";
    EXPECT_EQ(day("tr"), day("en"));
    EXPECT_THAT(run("today Ankara --json --lang tr").out, HasSubstr("\"fajr\""));
}

TEST(CliLanguage, ALanguageThatIsNotThereIsRefused) {
    CliRunner run;
    run.common.clear();
    const CliResult result = run("today Ankara --lang xx");
    EXPECT_EQ(result.code, 2);
    EXPECT_THAT(result.err, HasSubstr("\"xx\" is none of en, ar, bn, "));
}

} // namespace zorel::test
