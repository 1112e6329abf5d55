// SPDX-License-Identifier: Apache-2.0
/// @file
/// The settings pane without a window: every change of cities and alarms goes through its controller, so that
/// the pane's rules hold in the terminal too.
#pragma once

#include "store/AlarmRecords.h"
#include "store/City.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zorel {
class AlarmView;
class ZorelSettingsController;
} // namespace zorel

namespace zorel::cli {

class HeadlessPane {
public:
    /// Opens the pane: makes the user database if there is none, loads the cities, computes the home city's
    /// times.
    HeadlessPane();
    HeadlessPane(const HeadlessPane&) = delete;
    HeadlessPane& operator=(const HeadlessPane&) = delete;
    ~HeadlessPane();

    [[nodiscard]] std::vector<const City*> cities() const;
    /// The home city, or nullptr without cities.
    [[nodiscard]] const City* home() const;

    void add(const City& city);
    void makeHome(std::int32_t cityId);
    /// @param row position in cities().
    void remove(std::size_t row);

    [[nodiscard]] AlarmInfo alarm(std::int32_t prayerId) const;
    /// Calendar event that carries an alarm; empty when there is none.
    [[nodiscard]] std::string eventId(std::int32_t prayerId) const;
    /// Loads an alarm into the editor, lets `edit` change what the user would change, and reports it to the
    /// controller as the editor does. False when the controller refuses (no city, or the alarm is off).
    enum class Change { on, off, offset, ringtone, duration };
    [[nodiscard]] bool edit(std::int32_t prayerId, Change change,
                            const std::function<void(AlarmView&)>& edit);
    /// The editor with its lists of ringtones and durations.
    [[nodiscard]] AlarmView& editor() const;
    /// Moves every active alarm to its next occurrence by the home city's times.
    void refresh();

private:
    std::unique_ptr<ZorelSettingsController> controller_;
};

} // namespace zorel::cli
