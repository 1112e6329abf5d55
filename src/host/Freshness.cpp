// SPDX-License-Identifier: Apache-2.0
#include "host/Freshness.h"

#include <QFileInfo>
#include <QGuiApplication>

namespace zorel {

namespace {

/// A clock that is steered to the right time goes a little faster or slower; that is not setting it.
constexpr std::chrono::seconds kSteered{5};

} // namespace

Freshness::Freshness(const QString& file, std::function<std::string()> moment, std::function<void()> renew)
    : file_(file), moment_(std::move(moment)), renew_(std::move(renew)), shown_(moment_()),
      written_(written()) {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive) {
            look(true);
        }
    });
}

QDateTime Freshness::written() const {
    return QFileInfo(file_).lastModified();
}

bool Freshness::clockWasSet() {
    const Instant clock = now();
    const auto time = std::chrono::steady_clock::now();
    const auto gone = std::chrono::abs((clock - clock_) - (time - time_));
    clock_ = clock;
    time_ = time;
    return gone > kSteered;
}

void Freshness::look(bool atFile) {
    const bool newClock = clockWasSet();
    const bool newMoment = moment_() != shown_;
    const bool newFile = atFile && written() != written_;
    if (newClock || newMoment || newFile) {
        renew_();
        shown_ = moment_();
        written_ = written();
    }
}

} // namespace zorel
