// SPDX-License-Identifier: Apache-2.0
/// @file
/// The window that shows a host's screens.
#pragma once

#include <QQuickView>

namespace zorel {

class Host;

/// A phone-shaped window; its content is 320 points wide at least and fills up to 640.
/// Widest content of the window [pt]; a wider window leaves its sides free.
inline constexpr double kColumnWidth = 640.0;

class Window : public QQuickView {
    Q_OBJECT

public:
    Window(Host& host, QSize size);
};

} // namespace zorel
