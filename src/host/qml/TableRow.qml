// SPDX-License-Identifier: Apache-2.0
// One row: a text, a second one, what stands at its right edge, and, behind it, the button that deletes it.
import QtQuick
import Zorel.Views

Item {
    id: cell

    required property ListView list
    required property Item entry
    required property Theme theme
    required property Host host
    readonly property bool grouped: list.handle !== null && list.handle.grouped
    // Wheels rest while the alarm that they belong to is off.
    readonly property bool resting: list.editor !== null && !list.editor.on && accessory.kind === "picker"
    readonly property bool reachable: !resting && (!!entry.disclosure || accessory.operable || list.handle.selectable)
    readonly property real deleteWidth: 88
    readonly property bool isOpen: face.x < -deleteWidth / 2

    // What the row says: a search result has its region behind its name, the pane's own rows a second text.
    readonly property int cut: list.handle !== null && !list.handle.grouped && entry.rowText ? entry.rowText.indexOf(" / ") : -1
    readonly property string name: cut >= 0 ? entry.rowText.substring(0, cut) : entry.rowText || accessory.caption
    readonly property string second: alarm ? alarm.text
                                   : cut >= 0 ? entry.rowText.substring(cut + 3).split(" / ").join(", ") : entry.detail || ""
    readonly property var page: list.ofPane ? host.firstPage : null
    readonly property var alarm: page && !!entry.disclosure && page.alarms.rows.length > entry.row ? page.alarms.rows[entry.row] : null
    readonly property bool marked: accessory.captioned && accessory.checked && host.firstPage !== null
    readonly property string below: marked ? [host.words.homeCity, second].filter(part => part !== "").join(" · ") : second

    // Where the texts are too long for one line, the second one stands below, so that nothing is cut.
    readonly property bool stacked: accessory.captioned || alarm !== null || cut >= 0 || besideRoom < 0
    readonly property real besideRoom: second === "" ? 0 : room - labelSize.advanceWidth - 12 - detailSize.advanceWidth
    readonly property real leading: theme.margin + (removal.visible ? 36 : 0)
    readonly property real trailing: chevron.visible ? theme.margin + chevron.width + 4
                                   : accessory.wide || accessory.kind === "" ? theme.margin : accessory.width + (accessory.captioned ? 8 : theme.margin)
    readonly property real room: frame.width - leading - trailing - (alarmPart.item ? alarmPart.width + 12 : 8)

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
          : Math.max(entry.entryHeight || 0, theme.target + 8, texts.implicitHeight + 18, accessory.inert ? note.implicitHeight + 24 : 0)

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
    function turn(step: int): bool { return !resting && accessory.turn(step) }
    function seek(text: string): bool { return !resting && accessory.seek(text) }
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
            anchors { top: parent.top; bottom: parent.bottom; right: parent.right }
            width: Math.max(0, -face.x + cell.theme.cardCorner)
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
            enabled: !cell.resting
            Accessible.role: accessory.role
            Accessible.name: [cell.name, accessory.captioned ? accessory.handle.control.spoken : accessory.spoken,
                              cell.alarm ? cell.alarm.time : "", cell.second].filter(part => !!part).join(", ")
            Accessible.selectable: cell.list.handle.selectable
            Accessible.checkable: accessory.checkable
            Accessible.checked: accessory.checked
            Accessible.onPressAction: cell.activate()
            Accessible.onToggleAction: cell.activate()
            Accessible.onIncreaseAction: cell.turn(1)
            Accessible.onDecreaseAction: cell.turn(-1)

            RowGround {
                anchors.fill: parent
                theme: cell.theme
                grouped: cell.grouped
                first: !!cell.entry.firstInSection
                last: !!cell.entry.lastInSection
                pressed: tap.pressed && !!cell.entry.disclosure
            }
            Column {
                id: texts
                x: cell.leading
                anchors.verticalCenter: parent.verticalCenter
                visible: !accessory.inert
                spacing: 2
                Text {
                    width: Math.min(implicitWidth, cell.room)
                    text: cell.name
                    visible: text !== ""
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    color: cell.theme.text
                    font.pixelSize: cell.theme.textSize
                    Accessible.ignored: true
                }
                Text {
                    width: cell.room
                    visible: cell.stacked && text !== ""
                    text: cell.below
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    color: cell.alarm && cell.alarm.bad ? cell.theme.warn : cell.marked || cell.alarm && cell.alarm.rings ? cell.theme.accent : cell.theme.quiet
                    font.pixelSize: cell.theme.smallSize
                    Accessible.ignored: true
                }
            }
            Text {
                visible: !cell.stacked && text !== ""
                anchors { right: parent.right; rightMargin: cell.trailing; verticalCenter: parent.verticalCenter }
                text: cell.second
                textFormat: Text.PlainText
                color: cell.theme.quiet
                font.pixelSize: cell.theme.noteSize
                Accessible.ignored: true
            }
            // A note in place of rows.
            Text {
                id: note
                visible: accessory.inert
                anchors { left: parent.left; right: parent.right; margins: cell.theme.margin; verticalCenter: parent.verticalCenter }
                text: accessory.inert ? accessory.spoken : ""
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                color: cell.page && cell.page.listTrouble !== "" ? cell.theme.warn : cell.theme.quiet
                font.pixelSize: cell.theme.textSize
                Accessible.ignored: true
            }
            Accessory {
                id: accessory
                anchors { right: parent.right; rightMargin: wide ? 0 : captioned ? 8 : cell.theme.margin; verticalCenter: parent.verticalCenter }
                width: wide ? parent.width : implicitWidth
                height: wide ? parent.height : implicitHeight
                alone: !cell.entry.rowText
                visible: !inert
                opacity: cell.resting ? 0.4 : 1
                handle: cell.entry.accessory || null
                theme: cell.theme
                host: cell.host
                list: cell.list
                onPassing: row => { if (cell.list.editor && cell.entry.section === 1) cell.list.editor.pass(row) }
                onResting: if (cell.list.editor) cell.list.editor.rest()
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
                name: cell.host.words.deleteCity.arg(cell.name)
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
                duration: cell.theme.duration(160)
                easing.type: Easing.OutCubic
            }
        }
        Loader {
            anchors.fill: parent
            active: !!cell.entry.removing
            sourceComponent: RemovalNotice {
                host: cell.host
                theme: cell.theme
                entry: cell.entry
                text: cell.host.words.deleted.arg(cell.name)
                onRestored: cell.list.handle.model.restore()
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
