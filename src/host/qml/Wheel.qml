// SPDX-License-Identifier: Apache-2.0
// A wheel of rows; the one in the middle is selected.
import QtQuick
import Zorel.Views

Item {
    id: wheel

    required property ViewHandle handle
    required property Theme theme
    // The table around the wheel. A finger turns either the wheel or the table, and so does the mouse's wheel.
    required property Flickable list
    readonly property real rowHeight: theme.target
    // A finger turns it past a row; it has come to rest.
    signal passing(row: int)
    signal resting()

    clip: true
    Rectangle {
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; margins: 8 }
        height: wheel.rowHeight
        radius: 7
        color: wheel.theme.pressed
    }
    ListView {
        id: rows
        anchors.fill: parent
        model: wheel.handle ? wheel.handle.model : null
        highlightRangeMode: ListView.StrictlyEnforceRange
        preferredHighlightBegin: (height - wheel.rowHeight) / 2
        preferredHighlightEnd: preferredHighlightBegin + wheel.rowHeight
        highlightMoveDuration: 0
        snapMode: ListView.SnapToItem
        flickDeceleration: 3000
        keyNavigationEnabled: false
        interactive: !wheel.list.moving
        PointHandler { onActiveChanged: wheel.list.interactive = !active }
        // One notch of the mouse's wheel is one row, at once.
        WheelHandler {
            enabled: !wheel.list.moving
            property real turned: 0
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: event => {
                const notch = 120
                turned += event.angleDelta.y
                const steps = Math.trunc(turned / notch)
                turned -= steps * notch
                wheel.handle.turn(-steps)
            }
        }
        onCurrentIndexChanged: if (moving) wheel.passing(currentIndex)
        onMovementEnded: {
            wheel.resting()
            if (wheel.handle)
                wheel.handle.pick(currentIndex)
        }
        delegate: Text {
            required property string rowText
            required property int index
            width: ListView.view.width
            height: wheel.rowHeight
            leftPadding: 16
            rightPadding: 16
            text: rowText
            textFormat: Text.PlainText
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: ListView.isCurrentItem ? wheel.theme.text : wheel.theme.quiet
            font.pixelSize: 18
            TapHandler { onTapped: wheel.handle.pick(index) }
        }
        function follow() {
            if (wheel.handle && !moving) {
                currentIndex = wheel.handle.selectedRow
                positionViewAtIndex(currentIndex, ListView.SnapPosition)
            }
        }
        Component.onCompleted: follow()
        onCountChanged: follow()
        onHeightChanged: follow()
    }
    Connections {
        target: wheel.handle
        function onSelectedRowChanged() { rows.follow() }
    }
}
