// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the six alarms do, as a table or as JSON: the report and nothing beside it.
#pragma once

#include "commands/HeadlessPane.h"
#include "grammar/Context.h"

namespace zorel::cli {

/// Prints the alarms. A note says when the machine's clock is not that of the home city.
void printAlarms(const Context& context, const HeadlessPane& pane, const AlarmReport& report);

} // namespace zorel::cli
