// SPDX-License-Identifier: Apache-2.0
// Time to place six alarms, database and calendar folder on the disk, every fsync carried out.
#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "store/City.h"
#include "store/DatabaseFunctions.h"

#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <string>

namespace zorel {
namespace {

/// A data directory below the present one (the temporary directory may be in memory, where fsync costs
/// nothing).
class DataDirectory {
public:
    DataDirectory() {
        std::string pattern = (std::filesystem::current_path() / "bench-alarms-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot make " + pattern);
        }
        path_ = pattern;
        Locations::current().data = path_;
    }
    DataDirectory(const DataDirectory&) = delete;
    DataDirectory& operator=(const DataDirectory&) = delete;
    ~DataDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

private:
    std::string path_;
};

City cityAt(const GlobalFuncs& glbFuncs, double firstHour) {
    City city(glbFuncs);
    for (std::size_t index = 0; index < 6; ++index) {
        city.aNamazVakitleri.times[index] = firstHour + static_cast<double>(index);
    }
    return city;
}

/// `moved`: whether the times change each round, so that every event is written again.
void setSixAlarms(benchmark::State& state, bool anew, bool moved) {
    const DataDirectory directory;
    const GlobalFuncs glbFuncs;
    DatabaseFunctions functions(glbFuncs);
    functions.generateUserDatabaseFile();
    for (std::int32_t prayerId = 200; prayerId <= 205; ++prayerId) {
        functions.updateAlarmDefinitions(prayerId, 0, 12.0, "Chime", 1);
    }
    const std::array cities{cityAt(glbFuncs, 12.0), cityAt(glbFuncs, 12.5)};
    std::size_t round = 0;
    for ([[maybe_unused]] const auto step : state) {
        if (anew) {
            state.PauseTiming();
            functions.clearAllAlarms(false);
            state.ResumeTiming();
        }
        round += moved ? 1 : 0;
        functions.setAllAlarms(cities[round % 2]);
    }
}

BENCHMARK_CAPTURE(setSixAlarms, placed_anew, true, true)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(setSixAlarms, moved, false, true)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(setSixAlarms, unchanged, false, false)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zorel

BENCHMARK_MAIN();
