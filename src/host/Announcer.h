// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tells a screen reader what has just happened where nothing that has the focus says it.
#pragma once

class QString;
class QWindow;

namespace zorel {

/// Sends the AT-SPI event "announcement" for a window over Qt's own connection to the bus of screen readers:
/// Qt 6.4 has no call for it. Nothing while no screen reader is there.
void announceTo(QWindow& window, const QString& text);

} // namespace zorel
