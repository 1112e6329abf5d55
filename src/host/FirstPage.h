// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the first page shows beside the pane: the day of the home city, a city to begin with, a city to
/// change to, a word on what has just been done.
#pragma once

#include "host/AlarmEditor.h"
#include "host/AlarmRows.h"
#include "host/RingCheck.h"
#include "host/TodayModel.h"
#include "host/Words.h"

#include "store/CatalogueLookup.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace zorel {

class City;
class Host;
class ZorelSettingsController;

/// Reads the pane and does what the person asks for by the pane's own callbacks. Follows every reload of the
/// pane's table.
class FirstPage : public QObject {
    Q_OBJECT
    Q_PROPERTY(zorel::TodayModel* today READ today CONSTANT)
    Q_PROPERTY(zorel::AlarmRows* alarms READ alarms CONSTANT)
    Q_PROPERTY(zorel::AlarmEditor* editor READ editor CONSTANT)
    Q_PROPERTY(zorel::RingCheck* ringCheck READ ringCheck NOTIFY ringCheckChanged)
    Q_PROPERTY(bool beginning READ beginning NOTIFY changed)
    Q_PROPERTY(bool elsewhere READ elsewhere NOTIFY changed)
    Q_PROPERTY(QString unknownHome READ unknownHome NOTIFY changed)
    Q_PROPERTY(QString listTrouble READ listTrouble NOTIFY changed)
    Q_PROPERTY(QString suggestedCity READ suggestedCity NOTIFY changed)
    Q_PROPERTY(QString suggestedCountry READ suggestedCountry NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool undoable READ undoable NOTIFY messageChanged)

public:
    /// @param healthy whether the user database and the catalogue can be read: only then no cities means
    /// that there are none yet
    FirstPage(Host& host, ZorelSettingsController& pane, bool healthy);

    [[nodiscard]] TodayModel* today() { return &today_; }
    [[nodiscard]] AlarmRows* alarms() { return &alarms_; }
    [[nodiscard]] AlarmEditor* editor() { return &editor_; }
    /// Whether somebody rings; nullptr where nobody asks.
    [[nodiscard]] RingCheck* ringCheck() const { return ringCheck_.get(); }
    void setRingCheck(std::unique_ptr<RingCheck> check);
    /// Whether there is no city yet.
    [[nodiscard]] bool beginning() const;
    /// Whether the machine's time zone is not that of the home city, and nobody has said that this is well.
    [[nodiscard]] bool elsewhere() const;
    /// That the times of the home city cannot be told, and why; empty where they can.
    [[nodiscard]] QString unknownHome() const;
    /// That the list of cities cannot be read, or not just now; empty when it was read.
    [[nodiscard]] QString listTrouble() const;
    /// The city that the machine's time zone suggests; empty when it suggests none.
    [[nodiscard]] QString suggestedCity() const;
    [[nodiscard]] QString suggestedCountry() const;
    /// A word on what has just been done; empty after some seconds.
    [[nodiscard]] QString message() const { return message_; }
    [[nodiscard]] bool undoable() const { return static_cast<bool>(undo_); }

    /// Makes the suggested city the home city; can be undone for some seconds.
    Q_INVOKABLE void useSuggestion();
    /// The home city stays although the machine is elsewhere. Holds until the machine moves on.
    Q_INVOKABLE void declineSuggestion();
    Q_INVOKABLE void openSearch();
    /// Reads the list of cities anew.
    Q_INVOKABLE void readAgain();
    /// Why a search found nothing: the catalogue cannot be read, or there is no such name.
    Q_INVOKABLE QString emptySearchText(const QString& searched) const;
    Q_INVOKABLE void undo();

signals:
    void changed();
    void ringCheckChanged();
    void messageChanged();

private:
    void follow();
    void noteAddition();
    void readSuggestion();
    void tellFooter();
    void lookWhetherFree();
    void say(const QString& message, std::function<void()> undo);
    void makeHome(std::int32_t cityId);
    void remove(std::int32_t cityId);
    [[nodiscard]] int rowOf(std::int32_t cityId) const;

    Host& host_;
    ZorelSettingsController& pane_;
    bool healthy_;
    Words words_;
    TodayModel today_;
    AlarmRows alarms_;
    AlarmEditor editor_;
    std::unique_ptr<RingCheck> ringCheck_;
    std::optional<CataloguePlace> suggestion_;
    std::string suggestionZone_; ///< machine zone that the suggestion was read for
    std::string declinedZone_;
    std::size_t cities_;
    QString message_;
    std::function<void()> undo_;
    QTimer messageTimer_;
    QTimer busyTimer_;   ///< until the list is asked for again
    std::string footer_; ///< what is said below the cities
};

} // namespace zorel
