// SPDX-License-Identifier: Apache-2.0
// Today: the next prayer, how long it is away and whether it will ring; the day's light, the six times, the date.
import QtQuick
import Zorel.Views

Rectangle {
    id: card

    required property Host host
    required property Theme theme
    required property var today
    // What the alarm of the next prayer does: {text, rings, bad}.
    required property var ring
    property bool unfolded: false
    readonly property bool halves: today.nextTime.length > 5
    readonly property int columns: [6, 3, 2, 1].find(count => count * (halves ? 62 : 54) <= inside.width) || 1

    implicitHeight: inside.implicitHeight + 24
    radius: theme.cardCorner
    color: theme.row
    border { width: theme.cardEdge; color: theme.line }

    Column {
        id: inside
        anchors { top: parent.top; topMargin: 16; left: parent.left; right: parent.right; leftMargin: 16; rightMargin: 16 }
        spacing: 12

        Item {
            id: next
            // Side by side where there is room for both.
            readonly property bool stacked: nextName.implicitWidth + 12 + nextTime.implicitWidth > width
            readonly property real begin: caption.height - 2
            readonly property bool narrow: width < 300
            readonly property bool reasonBelow: countdown.implicitWidth + 16 + reason.implicitWidth > width
            width: parent.width
            height: after.y + after.height
            Accessible.role: Accessible.Grouping
            Accessible.name: [card.today.nextLabel, card.today.nextName, card.today.nextDay, card.today.nextTime,
                              card.today.countdown, card.ring.text].filter(part => part !== "").join(", ")
            Text {
                id: caption
                width: parent.width
                text: [card.today.nextLabel, card.today.nextDay].filter(part => part !== "").join(" · ")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: card.theme.quiet
                font.pixelSize: card.theme.noteSize
                Accessible.ignored: true
            }
            Text {
                id: nextName
                y: next.stacked ? caption.height : next.begin + nextTime.ascent - nameMetrics.ascent
                width: Math.min(implicitWidth, parent.width)
                text: card.today.nextName
                textFormat: Text.PlainText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 14
                color: card.theme.text
                font { pixelSize: next.narrow ? 26 : 30; weight: Font.Bold }
                Accessible.ignored: true
            }
            FontMetrics {
                id: nameMetrics
                font: nextName.font
            }
            ClockText {
                id: nextTime
                x: next.stacked ? 0 : nextName.width + 12
                y: next.stacked ? caption.height + nextName.height - 4 : next.begin
                time: card.today.nextTime
                color: card.theme.text
                // As large as fits.
                size: Math.min(next.narrow ? 42 : 46, next.width / (card.halves ? 4.4 : 3.4))
                weight: Font.Bold
            }
            Flow {
                id: after
                y: nextTime.y + nextTime.height - 2
                width: parent.width
                spacing: 8
                Text {
                    id: countdown
                    height: next.reasonBelow ? implicitHeight + 8 : card.theme.target
                    width: next.reasonBelow ? parent.width : parent.width - 8 - reason.width
                    verticalAlignment: Text.AlignVCenter
                    text: card.today.countdown
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: card.theme.accent
                    font { pixelSize: next.narrow ? 18 : 20; weight: Font.DemiBold }
                    Accessible.ignored: true
                }
                TextButton {
                    id: reason
                    light: true
                    flush: true
                    host: card.host
                    theme: card.theme
                    visible: card.today.nextTime !== ""
                    text: card.host.words.why.arg(card.today.nextTime)
                    onActivated: card.today.ask("next")
                }
            }
        }
        RingLine {
            width: parent.width
            theme: card.theme
            text: card.ring.text
            rings: card.ring.rings
            bad: card.ring.bad
            Accessible.ignored: true
        }
        DayBar {
            width: parent.width
            height: 24
            visible: stops.length > 0
            stops: card.today.bar
            present: card.today.nowPart
            markColor: card.theme.text
            markGround: card.theme.row
            textureSize: card.theme.pixels(width, height)
            Accessible.role: Accessible.Graphic
            Accessible.name: card.host.words.dayBar
        }
        Grid {
            width: parent.width
            columns: card.columns
            rowSpacing: 4
            Repeater {
                model: card.today.six
                delegate: TimeCell {
                    required property var modelData
                    width: inside.width / card.columns
                    entry: modelData
                    host: card.host
                    theme: card.theme
                    onActivated: card.today.ask(modelData.key)
                }
            }
        }
        Text {
            id: dates
            readonly property var both: [card.today.date, card.today.hijri].filter(part => part !== "")
            width: parent.width
            text: both.join(bothDates.advanceWidth > width ? "\n" : " · ")
            TextMetrics {
                id: bothDates
                font.pixelSize: card.theme.noteSize
                text: dates.both.join(" · ")
            }
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: card.theme.quiet
            font.pixelSize: card.theme.noteSize
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Column {
            width: parent.width
            visible: card.unfolded
            Repeater {
                model: card.unfolded ? card.today.others : []
                delegate: Press {
                    id: other
                    required property var modelData
                    width: inside.width
                    implicitHeight: Math.max(theme.target, otherName.implicitHeight + 16)
                    host: card.host
                    theme: card.theme
                    name: [modelData.name, modelData.time, modelData.day].filter(part => part !== "").join(", ")
                    onActivated: card.today.ask(modelData.key)
                    Text {
                        id: otherName
                        anchors { left: parent.left; right: otherTime.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                        text: [other.modelData.name, other.modelData.day].filter(part => part !== "").join(" · ")
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: card.theme.text
                        font.pixelSize: card.theme.noteSize
                        Accessible.ignored: true
                    }
                    ClockText {
                        id: otherTime
                        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                        time: other.modelData.time
                        color: card.theme.text
                        size: card.theme.textSize
                    }
                }
            }
        }
        Item {
            width: parent.width
            height: 26
            TextButton {
                anchors.verticalCenter: parent.verticalCenter
                light: true
                flush: true
                host: card.host
                theme: card.theme
                text: card.host.words.otherTimes + (card.unfolded ? " \u25b4" : " \u25be")
                name: card.host.words.otherTimes
                Accessible.checkable: true
                Accessible.checked: card.unfolded
                onActivated: card.unfolded = !card.unfolded
            }
        }
    }
}
