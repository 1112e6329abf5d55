// SPDX-License-Identifier: Apache-2.0
/// @file
/// What statements may do on a connection (sqlite3_set_authorizer).
#pragma once

struct sqlite3;

namespace zorel {

/// Select, insert, update, delete and create USER_CITY, USER_ALARMS and USER_SETTINGS, and read the table of
/// contents, which SQLite itself lets nobody write; no function, no other table, no recursion, no ATTACH,
/// DETACH, DROP, PRAGMA, transaction, index, view or trigger.
void allowUserTables(sqlite3* connection);

/// Select from the catalogue's tables and compare with LIKE.
void allowCatalogueTables(sqlite3* connection);

} // namespace zorel
