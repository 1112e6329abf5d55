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
    ClockText {
        anchors.verticalCenter: parent.verticalCenter
        time: part.alarm.time
        color: part.theme.text
        size: part.theme.textSize
    }
    Press {
        width: 63
        anchors.verticalCenter: parent.verticalCenter
        host: part.host
        theme: part.theme
        name: part.host.words.alarmOf.arg(part.alarm.name)
        role: Accessible.CheckBox
        Accessible.checkable: true
        Accessible.checked: part.alarm.on
        onActivated: part.toggled()
        SwitchTrack {
            anchors.centerIn: parent
            theme: part.theme
            on: part.alarm.on
        }
    }
}
