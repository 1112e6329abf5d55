// SPDX-License-Identifier: Apache-2.0
#include "host/Freshness.h"

#include <QFileInfo>
#include <QGuiApplication>

namespace zorel {

namespace {

constexpr int kLookMilliseconds = 30'000;

/// The present day, at its midnight.
LocalDateTime today() {
    const LocalDateTime moment = localDateTime(now());
    return {.year = moment.year, .month = moment.month, .day = moment.day};
}

} // namespace

Freshness::Freshness(const QString& file, std::function<void()> renew)
    : file_(file), renew_(std::move(renew)), day_(today()), written_(written()) {
    connect(&timer_, &QTimer::timeout, this, [this] { look(false); });
    timer_.start(kLookMilliseconds);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive) {
            look(true);
        }
    });
}

QDateTime Freshness::written() const {
    return QFileInfo(file_).lastModified();
}

void Freshness::look(bool atFile) {
    const bool newDay = today() != day_;
    const bool newFile = atFile && written() != written_;
    if (newDay || newFile) {
        day_ = today();
        renew_();
        written_ = written();
    }
}

} // namespace zorel
