// SPDX-License-Identifier: Apache-2.0
#include "host/Words.h"

#include "words/Language.h"
#include "words/Tr.h"

namespace zorel {

namespace {

struct Entry {
    const char* key;
    const char* english;
    const char* context = nullptr;
};

constexpr const char* kMoon = "phase of the Moon";
constexpr const char* kPrayer = "prayer time";

constexpr Entry kTable[] = {
    {"delete", trLater("Delete")},
    {"deleteCity", trLater("Delete {}")},
    {"deleted", trLater("{} is deleted")},
    {"edit", trLater("Edit")},
    {"done", trLater("Done")},
    {"undo", trLater("Undo")},
    {"back", trLater("Back")},
    {"close", trLater("Close")},
    {"copy", trLater("Copy")},
    {"copied", trLater("Copied")},
    {"clear", trLater("Clear")},
    {"nothingFound", trLater("Nothing found")},
    {"threeLetters", trLater("three letters, please")},
    // First start.
    {"whatThisIs", trLater("Zorel tells the prayer times of your city and can wake you for them.")},
    {"whereDoYouPray", trLater("Where do you pray?")},
    {"searchCity", trLater("Search for another city")},
    {"homeNow", trLater("{} is your home city now")},
    {"homeCity", trLater("Home city")},
    {"added", trLater("{} is in your list now")},
    {"inCity", trLater("You seem to be in {}. Use it?")},
    {"use", trLater("Use it")},
    {"notNow", trLaterIn("answer", "No"), "answer"},
    // Today.
    {"today", trLater("Today")},
    {"nextPrayer", trLater("Next prayer")},
    {"nextTime", trLaterIn("prayer time", "Next"), kPrayer},
    {"in", trLater("in {}")},
    {"tomorrow", trLater("tomorrow")},
    {"yesterday", trLater("the evening before")},
    {"hoursMinutes", trLater("{0} h {1} min")},
    {"minutes", trLater("{} min")},
    {"seconds", trLater("{} s")},
    {"passed", trLaterIn("prayer time", "passed"), kPrayer},
    // Alarms.
    {"off", trLaterIn("alarm", "off"), "alarm"},
    // translators: {0} a day such as "today" or "tomorrow", {1} the clock's time
    {"rings", trLater("rings {0} {1}")},
    {"skips", trLater("skips {0} {1}")},
    {"pausedUntil", trLater("paused until {}")},
    {"todayWord", trLater("today")},
    {"noTimeUntil", trLater("no such time until {}")},
    {"noSuchTimeAhead", trLater("no such time ahead")},
    {"willNotRing", trLater("will not ring: {}")},
    {"nextIsOff", trLater("Its alarm is off")},
    {"offRests", trLater("Off. Switch it on to choose when and how it rings.")},
    {"listen", trLater("Listen")},
    {"silence", trLater("Stop")},
    {"toneFailed", trLater("The ringtone could not be played.")},
    {"alarmOf", trLater("Alarm {}")},
    {"repair", trLater("Repair")},
    {"nobodyRings", trLater("Alarms may not ring: the ring service is not running.")},
    {"start", trLater("Start it")},
    {"now", trLater("now")},
    {"next", trLaterIn("prayer time", "next"), kPrayer},
    {"none", trLaterIn("prayer time", "none"), kPrayer},
    {"otherTimes", trLater("Other times")},
    {"noTimes", trLater("The times of {} cannot be told: the city catalogue does not have it.")},
    {"noCatalogue", trLater("The times of {} cannot be told: the city catalogue cannot be read.")},
    {"listBusy", trLater("Another program is at work on your cities. They will be here in a moment.")},
    {"listUnreadable",
     trLater("Your cities and alarms cannot be read, so no times are shown. Nothing was changed.")},
    {"tryAgain", trLater("Try again")},
    {"searchUnreadable", trLater("The city catalogue cannot be read.")},
    {"dayBar", trLater("The day from midnight to midnight")},
    {"moon", trLater("Moon {}")},
    {"new moon", trLaterIn("phase of the Moon", "new"), kMoon},
    {"full moon", trLaterIn("phase of the Moon", "full"), kMoon},
    {"first quarter", trLater("first quarter")},
    {"last quarter", trLater("last quarter")},
    {"phaseToday", trLater("{} today")},
    // translators: {0} a phase of the Moon, {1} "3 days"
    {"phaseIn", trLater("{0} in {1}")},
    {"qibla", trLater("Qibla {}")},
    {"sunThere", trLater("Sun there at {}")},
    {"fromNorth", trLater("from true north")},
    {"everyDirection", trLater("Every direction")},
    // Names of the times that the pane has no label for.
    {"last_sixth_of_night", trLater("Last sixth of the night")},
    {"before_noon", trLater("Before noon: no prayer")},
    {"isha_second", trLater("Second Isha")},
    {"first_third_of_night", trLater("First third of the night")},
    {"middle_of_night", trLater("Middle of the night")},
    // Why a time is what it is.
    {"why", trLater("Why {}?")},
    {"sunBelow", trLater("The Sun stands {}° below the horizon.")},
    {"sunAbove", trLater("The Sun stands {}° above the horizon.")},
    {"sunAtHorizonMorning", trLater("The Sun rises.")},
    {"sunAtHorizonEvening", trLater("The Sun sets.")},
    {"shadowOnce", trLater("A shadow is longer than at noon by the length of what casts it.")},
    {"shadowTwice", trLater("A shadow is longer than at noon by twice the length of what casts it.")},
    {"sunHighest", trLater("The Sun stands highest.")},
    // translators: {1} is the name of a prayer time
    {"partAfter", trLater("1/{0} of the night after {1}.")},
    // translators: {1} is the name of a prayer time
    {"partBefore", trLater("1/{0} of the night before {1}.")},
    {"precautionLater", trLater("{} added as a precaution (temkin).")},
    {"precautionEarlier", trLater("{} taken off as a precaution (temkin).")},
    {"additionLater", trLater("{} added by the rule.")},
    {"additionEarlier", trLater("{} taken off by the rule.")},
    {"roundedLater", trLater("Exactly {0}; shown as {1}, the next minute, so that nobody prays too early.")},
    {"roundedEarlier", trLater("Exactly {0}; shown as {1}, the minute before, so that nobody is late.")},
    {"exactly", trLater("Exactly {}.")},
    {"lowered", trLater("The Sun does not rise or set there that day: computed at {}° of latitude.")},
    {"takenFrom", trLater("The sky does not get dark enough: taken from {}.")},
    {"noSuchTime", trLater("There is no such time that day.")},
    {"before_midnight", trLater("It lies before midnight, on the evening before.")},
    {"seam_of_days", trLater("Judged by the Sun of this very day.")},
    {"own_sun", trLater("Taken from the Sun of this very day.")},
    {"date_line", trLater("The clock there is a day away from its meridian.")},
    {"night_without_ends", trLater("That night has no beginning or no end.")},
    {"sun_still_up", trLater("Moved to where the Sun is really down (or up).")},
    {"clock_change", trLater("The clock changes that day: told by the clock then in force.")},
    {"out_of_order", trLater("Taken from an earlier day it would stand out of its order.")},
    {"true_qibla", trLater("Towards the Kaaba itself.")},
};

/// QML and QString::arg know %1 and %2.
QString withPlaces(std::string text) {
    QString places = QString::fromStdString(text);
    places.replace("{}", "%1");
    for (int place = 0; place < 3; ++place) {
        places.replace(QStringLiteral("{%1}").arg(place), QStringLiteral("%%1").arg(place + 1));
    }
    return places;
}

QString textOf(const Entry& entry) {
    return withPlaces(entry.context == nullptr ? tr(entry.english) : trIn(entry.context, entry.english));
}

} // namespace

QString Words::operator()(const QString& key) const {
    for (const Entry& entry : kTable) {
        if (key == QLatin1String(entry.key)) {
            return textOf(entry);
        }
    }
    return key;
}

QVariantMap Words::map() const {
    QVariantMap all;
    for (const Entry& entry : kTable) {
        all.insert(QLatin1String(entry.key), textOf(entry));
    }
    return all;
}

QString Words::days(int count) const {
    return QString::fromStdString(trPlural("{} day", "{} days", static_cast<unsigned>(count)));
}

QString Words::placesFound(int count) const {
    return QString::fromStdString(
        trPlural("{} place found", "{} places found", static_cast<unsigned>(count)));
}

bool Words::turkish() const {
    return languageInUse() == "tr";
}

} // namespace zorel
