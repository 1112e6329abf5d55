// SPDX-License-Identifier: Apache-2.0
// Hands every file of the given folders to the fuzz target: what once was found stays mended.
// A folder that does not exist holds no findings; no input at all is a mistake.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<char> bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

int replay(const std::filesystem::path& folder) {
    int count = 0;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(folder, missing)) {
        fmt::print("{}\n", entry.path().string());
        std::fflush(stdout); // the last line names the culprit
        const std::vector<char> bytes = bytesOf(entry.path());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    return count;
}

} // namespace

int main(int count, char** arguments) {
    int inputs = 0;
    for (int i = 1; i < count; ++i) {
        inputs += replay(arguments[i]);
    }
    fmt::print("{} inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
