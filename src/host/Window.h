// SPDX-License-Identifier: Apache-2.0
/// @file
/// The window that shows a host's screens.
#pragma once

#include <QQuickView>

namespace zorel {

class Host;

/// Widest content of the window [pt]; a wider window leaves its sides free.
inline constexpr double kColumnWidth = 640.0;

/// A phone-shaped window.
class Window : public QQuickView {
    Q_OBJECT

public:
    Window(Host& host, QSize size);
    ~Window() override;
};

} // namespace zorel
