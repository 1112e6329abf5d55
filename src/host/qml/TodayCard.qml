// SPDX-License-Identifier: Apache-2.0
// Today: the next prayer and how long it is away, the day's light, the six times, the date.
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
    readonly property real cellWidth: today.nextTime.length > 5 ? 70 : 54
    readonly property int columns: [6, 3, 2, 1].find(count => count * cellWidth <= inside.width) || 1
    readonly property bool stacked: nextTime.implicitWidth + beside.implicitWidth + 12 > inside.width

    implicitHeight: inside.implicitHeight + 28
    radius: theme.cardCorner
    color: theme.row

    Column {
        id: inside
        anchors { top: parent.top; topMargin: 16; left: parent.left; right: parent.right; leftMargin: 16; rightMargin: 16 }
        spacing: 10

        Item {
            width: parent.width
            height: beside.y + beside.height > nextTime.y + nextTime.height ? beside.y + beside.height : nextTime.y + nextTime.height
            Accessible.role: Accessible.Grouping
            Accessible.name: [card.host.words.nextPrayer, card.today.nextName, card.today.nextDay, card.today.nextTime,
                              card.today.countdown, card.ring.text].filter(part => part !== "").join(", ")
            Text {
                id: nextName
                width: parent.width
                text: [card.host.words.nextPrayer + ": " + card.today.nextName, card.today.nextDay].filter(part => part !== "").join(" · ")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: card.theme.text
                font { pixelSize: 18; weight: Font.DemiBold }
                Accessible.ignored: true
            }
            Text {
                id: nextTime
                anchors.top: nextName.bottom
                width: Math.min(implicitWidth, parent.width)
                text: card.today.nextTime
                textFormat: Text.PlainText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 20
                color: card.theme.text
                font { pixelSize: 46; weight: Font.Bold }
                Accessible.ignored: true
            }
            Column {
                id: beside
                y: card.stacked ? nextTime.y + nextTime.height : nextTime.y + nextTime.height - height + 6
                x: card.stacked ? 0 : parent.width - width
                Text {
                    anchors.right: card.stacked ? undefined : parent.right
                    text: card.today.countdown
                    textFormat: Text.PlainText
                    color: card.theme.accent
                    font { pixelSize: 18; weight: Font.DemiBold }
                    Accessible.ignored: true
                }
                TextButton {
                    anchors.right: card.stacked ? undefined : parent.right
                    implicitWidth: Math.max(card.theme.target, whySize.advanceWidth + 4)
                    host: card.host
                    theme: card.theme
                    visible: card.today.nextTime !== ""
                    text: card.host.words.why.arg(card.today.nextTime)
                    onActivated: card.today.ask("next")
                    TextMetrics {
                        id: whySize
                        font { pixelSize: card.theme.textSize; weight: Font.DemiBold }
                        text: card.host.words.why.arg(card.today.nextTime)
                    }
                }
            }
        }
        Row {
            spacing: 8
            visible: card.ring.text !== ""
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 12
                height: 12
                radius: 6
                color: card.ring.rings ? card.theme.accent : card.ring.bad ? card.theme.warn : "transparent"
                border { width: 2; color: card.ring.rings ? card.theme.accent : card.ring.bad ? card.theme.warn : card.theme.quiet }
            }
            Text {
                width: Math.min(implicitWidth, inside.width - 20)
                text: card.ring.text.charAt(0).toLocaleUpperCase() + card.ring.text.substring(1)
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: card.ring.rings ? card.theme.accent : card.ring.bad ? card.theme.warn : card.theme.quiet
                font { pixelSize: card.theme.noteSize; weight: card.ring.rings ? Font.DemiBold : Font.Normal }
                Accessible.ignored: true
            }
        }
        DayBar {
            width: parent.width
            height: 24
            visible: stops.length > 0
            stops: card.today.bar
            present: card.today.nowPart
            markColor: card.theme.text
            markGround: card.theme.row
            textureSize: Qt.size(width * card.host.textScale, height * card.host.textScale)
            Accessible.role: Accessible.Graphic
            Accessible.name: card.host.words.dayBar
        }
        Grid {
            id: six
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
            width: parent.width
            text: [card.today.date, card.today.hijri].filter(part => part !== "").join(" · ")
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
                    Text {
                        id: otherTime
                        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                        text: other.modelData.time
                        textFormat: Text.PlainText
                        color: card.theme.text
                        font.pixelSize: card.theme.textSize
                        Accessible.ignored: true
                    }
                }
            }
        }
        TextButton {
            x: -8
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
