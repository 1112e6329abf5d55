// SPDX-License-Identifier: Apache-2.0
// Main program of the benchmarks: after the usual table it prints, for each group that has a peer, the
// medians of ours and the peer's and their ratio.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>

namespace {

using Medians = std::map<std::string, std::map<std::string, double>>; // group -> contestant -> time

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const std::string name = run.run_name.function_name;
            const std::size_t slash = name.find('/');
            if (run.aggregate_name == "median" && slash != std::string::npos) {
                medians_[name.substr(0, slash)][name.substr(slash + 1)] = run.GetAdjustedCPUTime();
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const auto& [group, times] : medians_) {
            const auto ours = times.find("zorel");
            for (const auto& [name, time] : times) {
                if (ours != times.end() && name != "zorel") {
                    std::printf("%-28s zorel %9.0f ns   %-12s %9.0f ns   ratio %.3f\n", group.c_str(),
                                ours->second, name.c_str(), time, ours->second / time);
                }
            }
        }
    }

private:
    Medians medians_;
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
