// SPDX-License-Identifier: Apache-2.0
// How a switch looks.
import QtQuick

Rectangle {
    id: track

    required property Theme theme
    property bool on: false

    width: 51
    height: 31
    radius: height / 2
    color: on ? theme.accent : theme.track
    Behavior on color { ColorAnimation { duration: track.theme.duration(140) } }
    Rectangle {
        width: 25
        height: 25
        radius: 12.5
        x: track.on ? parent.width - width - 3 : 3
        y: 3
        color: track.on ? track.theme.knob : track.theme.highContrast ? track.theme.row : "#ffffff"
        Behavior on x { NumberAnimation { duration: track.theme.duration(140); easing.type: Easing.OutCubic } }
    }
}
