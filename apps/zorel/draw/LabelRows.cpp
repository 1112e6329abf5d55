// SPDX-License-Identifier: Apache-2.0
#include "draw/LabelRows.h"

#include "terminal/Style.h"

#include <algorithm>

namespace zorel::cli {

void LabelRows::add(std::size_t column, std::string_view name) {
    const std::size_t columns = displayWidth(name);
    const std::size_t begin = std::min(column, width_ > columns ? width_ - columns : 0);
    auto row =
        std::ranges::find_if(rows_, [&](const Row& one) { return one.used == 0 || one.used + 1 <= begin; });
    if (row == rows_.end()) {
        row = rows_.insert(rows_.end(), Row{});
    }
    row->text.append(begin - row->used, ' ').append(name);
    row->used = begin + columns;
}

std::string LabelRows::text(std::string_view indent) const {
    std::string lines;
    for (const Row& row : rows_) {
        lines.append(indent).append(row.text).append("\n");
    }
    return lines;
}

} // namespace zorel::cli
