// SPDX-License-Identifier: Apache-2.0
// A control that draws itself, somewhat larger than it does so: a mark in its own colour, or filled where it is selected.
import QtQuick
import Zorel.Views

Press {
    id: button

    required property ViewHandle handle
    property bool filled: false
    property color color: filled ? theme.overAccent : theme.edge
    property real enlarged: 1.25

    name: ""
    width: theme.target
    height: theme.target
    activeFocusOnTab: false
    Accessible.ignored: true

    Rectangle {
        anchors.centerIn: parent
        width: 2 * Math.round(drawing.height * button.enlarged / 2)
        height: width
        radius: width / 2
        color: button.pressed ? button.theme.pressed : button.filled ? button.theme.accent : "transparent"
    }
    ViewItem {
        id: drawing
        anchors.centerIn: parent
        width: button.handle ? button.handle.viewWidth : 0
        height: button.handle ? button.handle.viewHeight : 0
        scale: button.enlarged
        textureSize: button.theme.pixels(width * scale, height * scale)
        handle: button.handle
        dark: button.theme.dark
        tint: button.color
        // The button around it takes the touches.
        enabled: false
    }
}
