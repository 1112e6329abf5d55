// SPDX-License-Identifier: Apache-2.0
// A clock time; where it is told in halves of the day, the half stands smaller beside it.
import QtQuick

Item {
    id: clock

    property string time
    property color color
    property int size: 15
    property int weight: Font.Normal
    // Digits, and what stands before and behind them.
    readonly property var parts: time.match(/^(\D*)(\d.*\d)(\D*)$/) || ["", "", time, ""]
    readonly property int smaller: Math.max(11, Math.round(size * 0.5))

    implicitWidth: Math.ceil(before.width + digits.implicitWidth + after.width)
    implicitHeight: digits.implicitHeight
    readonly property alias ascent: metrics.ascent
    FontMetrics {
        id: metrics
        font: digits.font
    }
    Text {
        id: before
        width: text === "" ? 0 : implicitWidth + clock.size * 0.2
        anchors.baseline: digits.baseline
        text: clock.parts[1].trim()
        textFormat: Text.PlainText
        color: clock.color
        font { pixelSize: clock.smaller; weight: clock.weight }
        Accessible.ignored: true
    }
    Text {
        id: digits
        anchors.left: before.right
        text: clock.parts[2]
        textFormat: Text.PlainText
        color: clock.color
        font { pixelSize: clock.size; weight: clock.weight }
        Accessible.ignored: true
    }
    Text {
        id: after
        width: text === "" ? 0 : implicitWidth + clock.size * 0.2
        anchors { left: digits.right; baseline: digits.baseline }
        horizontalAlignment: Text.AlignRight
        text: clock.parts[3].trim()
        textFormat: Text.PlainText
        color: clock.color
        font { pixelSize: clock.smaller; weight: clock.weight }
        Accessible.ignored: true
    }
}
