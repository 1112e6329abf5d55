// SPDX-License-Identifier: Apache-2.0
// The city catalogue: its size, what building it takes, how exact its coordinates are, and how long a search
// takes.
//   build/bin/bench_catalogue --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "store/CatalogueLookup.h"
#include "store/CitySearch.h"
#include "store/NameResolution.h"
#include "tools/build-catalogue/Sources.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fmt/format.h>
#include <numbers>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <unordered_map>

namespace zorel {
namespace {

const std::string kBundle = std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle";
const std::string kSource = std::string(ZOREL_SOURCE_DIR) + "/resources/catalogue";

const GlobalFuncs& services() {
    static const GlobalFuncs glbFuncs = [] {
        Locations::current() = {kBundle, std::filesystem::temp_directory_path().string(), ""};
        return GlobalFuncs();
    }();
    return glbFuncs;
}

/// Builds the catalogue once more, in a process of its own; its time [s] and largest memory [MB].
void printBuild() {
    const std::string output = std::filesystem::temp_directory_path() / "zorel-bench-cities.sqlite";
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execl(ZOREL_BUILD_CATALOGUE, "build-catalogue", "--quiet", kSource.c_str(), output.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    const double processor = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                             static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    fmt::print("build: status {}, {:.2f} s ({:.2f} s processor), {:.0f} MB; file of {:.1f} MB\n",
               WEXITSTATUS(status), elapsed.count(), processor, static_cast<double>(usage.ru_maxrss) / 1024.0,
               static_cast<double>(std::filesystem::file_size(output)) / 1e6);
    std::filesystem::remove(output);
}

/// Distance on the ground between two positions that are close together [m].
double metres(double latitude, double longitude, double otherLatitude, double otherLongitude) {
    constexpr double kMetresPerDegree = 111'319.5;
    const double east = (longitude - otherLongitude) * std::cos(latitude * std::numbers::pi / 180.0);
    return std::hypot(latitude - otherLatitude, east) * kMetresPerDegree;
}

/// Largest distance between a place of the source and what a program reads of it from the catalogue.
void printCoordinateError() {
    catalogue::Problems problems;
    const auto sources = catalogue::Sources::read(kSource, problems);
    std::unordered_map<std::int32_t, const catalogue::Place*> places;
    for (const auto& entry : sources.places) {
        places[entry.place.id] = &entry.place;
    }
    std::size_t rows = 0;
    double largest = 0.0;
    forEachPlace(services(), 1, [&](const CataloguePlace& place) {
        const catalogue::Place* source = places.at(integerValue(place.city.cityId));
        largest =
            std::max(largest, metres(source->latitude, source->longitude, doubleValue(place.city.latitude),
                                     doubleValue(place.city.longitude)));
        ++rows;
        return true;
    });
    fmt::print("places: {}; largest coordinate error {:.6f} m\n", rows, largest);
}

void search(benchmark::State& state, const char* text) {
    std::size_t found = 0;
    for (auto _ : state) {
        found = searchCities(services(), text).size();
    }
    state.counters["found"] = static_cast<double>(found);
}
BENCHMARK_CAPTURE(search, most_hits_ing, "ing")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, common_San, "San")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, common_London, "London")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, rare_Reykjavik, "Reykjavik")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, missing_xqzzy, "xqzzy")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, turkish_Sanliurfa, "Şanlıurfa")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, cyrillic_Moskva, "Москва")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, arabic_alQahira, "القاهرة")->Unit(benchmark::kMillisecond);

void searchForPeople(benchmark::State& state, const char* text) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(searchPlaces(services(), text));
    }
}
BENCHMARK_CAPTURE(searchForPeople, common_London, "London")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchForPeople, common_San, "San")->Unit(benchmark::kMillisecond);

void resolve(benchmark::State& state, const char* text) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(resolveName(services(), text));
    }
}
BENCHMARK_CAPTURE(resolve, name_Istanbul, "Istanbul")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(resolve, accents_Sanliurfa, "Şanlıurfa")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(resolve, region_Paris_Texas, "Paris, Texas")->Unit(benchmark::kMicrosecond);

void suggest(benchmark::State& state, const char* text) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(similarPlaces(services(), text, 3));
    }
}
BENCHMARK_CAPTURE(suggest, slip_Berln, "Berln")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(suggest, nothing_xqzzy, "xqzzy")->Unit(benchmark::kMillisecond);

void cityDetails(benchmark::State& state) {
    City city(services());
    city.cityId = "745044";
    for (auto _ : state) {
        city.getAllCityInfo(city);
    }
}
BENCHMARK(cityDetails)->Unit(benchmark::kMicrosecond);

void allPlaces(benchmark::State& state) {
    for (auto _ : state) {
        forEachPlace(services(), 1, [](const CataloguePlace&) { return true; });
    }
}
BENCHMARK(allPlaces)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorel

int main(int count, char** texts) {
    zorel::printBuild();
    zorel::printCoordinateError();
    benchmark::Initialize(&count, texts);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
