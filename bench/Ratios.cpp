// SPDX-License-Identifier: Apache-2.0
// Main program of the benchmarks: after the usual table it prints, for each group that has a peer, the least
// and the median of the repetitions of ours and the peer's, and their ratios. On a machine with other work
// the ratio of the least says most: those runs were disturbed least.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

/// Times of the repetitions [ns].
struct Repetitions {
    std::vector<double> times;

    [[nodiscard]] double least() const { return *std::min_element(times.begin(), times.end()); }
    [[nodiscard]] double median() const {
        std::vector<double> sorted = times;
        std::sort(sorted.begin(), sorted.end());
        return (sorted[(sorted.size() - 1) / 2] + sorted[sorted.size() / 2]) / 2.0;
    }
};

using Contestants = std::map<std::string, Repetitions>; // name -> times

void print(const std::string& group, const std::string& name, const Repetitions& ours,
           const std::string& peerName, const Repetitions& peer) {
    std::printf("%-22s %-18s least %7.0f median %7.0f ns   %-14s least %7.0f median %7.0f ns   "
                "ratio %.3f, of medians %.3f\n",
                group.c_str(), name.c_str(), ours.least(), ours.median(), peerName.c_str(), peer.least(),
                peer.median(), ours.least() / peer.least(), ours.median() / peer.median());
}

bool isOurs(const std::string& name) {
    return name.starts_with("zorel");
}

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const std::string name = run.run_name.function_name;
            const std::size_t slash = name.find('/');
            if (run.run_type == Run::RT_Iteration && slash != std::string::npos) {
                groups_[name.substr(0, slash)][name.substr(slash + 1)].times.push_back(
                    run.GetAdjustedCPUTime());
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const auto& [group, contestants] : groups_) {
            for (const auto& [name, times] : contestants) {
                for (const auto& [peer, peerTimes] : contestants) {
                    if (isOurs(name) && !isOurs(peer)) {
                        print(group, name, times, peer, peerTimes);
                    }
                }
            }
        }
    }

private:
    std::map<std::string, Contestants> groups_;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
