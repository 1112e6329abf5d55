// SPDX-License-Identifier: Apache-2.0
// One row: a text, what stands at its right edge, and, behind it, the button that deletes it.
import QtQuick
import Zorel.Views

Item {
    id: cell

    required property ListView list
    required property Item entry
    required property Theme theme
    required property Host host
    readonly property bool grouped: list.handle !== null && list.handle.grouped
    readonly property bool reachable: !!entry.disclosure || accessory.operable || list.handle.selectable
    readonly property real deleteWidth: 88
    // Space for the button that deletes, while the list is edited.
    readonly property real indent: removal.visible ? theme.target : 0
    readonly property bool isOpen: face.x < -deleteWidth / 2

    // Space for the texts; where they are too long for one line, the second one stands below, so that no time is cut.
    readonly property real trailing: theme.margin + (chevron.visible ? chevron.width + 8 : 0)
    readonly property real room: frame.width - theme.margin - trailing - (alarmPart.item ? alarmPart.width + 8 : 0)
    // A search result tells its country and region below its name, as do the cities of the list.
    readonly property int cut: list.handle !== null && !list.handle.grouped && entry.rowText ? entry.rowText.indexOf(" / ") : -1
    readonly property string name: cut < 0 ? entry.rowText || "" : entry.rowText.substring(0, cut)
    readonly property string second: alarm ? alarm.text : cut < 0 ? entry.detail || "" : entry.rowText.substring(cut + 3).split(" / ").join(", ")
    readonly property var page: list.ofPane ? host.firstPage : null
    readonly property var alarm: page && !!entry.disclosure && page.alarms.rows.length > entry.row ? page.alarms.rows[entry.row] : null
    readonly property bool marked: drawn && accessory.checked && host.firstPage !== null
    readonly property bool drawn: accessory.wide && accessory.kind === "plain" && !accessory.inert
    readonly property bool stacked: drawn || alarm !== null || cut >= 0 || second !== "" && labelSize.advanceWidth + 8 + detailSize.advanceWidth > room

    TextMetrics {
        id: labelSize
        font.pixelSize: cell.theme.textSize
        text: cell.name
    }
    TextMetrics {
        id: detailSize
        font.pixelSize: cell.theme.noteSize
        text: cell.second
    }

    width: entry.width
    // A wheel shows the row in the middle and one whole row above and below it.
    height: accessory.kind === "picker" ? 3 * theme.target + 6
          : Math.max(entry.entryHeight || 0, theme.target + 4, drawn ? drawnHeight : stacked ? label.implicitHeight + detail.implicitHeight + 16 : 0)
    // A name in the middle of the first 60 points, and the line below it.
    readonly property real drawnHeight: second === "" && !marked ? 60 : 42 + detail.implicitHeight + 8

    function activate() {
        if (isOpen)
            remove()
        else if (accessory.operable)
            accessory.operate()
        else
            list.handle.model.select(entry.section, entry.row)
    }
    function space() {
        if (alarm)
            page.alarms.toggle(entry.row)
        else
            activate()
    }
    function turn(step: int): bool { return accessory.turn(step) }
    function seek(text: string): bool { return accessory.seek(text) }
    function uncoverDelete() {
        if (entry.deletable)
            swing(-deleteWidth)
    }
    function askDelete() {
        if (isOpen)
            remove()
        else
            uncoverDelete()
    }
    function remove() { list.handle.model.remove(entry.section, entry.row) }
    function closeSwipe() { swing(0) }
    function swing(x: real) {
        if (x < 0 && list.opened !== cell)
            list.closeOpened()
        swinging.to = x
        swinging.restart()
        list.opened = x < 0 ? cell : (list.opened === cell ? null : list.opened)
    }
    Component.onDestruction: {
        if (list && list.model)
            list.model.hide(entry.section, entry.row, entry.generation)
    }

    Item {
        id: frame
        anchors { fill: parent; leftMargin: cell.grouped ? cell.theme.margin : 0; rightMargin: anchors.leftMargin }
        clip: true

        Rectangle {
            id: deleteButton
            anchors { top: parent.top; bottom: parent.bottom; right: parent.right }
            width: Math.max(0, -face.x + cell.theme.corner)
            visible: face.x < 0
            color: cell.theme.danger
            Text {
                anchors { verticalCenter: parent.verticalCenter; right: parent.right; rightMargin: (cell.deleteWidth - width) / 2 }
                text: cell.host.words.delete
                color: cell.theme.row
                font.pixelSize: cell.theme.textSize
            }
            TapHandler { onTapped: cell.remove() }
            Accessible.role: Accessible.Button
            Accessible.name: cell.host.words.delete
            Accessible.ignored: !visible
            Accessible.onPressAction: cell.remove()
        }
        Item {
            id: face
            width: parent.width
            height: parent.height
            focus: true
            Accessible.role: accessory.role
            Accessible.name: [cell.name, accessory.spoken, cell.alarm ? cell.alarm.time : "", cell.second].filter(part => !!part).join(", ")
            Accessible.selectable: cell.list.handle.selectable
            Accessible.checkable: accessory.checkable
            Accessible.checked: accessory.checked
            Accessible.onPressAction: cell.activate()
            Accessible.onToggleAction: cell.activate()
            Accessible.onIncreaseAction: cell.turn(1)
            Accessible.onDecreaseAction: cell.turn(-1)

            Rectangle {
                id: body
                anchors.fill: parent
                radius: cell.grouped && (cell.entry.firstInSection || cell.entry.lastInSection) ? cell.theme.corner : 0
                color: tap.pressed && cell.entry.disclosure ? cell.theme.pressed : cell.theme.row
            }
            Rectangle {
                // Square corners where the section goes on.
                visible: body.radius > 0 && !(cell.entry.firstInSection && cell.entry.lastInSection)
                width: parent.width
                height: parent.height / 2
                y: cell.entry.firstInSection ? height : 0
                color: body.color
            }
            Rectangle {
                visible: !cell.entry.lastInSection
                anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: cell.theme.margin }
                height: 1
                color: cell.theme.line
            }
            Text {
                id: label
                anchors {
                    left: parent.left; leftMargin: cell.theme.margin
                    right: accessory.inert || cell.stacked ? parent.right : detail.visible ? detail.left : accessory.left
                    rightMargin: accessory.inert || cell.stacked ? cell.theme.margin : 8
                    top: cell.stacked ? parent.top : undefined; topMargin: 8
                    verticalCenter: cell.stacked ? undefined : parent.verticalCenter
                }
                text: cell.name || (accessory.inert ? accessory.spoken : "")
                textFormat: Text.PlainText
                elide: Text.ElideRight
                horizontalAlignment: cell.entry.centred || accessory.inert ? Text.AlignHCenter : Text.AlignLeft
                color: cell.theme.text
                font.pixelSize: cell.theme.textSize
                Accessible.ignored: true
            }
            // The home city is marked by more than a colour: a ground below its button and a word below its name.
            Rectangle {
                visible: cell.marked && accessory.handle !== null
                x: visible ? accessory.x + accessory.handle.controlCentre.x - width / 2 : 0
                y: visible ? accessory.y + accessory.handle.controlCentre.y - height / 2 : 0
                width: cell.theme.target
                height: width
                radius: width / 2
                color: cell.theme.accentGround
                border { width: 2; color: cell.theme.accent }
            }
            Accessory {
                id: accessory
                anchors { right: parent.right; rightMargin: wide ? 0 : cell.theme.margin; verticalCenter: parent.verticalCenter }
                width: wide ? parent.width - cell.indent : implicitWidth
                height: wide ? parent.height : implicitHeight
                wide: !cell.entry.rowText && kind !== "switch" && kind !== ""
                visible: !inert
                handle: cell.entry.accessory || null
                theme: cell.theme
                host: cell.host
                list: cell.list
            }
            Text {
                id: detail
                anchors {
                    right: parent.right; rightMargin: cell.drawn ? cell.theme.margin + 70 : cell.alarm ? frame.width - cell.theme.margin - cell.room : cell.trailing
                    bottom: cell.stacked ? parent.bottom : undefined; bottomMargin: 8
                    verticalCenter: cell.stacked ? undefined : parent.verticalCenter
                }
                width: cell.drawn ? frame.width - anchors.rightMargin - 20 - cell.indent : cell.stacked ? cell.room : implicitWidth
                visible: text !== ""
                text: cell.marked ? [cell.host.words.homeCity, cell.second].filter(part => part !== "").join(" · ") : cell.second
                textFormat: Text.PlainText
                wrapMode: cell.stacked ? Text.Wrap : Text.NoWrap
                color: cell.alarm && cell.alarm.bad ? cell.theme.warn : cell.marked || cell.alarm && cell.alarm.rings ? cell.theme.accent : cell.theme.quiet
                font.pixelSize: cell.drawn || cell.alarm ? cell.theme.smallSize : cell.theme.noteSize
                Accessible.ignored: true
            }
            Loader {
                id: alarmPart
                anchors { right: chevron.left; rightMargin: 4; verticalCenter: parent.verticalCenter }
                active: cell.alarm !== null
                sourceComponent: AlarmPart {
                    host: cell.host
                    theme: cell.theme
                    alarm: cell.alarm
                    onToggled: cell.page.alarms.toggle(cell.entry.row)
                }
            }
            Text {
                id: chevron
                anchors { right: parent.right; rightMargin: cell.theme.margin; verticalCenter: parent.verticalCenter }
                visible: !!cell.entry.disclosure
                text: "\u203a"
                color: cell.theme.quiet
                font.pixelSize: 22
                Accessible.ignored: true
            }
            DeleteButton {
                id: removal
                anchors { left: parent.left; leftMargin: 4; verticalCenter: parent.verticalCenter }
                width: cell.theme.target
                visible: cell.host.editing && !!cell.entry.deletable
                host: cell.host
                theme: cell.theme
                name: cell.host.words.deleteCity.arg(accessory.spoken.split(", ")[0])
                onActivated: cell.remove()
            }
            TapHandler {
                id: tap
                enabled: cell.list.handle !== null && cell.list.handle.selectable
                onTapped: {
                    const wasOpen = cell.list.opened !== null
                    cell.list.closeOpened()
                    if (!wasOpen)
                        cell.list.handle.model.select(cell.entry.section, cell.entry.row)
                }
            }
            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: cell.uncoverDelete()
            }
            DragHandler {
                enabled: !!cell.entry.deletable
                target: face
                yAxis.enabled: false
                xAxis { minimum: -cell.deleteWidth * 1.3; maximum: 0 }
                grabPermissions: PointerHandler.CanTakeOverFromAnything
                onActiveChanged: if (!active) cell.swing(cell.isOpen ? -cell.deleteWidth : 0)
            }
            NumberAnimation {
                id: swinging
                target: face
                property: "x"
                duration: 160
                easing.type: Easing.OutCubic
            }
        }
        Loader {
            anchors.fill: parent
            active: !!cell.entry.removing
            sourceComponent: Rectangle {
                color: cell.theme.row
                radius: cell.theme.corner
                Text {
                    anchors { left: parent.left; leftMargin: cell.theme.margin; right: restore.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                    text: cell.host.words.deleted.arg(accessory.spoken.split(", ")[0])
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: cell.theme.quiet
                    font.pixelSize: cell.theme.textSize
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                }
                TextButton {
                    id: restore
                    anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                    host: cell.host
                    theme: cell.theme
                    text: cell.host.words.undo
                    onActivated: cell.list.handle.model.restore()
                }
            }
        }
        Rectangle {
            anchors { fill: parent; margins: 2 }
            visible: cell.entry.current
            color: "transparent"
            border { color: cell.theme.accent; width: 2 }
            radius: cell.theme.corner
        }
    }
}
