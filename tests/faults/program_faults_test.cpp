// SPDX-License-Identifier: Apache-2.0
// Every command that writes, and those that tell what is stored, with a fault at a call on its files: status
// 0 exactly when it is as asked, a message otherwise, the old home city or the new one, and the next refresh
// puts everything right. ZOREL_FAULT_TRIES sets how many calls of each command are tried for each fault.
#include "tests/faults/Stage.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace zorel {
namespace {

using test::Ended;
using test::Fault;
using test::Outcome;
using test::Stage;

constexpr const char* kFirstDay = "2026-11-22T09:00:00Z";
constexpr const char* kNextDay = "2026-11-23T09:00:00Z";

constexpr std::size_t kCommands = 25;

/// A command and what comes before it.
struct Tried {
    std::string command;
    std::vector<std::string> before;
    const char* present = kFirstDay;
    bool writes = true;
};

const std::vector<std::string> kHome{"cities add 745044"};
const std::vector<std::string> kTwo{"cities add 745044", "cities add 2950159", "alarms on fajr",
                                    "alarms on asr"};

std::vector<std::string> with(std::vector<std::string> before, const std::string& command) {
    before.push_back(command);
    return before;
}

const std::vector<Tried>& commands() {
    static const std::vector<Tried> all{
        {"cities add 745044", {}},
        {"cities add 2950159", kHome},
        {"cities home 2950159", kTwo},
        {"cities remove 745044", kTwo},
        {"cities remove 745044", {"cities add 745044", "alarms on isha"}},
        {"alarms on dhuhr", kTwo},
        {"alarms off asr", kTwo},
        {"alarms offset asr -10", kTwo},
        {"alarms ringtone asr Flute", kTwo},
        {"alarms refresh", kTwo, kNextDay},
        {"alarms skip asr", kTwo},
        {"alarms skip asr --undo", with(kTwo, "alarms skip asr")},
        {"alarms pause --until +3", kTwo},
        {"alarms pause --off", with(kTwo, "alarms pause --until +3")},
        {"alarms clear", kTwo},
        {"alarms check --heal", kTwo, kNextDay},
        {"alarms connect gnome", kTwo},
        {"alarms connect none", with(kTwo, "alarms connect gnome")},
        {"alarms on dhuhr", with(kTwo, "alarms connect gnome")},
        {"export {export}", kTwo},
        {"import {import}", kTwo},
        {"today --short", kTwo, kFirstDay, false},
        {"cities", kTwo, kFirstDay, false},
        {"alarms", kTwo, kFirstDay, false},
        {"alarms check", kTwo, kFirstDay, false},
    };
    return all;
}

const std::vector<Fault>& faultsToTry() {
    static const std::vector<Fault> all{
        {"EIO once", EIO, false},       {"EIO for good", EIO, true},
        {"ENOSPC once", ENOSPC, false}, {"ENOSPC for good", ENOSPC, true},
        {"EACCES once", EACCES, false}, {"EACCES for good", EACCES, true},
        {"ENOMEM once", ENOMEM, false}, {"ENOMEM for good", ENOMEM, true},
        {"EINTR once", EINTR, false},   {"half once", -2, false},
        {"half for good", -2, true},    {"kill", -1, false},
    };
    return all;
}

/// What became of the tries.
struct Counts {
    int done = 0;        ///< status 0 and as asked
    int told = 0;        ///< another status, not as asked, and a message
    int doneButTold = 0; ///< another status although it is as asked
    int killed = 0;
    int wrong = 0;     ///< status 0 and not as asked
    int silent = 0;    ///< another status without a message
    int thirdHome = 0; ///< neither the old home city nor the new one
    int unhealed = 0;  ///< still not right after a refresh
    int hung = 0;
};

int tries() {
    const char* wanted = std::getenv("ZOREL_FAULT_TRIES");
    return wanted != nullptr ? std::atoi(wanted) : 3;
}

class Trial {
public:
    explicit Trial(const Tried& tried) : tried_(tried) {
        for (const std::string& command : tried.before) {
            const Ended ended = stage_.run(command);
            EXPECT_EQ(ended.status, 0) << command << ended.err;
        }
        stage_.setPresent(tried.present);
        stage_.keep();
        before_ = stage_.look();
        calls_ = stage_.callsOf(tried.command);
        stage_.putBack();
        asked_ = stage_.run(tried.command);
        EXPECT_EQ(asked_.status, 0) << tried.command << asked_.err;
        after_ = stage_.look();
        EXPECT_TRUE(after_.isGood) << tried.command;
    }

