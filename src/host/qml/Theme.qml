// SPDX-License-Identifier: Apache-2.0
// Colours and measures of the window, light and dark. Texts stand at least 4.5 : 1 against their grounds, controls 3 : 1.
import QtQuick

QtObject {
    property bool dark: false
    readonly property color ground: dark ? "#111513" : "#f1f3f2"
    readonly property color bar: dark ? "#111513" : "#f1f3f2"
    readonly property color row: dark ? "#1d2421" : "#ffffff"
    readonly property color pressed: dark ? "#2f3834" : "#e1e5e3"
    readonly property color line: dark ? "#34403b" : "#d8dedb"
    readonly property color text: dark ? "#eef3f1" : "#16201c"
    readonly property color quiet: dark ? "#a9b6b1" : "#56615c"
    readonly property color accent: dark ? "#6fd3bd" : "#14695a"
    readonly property color accentGround: dark ? "#17332c" : "#e3f1ed"
    readonly property color track: dark ? "#8a9591" : "#7a8581"
    readonly property color knob: dark ? "#10231e" : "#ffffff"
    readonly property color danger: dark ? "#ff8378" : "#b8261b"
    readonly property color warn: dark ? "#ffb86b" : "#7d4400"
    readonly property color warnGround: dark ? "#33240f" : "#fff3e0"
    readonly property color messageGround: dark ? "#e6ebe9" : "#26302c"
    readonly property color messageText: dark ? "#16201c" : "#ffffff"
    readonly property color messageAccent: dark ? "#14695a" : "#8fe0cd"
    readonly property color overAccent: dark ? "#0c1614" : "#ffffff"
    readonly property int margin: 16
    readonly property int corner: 10
    readonly property int cardCorner: 14
    readonly property int textSize: 16
    readonly property int noteSize: 15
    readonly property int smallSize: 13
    // The least height and width of what can be pressed.
    readonly property int target: 44
}
