// SPDX-License-Identifier: Apache-2.0
/// @file
/// Whose alarm events are these?
#pragma once

#include "platform/eventkit/EKEventStore.h"

#include <string>

namespace zorel {

/// The owner of a user database's events: sixteen hexadecimal digits, a digest of the machine's identity and
/// of a random text that is made once for each database and kept beside it, in the file with ".owner" at the
/// end of its name. Events of the same owner are this database's own. Those of another machine that shares
/// the calendar through a server, of another user or of a copied data folder on another machine are not. Only
/// exact clones, with the machine's identity and this file, cannot be told apart.
///
/// The former name is a digest of the machine's identity and the database's path, as earlier versions had it;
/// their events are adopted. It also stands in while the file cannot be read or made.
[[nodiscard]] EventOwner alarmOwner(const std::string& userDBPath);

} // namespace zorel
