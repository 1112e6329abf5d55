// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lets a chosen one of the program's changes to the file system go wrong. Link FaultPoints.cpp into the test
/// program: its definitions of write, rename, fsync and so on stand before those of the C library, for
/// SQLite's calls too.
#pragma once

#include <functional>

namespace zorel::faults {

/// What happens at the chosen call.
enum class Effect {
    count, ///< nothing; the calls are only counted
    die,   ///< the process ends before the call
    tear,  ///< half of the bytes are written and the process ends; for other calls as die
    fail,  ///< the call fails
};

/// Exit status of a process that a fault ended.
inline constexpr int kDied = 99;

/// From now on calls that make, change, sync, move or remove files are counted, and the `nth` (from 1) goes
/// wrong. `error`: errno of a failing call; `lasting`: every later call fails too.
void arm(Effect effect, int nth, int error = 0, bool lasting = false);
/// Stops that and returns how many calls were counted.
int disarm();

/// Runs the function in a process of its own with the fault and returns its exit status: kDied, or 0 when it
/// came to its end; minus the signal that killed it.
int runInChild(Effect effect, int nth, const std::function<void()>& function);

} // namespace zorel::faults
