// SPDX-License-Identifier: Apache-2.0
#include "Stored.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace zorel::bits {

namespace {

std::vector<std::string> fields(const std::string& line) {
    std::vector<std::string> result;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, '\t');) {
        result.push_back(field);
    }
    return result;
}

} // namespace

StoredHashes readStored(const std::string& file, const std::string& library) {
    std::ifstream stream(file);
    if (!stream) {
        throw std::runtime_error(file + " cannot be opened");
    }
    StoredHashes stored;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        const std::vector<std::string> field = fields(line);
        if (field.size() != 5) {
            throw std::runtime_error(file + ": not five fields: " + line);
        }
        if (field[0] == library) {
            stored[{field[1], field[2]}] = field[4];
        }
    }
    return stored;
}

std::string hashOf(const StoredHashes& stored, const std::string& size, const std::string& workload) {
    if (stored.empty()) {
        return "";
    }
    const auto found = stored.find({size, workload});
    if (found == stored.end()) {
        throw std::runtime_error("no stored hash of \"" + workload + "\", " + size);
    }
    return found->second;
}

} // namespace zorel::bits