    [[nodiscard]] int calls() const { return calls_; }

    void attempt(const Fault& fault, int nth, Counts& counts) {
        stage_.putBack();
        const Ended ended = stage_.run(tried_.command, fault, nth);
        const Outcome outcome = stage_.look();
        const std::string when = tried_.command + ", " + fault.name + " at call " + std::to_string(nth) +
                                 ", status " + std::to_string(ended.status) + "\n" + ended.err;
        judge(ended, outcome, when, counts);
        judgeHome(outcome, when, counts);
        judgeHealing(when, counts);
    }

private:
    void judge(const Ended& ended, const Outcome& outcome, const std::string& when, Counts& counts) {
        const bool asAsked = outcome == after_ && (tried_.writes || ended.out == asked_.out);
        if (ended.status == -SIGKILL) {
            ++counts.killed;
        } else if (ended.status == 0) {
            (asAsked ? counts.done : counts.wrong) += 1;
            EXPECT_TRUE(asAsked) << when << "cities " << outcome.cities << "\nalarms " << outcome.alarms
                                 << "\nasked  " << after_.alarms << '\n'
                                 << ended.out;
        } else if (ended.err.find("zorel: ") == std::string::npos) {
            ++counts.silent;
            ADD_FAILURE() << "no message: " << when;
        } else {
            (asAsked && tried_.writes && !(after_ == before_) ? counts.doneButTold : counts.told) += 1;
        }
    }
    void judgeHome(const Outcome& outcome, const std::string& when, Counts& counts) {
        if (outcome.home != before_.home && outcome.home != after_.home) {
            ++counts.thirdHome;
            ADD_FAILURE() << "the home city is " << outcome.home << ": " << when;
        }
    }
    /// A refresh leads to what was before or to what was asked for, and all of it rings.
    void judgeHealing(const std::string& when, Counts& counts) {
        const Ended healing = stage_.run("alarms refresh");
        const Outcome healed = stage_.look();
        const bool oldOrNew = healed.cities == after_.cities || healed.cities == before_.cities;
        if (healing.status != 0 || !healed.isGood || !oldOrNew) {
            ++counts.unhealed;
            ADD_FAILURE() << "not healed: " << when << healing.err << "cities " << healed.cities
                          << "\nalarms " << healed.alarms;
        }
    }

    Tried tried_;
    Stage stage_;
    Outcome before_;
    Outcome after_;
    Ended asked_;
    int calls_ = 0;
};

void print(const std::string& command, const std::string& fault, const Counts& counts) {
    std::printf("[ FAULTS ] %-24s %-16s %5d %5d %5d %5d %5d %5d %5d %5d\n", command.c_str(), fault.c_str(),
                counts.done, counts.told, counts.doneButTold, counts.killed, counts.wrong, counts.silent,
                counts.thirdHome, counts.unhealed);
}

/// Calls to try: all of them, or as many as wanted, spread evenly and shifted with the fault.
std::vector<int> chosenCalls(int calls, int shift) {
    std::vector<int> chosen;
    const int wanted = std::min(tries(), calls);
    for (int place = 0; place < wanted; ++place) {
        chosen.push_back(1 + (place * calls / wanted + shift * 7) % calls);
    }
    return chosen;
}

class ProgramFaults : public testing::TestWithParam<std::size_t> {};

TEST_P(ProgramFaults, AreToldAndHealed) {
    const Tried& tried = commands()[GetParam()];
    Trial trial(tried);
    ASSERT_FALSE(HasFailure());
    int shift = 0;
    for (const Fault& fault : faultsToTry()) {
        Counts counts;
        for (const int nth : chosenCalls(trial.calls(), shift++)) {
            trial.attempt(fault, nth, counts);
        }
        print(tried.command, fault.name, counts);
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, ProgramFaults, testing::Range<std::size_t>(0, kCommands));

TEST(ProgramFaultTable, HasAHeading) {
    std::printf("[ FAULTS ] %-24s %-16s  done  told later  kill wrong quiet third  sick\n", "command",
                "fault");
    EXPECT_EQ(commands().size(), kCommands);
}

} // namespace
} // namespace zorel
