// SPDX-License-Identifier: Apache-2.0
/// @file
/// The commands. Each prints to the context's streams and answers how it ended; trouble is thrown as
/// CliError.
#pragma once

#include "grammar/Context.h"
#include "terminal/CliError.h"

namespace zorel::cli {

Exit runToday(const Context& context);
Exit runTomorrow(const Context& context);
Exit runNext(const Context& context);
Exit runChart(const Context& context);
Exit runSheet(const Context& context);
Exit runTable(const Context& context);
Exit runTableAll(const Context& context);
Exit runSky(const Context& context);
Exit runHijri(const Context& context);
Exit runCompass(const Context& context);
Exit runSearch(const Context& context);
Exit runCities(const Context& context);
Exit runCitiesAdd(const Context& context);
Exit runCitiesHome(const Context& context);
Exit runCitiesRemove(const Context& context);
Exit runAlarms(const Context& context);
Exit runAlarmsOn(const Context& context);
Exit runAlarmsOff(const Context& context);
Exit runAlarmsOffset(const Context& context);
Exit runAlarmsRingtone(const Context& context);
Exit runAlarmsDuration(const Context& context);
Exit runAlarmsRefresh(const Context& context);
/// The same as runAlarmsOn, and says who will ring.
Exit runAlarmsOnTellingWho(const Context& context);
/// Leaves out the next ring of an alarm (--undo: does not).
Exit runAlarmsSkip(const Context& context);
Exit runAlarmsPause(const Context& context);
Exit runAlarmsCheck(const Context& context);
Exit runAlarmsClear(const Context& context);
Exit runExport(const Context& context);
Exit runImport(const Context& context);
Exit runAlarmsTest(const Context& context);
Exit runAlarmsStop(const Context& context);
Exit runAlarmsConnect(const Context& context);
Exit runWidget(const Context& context);

} // namespace zorel::cli
