// SPDX-License-Identifier: Apache-2.0
// The on/off switch of a view.
import QtQuick
import Zorel.Views

Item {
    id: toggle

    required property ViewHandle handle
    required property Theme theme
    readonly property bool on: handle !== null && handle.on

    SwitchTrack {
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        theme: toggle.theme
        on: toggle.on
        // A finger may be as much beside it as makes 44 points.
        TapHandler {
            margin: 8
            onTapped: toggle.handle.toggle()
        }
    }
}
