// SPDX-License-Identifier: Apache-2.0
/// @file
/// Differences between computed and reference instants, gathered under a name.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace zorel::accuracy {

/// Median, 95th percentile and largest of absolute differences.
class Statistics {
public:
    /// @param difference ours minus the reference [s] @param where what the largest difference is quoted with
    void add(double difference, const std::string& where);
    /// An event that only one of the two knows.
    void addMissed(const std::string& where);

    [[nodiscard]] std::size_t count() const { return differences_.size(); }
    [[nodiscard]] std::size_t missed() const { return missed_; }
    /// @param share 0 to 1 @return the absolute difference that this share does not exceed [s]; 0 without any
    [[nodiscard]] double quantile(double share) const;
    [[nodiscard]] double medianSigned() const;
    [[nodiscard]] const std::string& worst() const { return worst_; }

private:
    std::vector<double> differences_;
    std::size_t missed_ = 0;
    double largest_ = -1.0;
    std::string worst_;
};

/// Named rows in the order in which they were first asked for, printed as a table in Markdown.
class Table {
public:
    Table(std::string title, std::string note) : title_(std::move(title)), note_(std::move(note)) {}
    Statistics& row(const std::string& name);
    void print(std::ostream& out) const;

private:
    std::string title_;
    std::string note_;
    std::vector<std::string> order_;
    std::map<std::string, Statistics> rows_;
};

} // namespace zorel::accuracy
