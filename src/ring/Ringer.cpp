// SPDX-License-Identifier: Apache-2.0
#include "ring/Ringer.h"

#include "ring/PlayResult.h"

#include <cstdio>
#include <ctime>
#include <utility>

namespace zorel::ring {
namespace {

constexpr const char* kStop = "stop";
constexpr const char* kSnooze = "snooze";

std::string textOfResult(int status) {
    switch (static_cast<PlayResult>(status)) {
    case PlayResult::played:
        return "played";
    case PlayResult::noSoundServer:
        return "no sound server";
    case PlayResult::playedOther:
        return "the ringtone could not be played, the bundled tone was";
    case PlayResult::nothingPlayable:
        return "no tone could be played";
    default:
        return "the player failed";
    }
}

bool wasHeard(int status) {
    return status == static_cast<int>(PlayResult::played) ||
           status == static_cast<int>(PlayResult::playedOther);
}

} // namespace

Ringer::Ringer(sd_event* event, sd_bus* bus, std::string player, PutOff putOff)
    : event_(event), notifications_(bus), player_(std::move(player)), putOff_(std::move(putOff)) {}

void Ringer::setLabels(std::string stop, std::string snooze) {
    stopLabel_ = stop.empty() ? stopLabel_ : std::move(stop);
    snoozeLabel_ = snooze.empty() ? snoozeLabel_ : std::move(snooze);
}

void Ringer::ring(const Ring& ring) {
    closeNotification();
    current_ = ring;
    last_ = ring.title + ": ";
    const bool isInhibited = notifications_.areInhibited();
    if (isInhibited) {
        playing_.reset();
    } else {
        sound(ring);
    }
    showRing(ring);
    say(std::string(isInhibited ? "rings without sound (do not disturb)" : "rings") +
        (shown_ ? "" : ", no notification server"));
}

void Ringer::tellMissed(const Ring& ring) {
    last_ = ring.title + ": ";
    const auto shown = notifications_.show({ring.missed, ring.body, {}, false}, [](const auto&) {});
    say(shown ? "was missed and is told" : "was missed, no notification server");
}

bool Ringer::stop() {
    closeNotification();
    if (!playing_) {
        return false;
    }
    playing_->stop();
    return true;
}

bool Ringer::snooze() {
    if (!current_) {
        return false;
    }
    const Ring ring = *current_;
    stop();
    putOff_(ring);
    return true;
}

void Ringer::sound(const Ring& ring) {
    std::vector<std::string> words{player_, "--seconds", std::to_string(ring.duration.count())};
    for (const std::string& file : {ring.ringtone, ring.bundled}) {
        if (!file.empty()) {
            words.push_back(file);
        }
    }
    playing_ = std::make_unique<Child>(event_, words, [this](const auto& result) { soundEnded(result); });
}

void Ringer::showRing(const Ring& ring) {
    shown_ = notifications_.show({ring.title,
                                  ring.body,
                                  {{"default", stopLabel_}, {kStop, stopLabel_}, {kSnooze, snoozeLabel_}},
                                  true},
                                 [this, ring](const NotificationReply& reply) { answer(ring, reply); });
}

void Ringer::answer(const Ring& ring, const NotificationReply& reply) {
    if (shown_ != reply.id) {
        return; // of an earlier ring, which is silent already
    }
    if (reply.action == kSnooze) {
        current_ = ring;
        snooze();
    } else {
        stop();
    }
}

void Ringer::soundEnded(const Child::Result& result) {
    playing_.reset();
    last_ += "; ";
    say("sound ended, " + textOfResult(result.status) +
        (wasHeard(result.status) || shown_ ? "" : "; nobody was told"));
}

void Ringer::closeNotification() {
    if (const auto id = std::exchange(shown_, std::nullopt)) {
        notifications_.close(*id);
    }
}

void Ringer::say(const std::string& text) {
    last_ += text;
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    std::fprintf(stderr, "zorel-ring: %02d:%02d:%02d.%03ld %s\n", local.tm_hour, local.tm_min, local.tm_sec,
                 now.tv_nsec / 1'000'000, last_.c_str());
}

} // namespace zorel::ring
