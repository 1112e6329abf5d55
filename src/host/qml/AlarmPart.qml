// SPDX-License-Identifier: Apache-2.0
// The right part of an alarm's row: the prayer's time and the alarm's switch.
import QtQuick
import Zorel.Views

Row {
    id: part

    required property Host host
    required property Theme theme
    required property var alarm
    signal toggled()

    spacing: 6
    Text {
        anchors.verticalCenter: parent.verticalCenter
        text: part.alarm.time
        textFormat: Text.PlainText
        color: part.theme.text
        font.pixelSize: part.theme.textSize
        Accessible.ignored: true
    }
    Press {
        id: press
        width: 63
        anchors.verticalCenter: parent.verticalCenter
        host: part.host
        theme: part.theme
        name: part.host.words.alarmOf.arg(part.alarm.name)
        role: Accessible.CheckBox
        Accessible.checkable: true
        Accessible.checked: part.alarm.on
        Accessible.onToggleAction: part.toggled()
        onActivated: part.toggled()
        Rectangle {
            anchors.centerIn: parent
            width: 51
            height: 31
            radius: height / 2
            color: part.alarm.on ? part.theme.accent : part.theme.track
            Rectangle {
                x: part.alarm.on ? parent.width - width - 2 : 2
                y: 2
                width: 27
                height: 27
                radius: 13.5
                color: part.alarm.on ? part.theme.knob : "#ffffff"
            }
        }
    }
}
