// SPDX-License-Identifier: Apache-2.0
#include "Statistics.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zorel::accuracy {

void Statistics::add(double difference, const std::string& where) {
    differences_.push_back(difference);
    if (std::abs(difference) > largest_) {
        largest_ = std::abs(difference);
        worst_ = where;
    }
}

void Statistics::addMissed(const std::string& where) {
    ++missed_;
    if (worst_.empty()) {
        worst_ = where;
    }
}

namespace {

double at(std::vector<double> values, double share) {
    if (values.empty()) {
        return 0.0;
    }
    const auto position = static_cast<std::size_t>(std::ceil(share * static_cast<double>(values.size())));
    const std::size_t index = std::clamp<std::size_t>(position, 1, values.size()) - 1;
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(index), values.end());
    return values[index];
}

} // namespace

double Statistics::quantile(double share) const {
    std::vector<double> sizes;
    sizes.reserve(differences_.size());
    for (const double difference : differences_) {
        sizes.push_back(std::abs(difference));
    }
    return at(std::move(sizes), share);
}

double Statistics::medianSigned() const {
    return at(differences_, 0.5);
}

Statistics& Table::row(const std::string& name) {
    const auto [entry, made] = rows_.try_emplace(name);
    if (made) {
        order_.push_back(name);
    }
    return entry->second;
}

void Table::print(std::ostream& out) const {
    out << fmt::format("### {}\n\n{}\n\n", title_, note_);
    out << "| | events | only one has it | median | 95 % | largest | middle of ours minus theirs | the "
           "largest is |\n"
           "|---|---:|---:|---:|---:|---:|---:|---|\n";
    for (const std::string& name : order_) {
        const Statistics& row = rows_.at(name);
        out << fmt::format("| {} | {} | {} | {:.1f} s | {:.1f} s | {:.1f} s | {:+.1f} s | {} |\n", name,
                           row.count(), row.missed(), row.quantile(0.5), row.quantile(0.95),
                           row.quantile(1.0), row.medianSigned(), row.worst());
    }
    out << '\n';
}

} // namespace zorel::accuracy
