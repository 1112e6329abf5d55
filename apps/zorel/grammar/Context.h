// SPDX-License-Identifier: Apache-2.0
/// @file
/// What every command works with: options, streams, colours, language, services, catalogue, clock.
#pragma once

#include "grammar/Dates.h"
#include "grammar/Options.h"
#include "terminal/CliError.h"
#include "terminal/Style.h"

#include "almanac/Prayer.h"
#include "almanac/Time.h"
#include "common/GlobalFuncs.h"
#include "words/Language.h"
#include "words/Tr.h"

#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace zorel::cli {

/// Where a command writes, and what is behind it.
struct Streams {
    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false;
    bool errIsTerminal = false;
    int outDescriptor = 1; ///< watched by "widget --follow" for a reader that went away; -1: none
};

/// One run of the program. Made after the locations are set; lends its services to the command.
class Context {
public:
    Context(const Options& options, Streams& streams);

    const Options& options;
    Streams& streams;
    GlobalFuncs services;
    Style style;

    /// The name of a time in the user's language.
    [[nodiscard]] std::string nameOf(almanac::Prayer prayer) const;
    /// The present, to whole seconds (rounded down).
    [[nodiscard]] almanac::Instant now() const;
    /// Whole minutes, or seconds where they were asked for.
    [[nodiscard]] almanac::Precision precision() const;
    /// Columns that lines may take: --width, else those of the terminal, at least 40; nothing when neither
    /// says so.
    [[nodiscard]] std::optional<std::size_t> knownColumns() const;
    /// The same; 80 where nothing is known.
    [[nodiscard]] std::size_t columns() const { return knownColumns().value_or(80); }
    /// Whether pictures are drawn with plain ASCII characters: --ascii, or a terminal whose locale has no
    /// others.
    [[nodiscard]] bool ascii() const;
    /// The words of the positional argument as one text.
    [[nodiscard]] std::string argument() const;
    /// A line on the error stream that is no error ("note: ...").
    void note(std::string_view text) const;
};

} // namespace zorel::cli
