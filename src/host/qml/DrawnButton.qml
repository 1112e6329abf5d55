// SPDX-License-Identifier: Apache-2.0
// A control that draws itself, somewhat larger than it does so: a mark in its own colour, or filled where it is selected.
import QtQuick
import Zorel.Views

Press {
    id: button

    required property ViewHandle handle
    property bool filled: false
    property color color: filled ? theme.overAccent : theme.edge
    property real enlarged: 1.2

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
        // Whole points on the screen: a picture that has to be stretched loses lines.
        width: button.handle ? Math.ceil(button.handle.viewWidth * scale) / scale : 0
        height: button.handle ? Math.ceil(button.handle.viewHeight * scale) / scale : 0
        scale: button.enlarged
        textureSize: button.theme.pixels(Math.round(width * scale), Math.round(height * scale))
        handle: button.handle
        dark: button.theme.dark
        tint: button.color
        // The button around it takes the touches.
        enabled: false
    }
}
