// SPDX-License-Identifier: Apache-2.0
#include "tools/build-catalogue/Problems.h"

#include <fmt/format.h>

namespace zorel::catalogue {

namespace {
constexpr std::size_t kKept = 20;
}

void Problems::add(std::string_view file, std::size_t line, std::string_view text) {
    if (++count_ > kKept) {
        return;
    }
    lines_.push_back(line == 0 ? fmt::format("{}: {}", file, text)
                               : fmt::format("{}:{}: {}", file, line, text));
}

} // namespace zorel::catalogue
