// SPDX-License-Identifier: Apache-2.0
/// @file
/// The zones of the city catalogue's source with their rules.
#pragma once

#include "almanac/PlaceClock.h"
#include "tests/almanac/Reference.h"

#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zorel::almanac {

class ZoneTable {
public:
    ZoneTable() {
        std::ifstream file(ZOREL_SOURCE_DIR "/resources/catalogue/zones.tsv");
        std::string line;
        std::getline(file, line);
        const std::vector<std::string> columns = cells(line);
        while (std::getline(file, line)) {
            const std::vector<std::string> row = cells(line);
            auto& zone = zones_[row.at(0)];
            for (std::size_t i = 0; i < row.size(); ++i) {
                zone[columns.at(i)] = row[i];
            }
        }
        if (zones_.empty()) {
            throw std::runtime_error("zones.tsv cannot be read");
        }
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : zones_) {
            all.push_back(entry.first);
        }
        return all;
    }

    [[nodiscard]] ClockRule rule(const std::string& zone) const {
        ClockRule rule;
        rule.standard = tests::number(cell(zone, "gmt"));
        rule.saving = cell(zone, "dst") == "1";
        rule.startMonth = number(zone, "startmonth");
        rule.startDay = number(zone, "startday");
        rule.stopMonth = number(zone, "stopmonth");
        rule.stopDay = number(zone, "stopday");
        rule.exact = cell(zone, "exact") == "yes";
        return rule;
    }

    [[nodiscard]] int number(const std::string& zone, const std::string& column) const {
        return std::stoi(cell(zone, column));
    }

private:
    static std::vector<std::string> cells(const std::string& line) {
        std::istringstream stream(line);
        std::vector<std::string> found;
        for (std::string text; std::getline(stream, text, '\t');) {
            found.push_back(text);
        }
        return found;
    }

    [[nodiscard]] const std::string& cell(const std::string& zone, const std::string& column) const {
        return zones_.at(zone).at(column);
    }

    std::map<std::string, std::map<std::string, std::string>> zones_;
};

} // namespace zorel::almanac
