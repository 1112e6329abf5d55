// SPDX-License-Identifier: Apache-2.0
// Colours and measures of the window: light, dark, and both with high contrast. Texts stand at least 4.5 : 1 against their
// grounds, controls 3 : 1; with high contrast 7 : 1 and 4.5 : 1.
import QtQuick

QtObject {
    property bool dark: false
    property bool highContrast: false
    // Whether nothing is to move by itself.
    property bool still: false
    // Pixels of a drawing for one of its points.
    property real scale: 1
    readonly property int look: (dark ? 1 : 0) + (highContrast ? 2 : 0)
    readonly property color ground: ["#f1f3f2", "#111513", "#ffffff", "#000000"][look]
    readonly property color row: ["#ffffff", "#1d2421", "#ffffff", "#000000"][look]
    readonly property color pressed: ["#e1e5e3", "#2f3834", "#d2d9d6", "#3a4541"][look]
    readonly property color line: ["#d8dedb", "#34403b", "#000000", "#ffffff"][look]
    // Edges of controls.
    readonly property color edge: ["#7a8581", "#8a9591", "#000000", "#ffffff"][look]
    readonly property color text: ["#16201c", "#eef3f1", "#000000", "#ffffff"][look]
    readonly property color quiet: ["#56615c", "#a9b6b1", "#1f2724", "#e6ebe9"][look]
    readonly property color accent: ["#14695a", "#6fd3bd", "#00463a", "#93f0dc"][look]
    readonly property color accentGround: ["#e3f1ed", "#17332c", "#ffffff", "#000000"][look]
    readonly property color track: ["#7a8581", "#8a9591", "#4a544f", "#c3ccc8"][look]
    readonly property color knob: ["#ffffff", "#10231e", "#ffffff", "#000000"][look]
    readonly property color danger: ["#b8261b", "#ff8378", "#8a0d05", "#ffb3ab"][look]
    readonly property color warn: ["#7d4400", "#ffb86b", "#552e00", "#ffd29e"][look]
    readonly property color warnGround: ["#fff3e0", "#33240f", "#ffffff", "#000000"][look]
    readonly property color messageGround: ["#26302c", "#e6ebe9", "#000000", "#ffffff"][look]
    readonly property color messageText: ["#ffffff", "#16201c", "#ffffff", "#000000"][look]
    readonly property color messageAccent: ["#8fe0cd", "#14695a", "#93f0dc", "#00463a"][look]
    readonly property color overAccent: ["#ffffff", "#0c1614", "#ffffff", "#000000"][look]
    // Width of the line around a card.
    readonly property int cardEdge: highContrast ? 1 : 0
    readonly property int margin: 16
    readonly property int corner: 10
    readonly property int cardCorner: 14
    readonly property int textSize: 16
    readonly property int noteSize: 15
    readonly property int smallSize: 13
    // The least height and width of what can be pressed.
    readonly property int target: 44
    // Milliseconds that a movement takes.
    function duration(usual: int): int { return still ? 0 : usual }
    // Size in pixels of a drawing that is so large in points.
    function pixels(width: real, height: real): size { return Qt.size(Math.ceil(width * scale), Math.ceil(height * scale)) }
}
