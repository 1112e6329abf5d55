// SPDX-License-Identifier: Apache-2.0
#include "host/Freshness.h"

#include <QFileInfo>
#include <QGuiApplication>

namespace zorel {

Freshness::Freshness(const QString& file, std::function<almanac::Date()> today, std::function<void()> renew)
    : file_(file), today_(std::move(today)), renew_(std::move(renew)), day_(today_()), written_(written()) {
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
    const bool newDay = today_() != day_;
    const bool newFile = atFile && written() != written_;
    if (newDay || newFile) {
        renew_();
        day_ = today_();
        written_ = written();
    }
}

} // namespace zorel
