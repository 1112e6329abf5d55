// SPDX-License-Identifier: Apache-2.0
/// @file
/// The user database as the command line sees it beside the pane: whether it can be read, whose home it
/// names.
#pragma once

#include "commands/HeadlessPane.h"
#include "grammar/Context.h"

#include "alarms/UserActions.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorel::cli {

/// Makes the data folder. @throws CliError (data trouble) when that fails.
void makeDataDir();

/// @throws CliError (data trouble) when there is a user database that cannot be read. The pane would take it
/// for an empty one.
void requireReadableUserData();

/// @throws CliError (data trouble) unless the cities were read; "busy" is said apart from "cannot".
void requireRead(const StoreResult& result);

/// The catalogue id of the home city, read from the user database by the pane's rule: the first city marked
/// as home, else the first one; 0 when there is none.
/// @throws CliError (data trouble) when there is a user database that cannot be read.
[[nodiscard]] std::int32_t homeCityId();

/// What stands for a list without cities.
[[nodiscard]] std::string noCitiesText();

/// The catalogue ids of the user's cities, in the order of the list. @throws as homeCityId().
[[nodiscard]] std::vector<std::int32_t> listedCityIds();

/// What to do when something could not be stored.
[[nodiscard]] std::string storingHint();

/// What to do about what is wrong with the alarms.
[[nodiscard]] std::string remedyFor(const AlarmReport& report);

/// @param what the action was about ("the change of Bursa"). @throws CliError with reason and remedy unless
/// the action was done.
void requireDone(const ActionResult& result, const std::string& what);

/// Shows what there is after an action. That it cannot be shown does not undo what was done, and is noted.
Exit showAfterwards(const Context& context, const HeadlessPane& pane, const std::function<void()>& show);

} // namespace zorel::cli
