// SPDX-License-Identifier: Apache-2.0
#include "platform/uikit/UIObserver.h"

namespace zorel {

namespace {

UIObserver* installed = nullptr;

} // namespace

UIObserver::~UIObserver() {
    if (installed == this) {
        installed = nullptr;
    }
}

void UIObserver::install(UIObserver* observer) {
    installed = observer;
}

UIObserver& UIObserver::current() {
    // Never destroyed: views that live until the end of the process report to it.
    static UIObserver* const silent = new UIObserver;
    return installed != nullptr ? *installed : *silent;
}

} // namespace zorel
