// SPDX-License-Identifier: Apache-2.0
// One screen: a table, or a search field above a table, and whatever else lies on top of them.
import QtQuick
import Zorel.Views

FocusScope {
    id: screen

    required property Host host
    required property Theme theme
    required property PageHandle page
    property real columnWidth: width
    property real slide: 0
    readonly property ViewHandle content: page ? page.content : null
    readonly property var parts: content && content.kind !== "table" ? content.subviews : []
    readonly property ViewHandle table: content && content.kind === "table" ? content : part("table")
    readonly property ViewHandle search: part("search")
    // The first page has more to show than the pane: above it, or beside it where there is room.
    property bool first: false
    readonly property bool beside: first && host.firstPage !== null && width >= 700
    readonly property real sideWidth: beside ? Math.round(Math.min(460, width * 0.46)) : 0
    readonly property real inset: beside ? Math.round((width - sideWidth - listWidth) / 2) : 0
    readonly property real listWidth: beside ? Math.min(columnWidth, width - sideWidth) : columnWidth

    // The editor of an alarm, where this is its screen.
    readonly property var editor: host.firstPage && content !== null && content === host.firstPage.editor.view ? host.firstPage.editor : null

    transform: Translate { x: screen.slide }
    function part(kind: string): ViewHandle {
        for (const handle of parts)
            if (handle && handle.kind === kind)
                return handle
        return null
    }
    function moveTo(x: real, then: var) {
        sliding.to = x
        sliding.then = then
        sliding.restart()
    }
    function fitContent() {
        if (content && width > 0)
            content.resize(listWidth, height)
    }
    onListWidthChanged: fitContent()
    onHeightChanged: fitContent()
    onContentChanged: fitContent()

    Component {
        id: firstColumn
        FirstPageColumn {
            host: screen.host
            theme: screen.theme
            view: list.item
        }
    }
    Component {
        id: alarmHead
        AlarmHead {
            host: screen.host
            theme: screen.theme
            editor: screen.editor
        }
    }
    NumberAnimation {
        id: sliding
        property var then: null
        target: screen
        property: "slide"
        duration: screen.theme.duration(240)
        easing.type: Easing.OutCubic
        onFinished: if (then) then()
    }
    Rectangle {
        anchors.fill: parent
        color: screen.theme.ground
    }
    Loader {
        id: side
        active: screen.beside
        x: screen.inset
        width: screen.sideWidth
        height: parent.height
        sourceComponent: Flickable {
            id: sideView
            contentHeight: sideColumn.implicitHeight
            clip: true
            FirstPageColumn {
                id: sideColumn
                beside: true
                width: sideView.width
                view: sideView
                host: screen.host
                theme: screen.theme
            }
        }
    }
    Item {
        id: column
        width: screen.listWidth
        height: parent.height
        x: screen.beside ? side.x + side.width : Math.round((screen.width - width) / 2)

        Loader {
            id: searchField
            active: screen.search !== null
            width: parent.width
            height: active ? 60 : 0
            focus: active
            Keys.onDownPressed: if (list.item && list.item.count > 0) list.item.forceActiveFocus()
            sourceComponent: SearchField {
                focus: true
                handle: screen.search
                theme: screen.theme
                host: screen.host
            }
        }
        Loader {
            id: list
            anchors { top: searchField.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
            active: screen.table !== null
            focus: !searchField.active
            Keys.onUpPressed: if (searchField.active) searchField.item.forceActiveFocus()
            sourceComponent: TableList {
                title: screen.page ? screen.page.title : ""
                handle: screen.table
                theme: screen.theme
                host: screen.host
                leading: screen.editor ? alarmHead
                       : screen.first && screen.width > 0 && !screen.beside && screen.host.firstPage !== null ? firstColumn : null
                editor: screen.editor
                ofPane: screen.first
                focus: true
            }
        }
        Connections {
            target: screen.search !== null && list.item ? list.item.model : null
            function onModelReset() {
                screen.search.settle()
                Qt.callLater(searchNote.tell) // when the list has counted its rows
            }
        }
        Text {
            id: searchNote
            readonly property int letters: screen.search !== null ? screen.search.letters : 0
            readonly property bool searched: screen.search !== null && screen.search.searched
            function tell() {
                if (!list.item || letters === 0)
                    return
                const found = list.item.count
                text = letters < 3 ? screen.host.words.threeLetters
                     : found === 0 && screen.host.firstPage ? screen.host.firstPage.emptySearchText(screen.search.text)
                     : found === 0 ? screen.host.words.nothingFound : ""
                screen.host.announce(text !== "" ? text : screen.host.placesFound(found))
            }
            anchors { top: searchField.bottom; topMargin: 24; left: parent.left; right: parent.right; margins: screen.theme.margin }
            visible: list.item !== null && list.item.count === 0 && (letters > 0 && letters < 3 || searched)
            text: screen.host.words.threeLetters
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            color: screen.theme.quiet
            font.pixelSize: screen.theme.textSize
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Repeater {
            model: screen.parts.filter(handle => handle && handle.kind === "plain")
            delegate: ViewItem {
                required property ViewHandle modelData
                handle: modelData
                dark: screen.theme.dark
                textureSize: screen.theme.pixels(width, height)
                x: modelData ? modelData.viewX : 0
                y: modelData ? modelData.viewY : 0
                width: modelData ? modelData.viewWidth : 0
                height: modelData ? modelData.viewHeight : 0
                opacity: modelData ? modelData.viewOpacity : 0
                // A toast springs up within the window.
                scale: modelData && !screen.theme.still ? Math.min(modelData.viewScale, 1.05) : 1
                visible: modelData !== null && modelData.shown
                Accessible.role: Accessible.AlertMessage
                Accessible.name: modelData ? modelData.spoken : ""
                Component.onCompleted: if (modelData) screen.host.announce(modelData.spoken)
            }
        }
    }
}
