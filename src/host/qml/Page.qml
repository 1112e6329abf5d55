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
    readonly property real sideWidth: beside ? Math.min(460, width * 0.46) : 0
    readonly property real listWidth: beside ? Math.min(columnWidth, width - sideWidth) : columnWidth

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

    NumberAnimation {
        id: sliding
        property var then: null
        target: screen
        property: "slide"
        duration: 240
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
        x: (screen.width - screen.sideWidth - screen.listWidth) / 2
        width: screen.sideWidth
        height: parent.height
        sourceComponent: Flickable {
            id: sideView
            contentHeight: sideColumn.implicitHeight
            clip: true
            FirstPageColumn {
                id: sideColumn
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
        x: screen.beside ? side.x + side.width : (screen.width - width) / 2

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
                leading: screen.first && screen.width > 0 && !screen.beside && screen.host.firstPage !== null
                ofPane: screen.first
                focus: true
            }
        }
        Connections {
            target: screen.search !== null && list.item ? list.item.model : null
            function onModelReset() { screen.search.settle() }
        }
        Text {
            readonly property bool tooShort: screen.search !== null && screen.search.letters > 0 && screen.search.letters < 3
            readonly property bool without: screen.search !== null && screen.search.searched && screen.search.letters >= 3
            anchors { top: searchField.bottom; topMargin: 24; horizontalCenter: parent.horizontalCenter }
            visible: list.item !== null && list.item.count === 0 && (tooShort || without)
            text: tooShort ? screen.host.words.threeLetters : screen.host.words.nothingFound
            textFormat: Text.PlainText
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
                textureSize: Qt.size(width * screen.host.textScale, height * screen.host.textScale)
                x: modelData ? modelData.viewX : 0
                y: modelData ? modelData.viewY : 0
                width: modelData ? modelData.viewWidth : 0
                height: modelData ? modelData.viewHeight : 0
                opacity: modelData ? modelData.viewOpacity : 0
                // A toast springs up within the window.
                scale: modelData ? Math.min(modelData.viewScale, 1.05) : 1
                visible: modelData !== null && modelData.shown
                Accessible.role: Accessible.AlertMessage
                Accessible.name: modelData ? modelData.spoken : ""
            }
        }
    }
}
