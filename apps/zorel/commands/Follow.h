// SPDX-License-Identifier: Apache-2.0
/// @file
/// A line for a status bar, once or again at each change.
#pragma once

#include "grammar/Context.h"
#include "print/StatusLine.h"

#include <functional>

namespace zorel::cli {

/// Prints the line of the present; with --follow whenever it becomes another one, until the reader goes away
/// or a signal ends the program.
/// @throws CliError (bad use) for --follow with --now.
Exit printOrFollow(const Context& context, const std::function<StatusLine(almanac::Instant)>& lineAt);

} // namespace zorel::cli
