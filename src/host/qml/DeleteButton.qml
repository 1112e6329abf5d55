// SPDX-License-Identifier: Apache-2.0
// The button that stands before a row while the list is edited.
import QtQuick

Press {
    id: button

    Rectangle {
        anchors.centerIn: parent
        width: 24
        height: 24
        radius: 12
        color: button.theme.danger
        Rectangle {
            anchors.centerIn: parent
            width: 12
            height: 2
            color: button.theme.row
        }
    }
}
