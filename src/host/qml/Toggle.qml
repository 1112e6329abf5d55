// SPDX-License-Identifier: Apache-2.0
// An on/off switch.
import QtQuick
import Zorel.Views

Item {
    id: toggle

    required property ViewHandle handle
    required property Theme theme
    readonly property bool on: handle !== null && handle.on

    Rectangle {
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        width: 51
        height: 31
        radius: height / 2
        color: toggle.on ? toggle.theme.accent : toggle.theme.track
        Behavior on color { ColorAnimation { duration: 140 } }
        Rectangle {
            width: 27
            height: 27
            radius: 13.5
            x: toggle.on ? parent.width - width - 2 : 2
            y: 2
            color: toggle.on ? toggle.theme.knob : "#ffffff"
            Behavior on x { NumberAnimation { duration: 140; easing.type: Easing.OutCubic } }
        }
        TapHandler { onTapped: toggle.handle.toggle() }
    }
}
