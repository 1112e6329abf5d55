// SPDX-License-Identifier: Apache-2.0
/// @file
/// Names of places as they are typed: which place is meant, and what to say when it is none or one of
/// several.
#pragma once

#include "grammar/Context.h"

#include "store/NameResolution.h"

#include <cstdint>
#include <string>

namespace zorel::cli {

/// When to say which of several places a name was taken for.
enum class Telling {
    once,   ///< for each name only the first time
    always, ///< what is chosen stays
};

/// Catalogue id of the place that a name means. Says on the error stream, in one line, which one was taken of
/// several; never with --json.
/// @throws CliError: no result (with suggestions), data trouble (the catalogue cannot be read)
[[nodiscard]] std::int32_t idOfName(const Context& context, const std::string& text, Telling telling);

/// Everything that a name can mean. @throws CliError: data trouble
[[nodiscard]] NameResolution resolveNameOrFail(const Context& context, const std::string& text);

/// "no place is called Ankra; did you mean Ankara, Accra?".
[[nodiscard]] std::string nothingCalled(const Context& context, const std::string& name);

} // namespace zorel::cli
