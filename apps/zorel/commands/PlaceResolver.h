// SPDX-License-Identifier: Apache-2.0
/// @file
/// From the PLACE argument to a place.
#pragma once

#include "commands/NameChoice.h"
#include "grammar/PlaceQuery.h"
#include "print/ShownPlace.h"

namespace zorel::cli {

/// The place that the argument names; without one the home city, else the largest place of the system's time
/// zone. Says on the error stream which place was taken when several have its name, and whose clock serves
/// for a point that was given without one: that of the nearest place of the catalogue, far from all of them
/// that of the meridian (with --json the document says it).
/// @throws CliError: no result (nothing found), bad use, data trouble (no catalogue).
[[nodiscard]] ShownPlace resolvePlace(const Context& context, Telling telling = Telling::once);

/// The same for a place named elsewhere on the command line.
[[nodiscard]] ShownPlace resolvePlaceText(const Context& context, const std::string& text,
                                          Telling telling = Telling::once);

} // namespace zorel::cli
