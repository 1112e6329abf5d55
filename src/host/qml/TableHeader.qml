// SPDX-License-Identifier: Apache-2.0
// Header or footer of a section: a text, or what the section brings along; the editor of an alarm adds short ways to it.
import QtQuick
import Zorel.Views

Item {
    id: header

    required property Item entry
    required property Theme theme
    required property Host host
    required property bool footer
    // The editor that the table belongs to, or null.
    property var editor: null
    readonly property ViewHandle own: entry.accessory ? entry.accessory : null
    readonly property bool reachable: own !== null && own.operable
    readonly property bool captioned: reachable && own.caption !== ""
    readonly property bool quick: editor !== null && !footer && entry.section === 1
    readonly property bool audible: editor !== null && !footer && entry.section === 2 && editor.audible

    // Whether the ringtone could not be played.
    readonly property bool silent: audible && editor.preview.failed

    width: entry.width
    height: footer ? label.implicitHeight + 20
          : Math.max(entry.entryHeight, own || audible ? theme.target : 0, label.implicitHeight + 16) + (quick ? offsets.height + 6 : 0)
    function activate() { if (own) own.activate() }

    Text {
        id: label
        visible: header.own === null || header.captioned
        anchors {
            left: parent.left; right: parent.right; leftMargin: header.theme.margin + 4; rightMargin: header.audible ? listen.width + 24 : header.theme.margin + 4
            top: header.footer ? parent.top : undefined; topMargin: 8
            bottom: header.footer ? undefined : header.quick ? offsets.top : parent.bottom; bottomMargin: header.captioned || header.audible ? 12 : 8
        }
        text: header.captioned ? header.own.caption
            : header.silent ? header.host.words.toneFailed : header.entry.title || ""
        onTextChanged: if (header.silent) header.host.announce(label.text)
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: header.silent ? header.theme.warn : header.theme.quiet
        font.pixelSize: header.footer ? header.theme.smallSize : header.theme.noteSize
        Accessible.role: header.footer ? Accessible.StaticText : Accessible.Heading
        Accessible.name: text
        Accessible.ignored: text === "" || header.captioned
    }
    // The way to more rows: what it is called, and its sign.
    Loader {
        active: header.captioned
        anchors { right: parent.right; rightMargin: header.theme.margin + 8; bottom: parent.bottom }
        sourceComponent: Row {
            Text {
                id: way
                anchors.verticalCenter: parent.verticalCenter
                visible: implicitWidth + label.implicitWidth + 120 < header.width
                width: Math.ceil(implicitWidth) // whole points, so that the sign beside it is sharp
                rightPadding: 2
                text: header.own.control ? header.own.control.spoken : ""
                textFormat: Text.PlainText
                color: header.theme.accent
                font { pixelSize: header.theme.noteSize; weight: Font.DemiBold }
                Accessible.ignored: true
                TapHandler {
                    margin: 12
                    onTapped: header.activate()
                }
            }
            DrawnButton {
                handle: header.own.control
                color: header.theme.accent
                enlarged: 1
                host: header.host
                theme: header.theme
                onActivated: header.activate()
            }
        }
    }
    // For the keyboard and the screen reader the whole header is the button.
    Item {
        readonly property ViewHandle handle: header.captioned ? header.own : null
        visible: header.own !== null
        focus: header.reachable
        anchors { fill: parent; leftMargin: header.theme.margin - 4; rightMargin: header.theme.margin }
        Accessible.role: header.reachable ? Accessible.Button : Accessible.Heading
        Accessible.name: header.own ? header.own.spoken : ""
        Accessible.onPressAction: header.activate()
        ViewItem {
            anchors.fill: parent
            visible: !header.captioned
            handle: visible ? header.own : null
            dark: header.theme.dark
            textureSize: header.theme.pixels(width, height)
            onHandleChanged: fit()
            onWidthChanged: fit()
            onHeightChanged: fit()
            function fit() {
                if (handle && width > 0 && height > 0)
                    handle.resize(width, height)
            }
        }
    }
    Loader {
        id: offsets
        active: header.quick
        height: item ? item.implicitHeight : 0
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: header.theme.margin; rightMargin: header.theme.margin; bottomMargin: active ? 6 : 0 }
        sourceComponent: QuickOffsets {
            host: header.host
            theme: header.theme
            editor: header.editor
        }
    }
    Loader {
        id: listen
        active: header.audible
        anchors { right: parent.right; rightMargin: header.theme.margin; bottom: parent.bottom }
        sourceComponent: TextButton {
            host: header.host
            theme: header.theme
            enabled: header.editor.on
            opacity: enabled ? 1 : 0.45
            text: header.editor.preview.playing ? "\u25a0 " + header.host.words.silence : "\u25b6 " + header.host.words.listen
            name: header.editor.preview.playing ? header.host.words.silence : header.host.words.listen
            onActivated: header.editor.listen()
        }
    }
    Rectangle {
        anchors { fill: parent; margins: 3 }
        visible: header.entry.current && header.reachable
        color: "transparent"
        border { color: header.theme.accent; width: 2 }
        radius: header.theme.corner
    }
}
