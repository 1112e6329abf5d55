// SPDX-License-Identifier: Apache-2.0
// Apart from the look-up, so that a program without placeholders does not bring {fmt}.
#include "words/Tr.h"

#include <fmt/format.h>

namespace zorel::words {

std::string filled(fmt::string_view translated, fmt::string_view english, fmt::format_args arguments) {
    try {
        return fmt::vformat(translated, arguments);
    } catch (const fmt::format_error&) {
        return fmt::vformat(english, arguments);
    }
}

} // namespace zorel::words
