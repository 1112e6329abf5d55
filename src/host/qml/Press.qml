// SPDX-License-Identifier: Apache-2.0
// Something that can be pressed: by a finger, by Return and Space, by a screen reader. At least 44 points high.
import QtQuick
import Zorel.Views

Item {
    id: press

    required property Host host
    required property Theme theme
    required property string name
    property int role: Accessible.Button
    property real corner: theme.corner
    readonly property bool pressed: tap.pressed
    signal activated()

    implicitHeight: theme.target
    activeFocusOnTab: true
    Accessible.role: role
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onPressAction: activated()
    Accessible.onToggleAction: activated()
    Keys.onReturnPressed: activated()
    Keys.onEnterPressed: activated()
    Keys.onSpacePressed: activated()

    Rectangle {
        anchors.fill: parent
        visible: press.activeFocus && press.host.keyboardUsed
        color: "transparent"
        border { color: press.theme.accent; width: 2 }
        radius: press.corner
        z: 1
    }
    TapHandler {
        id: tap
        onTapped: press.activated()
    }
}
