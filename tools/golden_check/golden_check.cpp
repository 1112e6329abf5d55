// SPDX-License-Identifier: Apache-2.0
// golden_check FILE...: runs every case of the golden files and prints a line for each operation.
// Exit code 0: everything passed; 1: a failure or an unknown operation; 2: a file that cannot be used.
#include "Compare.h"
#include "Digest.h"

#include <fmt/format.h>
#include <fstream>
#include <string_view>

namespace {

using namespace zorel::golden;

constexpr std::string_view kUsage =
    "usage: golden_check FILE...     check the cases of golden files\n"
    "       golden_check --digest    print a digest of many results, to compare compilers\n";

struct Totals {
    int cases = 0;
    int failures = 0;
    int unknown = 0;
};

Json parse(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw MalformedFile("cannot be opened");
    }
    try {
        Json document = Json::parse(file);
        if (!document.is_object() || document.empty()) {
            throw MalformedFile("is not an object of operations");
        }
        return document;
    } catch (const Json::exception& error) {
        throw MalformedFile(fmt::format("is not JSON: {}", error.what()));
    }
}

void print(const Report& report) {
    fmt::print("{:<44} cases {:>4}  failures {:>3}  largest difference {:<10.3g}", report.name, report.cases,
               report.failures, report.largest);
    if (report.fraction > 0.0) {
        fmt::print("  worst {} ({:.2g} of the tolerance) in {}", report.field, report.fraction, report.worst);
    }
    fmt::print("\n");
}

void checkFile(const Registry& registry, const std::string& path, Totals& totals) {
    const Json document = parse(path);
    for (const auto& [name, entry] : document.items()) {
        const Operation* operation = registry.find(name, argumentNames(entry));
        if (operation == nullptr) {
            fmt::print("{:<44} unknown operation\n", name);
            ++totals.unknown;
            continue;
        }
        const Report report = runOperation(name, entry, *operation);
        print(report);
        totals.cases += report.cases;
        totals.failures += report.failures;
    }
}

int checkFiles(const std::vector<std::string>& paths) {
    Registry registry;
    addSolarOperations(registry);
    addPrayerOperations(registry);
    addLunarOperations(registry);
    Totals totals;
    for (const std::string& path : paths) {
        try {
            checkFile(registry, path, totals);
        } catch (const std::exception& error) {
            fmt::print(stderr, "golden_check: {}: {}\n", path, error.what());
            return 2;
        }
    }
    fmt::print("total: cases {}, failures {}, unknown operations {}\n", totals.cases, totals.failures,
               totals.unknown);
    return totals.failures == 0 && totals.unknown == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty() || arguments[0] == "--help" || arguments[0] == "-h") {
        fmt::print(arguments.empty() ? stderr : stdout, "{}", kUsage);
        return arguments.empty() ? 2 : 0;
    }
    if (arguments[0] == "--digest") {
        printDigest();
        return 0;
    }
    return checkFiles(arguments);
}
