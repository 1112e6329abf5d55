// SPDX-License-Identifier: Apache-2.0
// A table of sections and rows with kinetic scrolling. The keyboard walks through the rows: Return and Space do what a tap
// does, Delete asks for deletion, Escape takes that back, Left and Right turn a wheel.
import QtQuick
import Zorel.Views

ListView {
    id: rows

    required property ViewHandle handle
    required property Theme theme
    required property Host host
    required property string title
    property Item opened: null
    // What stands above the rows; null for nothing.
    property Component leading: null
    // The editor of an alarm that the table belongs to, or null.
    property var editor: null
    property bool touched: false
    // Whether this is the pane's own table: then the alarms' rows tell what the alarms do.
    property bool ofPane: false

    model: handle ? handle.model : null
    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.DragAndOvershootBounds
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: host.keyboardUsed
    highlightMoveDuration: theme.duration(120)
    currentIndex: -1
    topMargin: handle && handle.grouped ? 8 : 0
    bottomMargin: 24
    Accessible.role: Accessible.List
    Accessible.name: title

    header: Loader {
        width: ListView.view.width
        active: rows.leading !== null
        visible: active
        height: item ? item.implicitHeight : 0
        sourceComponent: rows.leading
    }
    // Until somebody scrolls, the page begins with its beginning.
    onOriginYChanged: Qt.callLater(begin)
    onHeightChanged: Qt.callLater(begin)
    onContentHeightChanged: Qt.callLater(begin)
    onContentYChanged: if (!touched) Qt.callLater(begin)

    function begin() {
        if (!touched)
            contentY = originY - topMargin
    }
    // Goes to the next row that can be reached; false when there is none.
    function walk(step: int): bool {
        const start = currentIndex
        for (let index = start + step; index >= 0 && index < count; index += step) {
            currentIndex = index
            if (currentItem && currentItem.reachable)
                return true
        }
        currentIndex = start
        return false
    }
    onActiveFocusChanged: if (activeFocus && currentIndex < 0) walk(1)
    onMovementStarted: closeOpened()
    onDragStarted: touched = true
    onFlickStarted: touched = true
    function closeOpened() {
        if (opened)
            opened.closeSwipe()
    }
    Keys.onShortcutOverride: event => event.accepted = opened !== null && event.key === Qt.Key_Escape
    Keys.onEscapePressed: closeOpened()
    Keys.onUpPressed: event => event.accepted = walk(-1)
    Keys.onDownPressed: walk(1)
    Keys.onReturnPressed: if (currentItem) currentItem.activate()
    Keys.onEnterPressed: if (currentItem) currentItem.activate()
    Keys.onSpacePressed: if (currentItem) currentItem.space()
    Keys.onDeletePressed: if (currentItem) currentItem.askDelete()
    Keys.onPressed: event => {
        touched = true
        event.accepted = true
        if (event.key === Qt.Key_Home)
            leap(-1, true)
        else if (event.key === Qt.Key_End)
            leap(1, true)
        else if (event.key === Qt.Key_PageUp)
            leap(-1, false)
        else if (event.key === Qt.Key_PageDown)
            leap(1, false)
        else if (event.text !== "" && currentItem && currentItem.seek)
            event.accepted = currentItem.seek(event.text)
        else
            event.accepted = false
    }
    // Home, End and the page keys turn a wheel, else they walk through the rows.
    function leap(step: int, wholly: bool) {
        if (currentItem && currentItem.turn(step * (wholly ? 1000 : 10)))
            return
        for (let left = wholly ? count : 6; left > 0 && walk(step); --left) {}
        if (step < 0 && wholly)
            positionViewAtBeginning()
    }
    Keys.onLeftPressed: if (currentItem) currentItem.turn(-1)
    Keys.onRightPressed: if (currentItem) currentItem.turn(1)

    delegate: Loader {
        id: place

        required property int index
        required property string entryKind
        required property var title
        required property var rowText
        required property var detail
        required property var centred
        required property var disclosure
        required property var accessory
        required property var entryHeight
        required property var deletable
        required property var removing
        required property var firstInSection
        required property var lastInSection
        required property int section
        required property int row
        required property int generation
        readonly property bool current: ListView.isCurrentItem && rows.activeFocus && rows.host.keyboardUsed
        readonly property bool reachable: item ? item.reachable : false

        width: ListView.view.width
        sourceComponent: entryKind === "row" ? rowComponent : headerComponent
        function activate() { if (item) item.activate() }
        function space() { if (item && item.space) item.space(); else activate() }
        function askDelete() { if (item && item.askDelete) item.askDelete() }
        function turn(step: int): bool { return item && item.turn ? item.turn(step) : false }
        function seek(text: string): bool { return item && item.seek ? item.seek(text) : false }

        Component {
            id: rowComponent
            TableRow {
                list: rows
                entry: place
                theme: rows.theme
                host: rows.host
            }
        }
        Component {
            id: headerComponent
            TableHeader {
                entry: place
                theme: rows.theme
                host: rows.host
                editor: rows.editor
                footer: place.entryKind === "footer"
            }
        }
    }
}
