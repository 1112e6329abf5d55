// SPDX-License-Identifier: Apache-2.0
// Colours and measures of the window, light and dark.
import QtQuick

QtObject {
    property bool dark: false
    readonly property color ground: dark ? "#111214" : "#f1f1f6"
    readonly property color bar: dark ? "#1a1b1e" : "#f9f9fb"
    readonly property color row: dark ? "#1f2124" : "#ffffff"
    readonly property color pressed: dark ? "#303338" : "#e2e2e8"
    readonly property color line: dark ? "#34373c" : "#d3d3da"
    readonly property color text: dark ? "#f2f2f4" : "#16171a"
    readonly property color quiet: dark ? "#a2a5ac" : "#62656d"
    readonly property color accent: dark ? "#58b7a6" : "#1b7d6c"
    readonly property color danger: dark ? "#ff6b5e" : "#c62f23"
    readonly property color onAccent: dark ? "#0c1614" : "#ffffff"
    readonly property int margin: 16
    readonly property int corner: 10
    readonly property int textSize: 16
    readonly property int smallSize: 13
}
