// SPDX-License-Identifier: Apache-2.0
// Header or footer of a section: a text, or the view that the section brings along.
import QtQuick
import Zorel.Views

Item {
    id: header

    required property Item entry
    required property Theme theme
    required property Host host
    required property bool footer
    readonly property ViewHandle own: entry.accessory ? entry.accessory : null
    readonly property bool reachable: own !== null && own.operable

    width: entry.width
    height: footer ? label.implicitHeight + 20 : Math.max(entry.entryHeight, own ? header.theme.target : label.implicitHeight + 16)
    function activate() { if (own) own.activate() }

    Text {
        id: label
        visible: header.own === null
        anchors {
            left: parent.left; right: parent.right; margins: header.theme.margin + 4
            top: header.footer ? parent.top : undefined; topMargin: 8
            bottom: header.footer ? undefined : parent.bottom; bottomMargin: 6
        }
        text: header.entry.title || ""
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: header.theme.quiet
        font.pixelSize: header.footer ? header.theme.smallSize : 15
        Accessible.role: header.footer ? Accessible.StaticText : Accessible.Heading
        Accessible.name: text
        Accessible.ignored: text === ""
    }
    ViewItem {
        visible: header.own !== null
        handle: header.own
        dark: header.theme.dark
        textureSize: Qt.size(width * header.host.textScale, height * header.host.textScale)
        focus: header.reachable
        anchors { fill: parent; leftMargin: header.theme.margin - 4; rightMargin: header.theme.margin }
        onWidthChanged: fit()
        onHeightChanged: fit()
        function fit() {
            if (header.own && width > 0 && height > 0)
                header.own.resize(width, height)
        }
        Accessible.role: header.reachable ? Accessible.Button : Accessible.Heading
        Accessible.name: header.own ? header.own.spoken : ""
        Accessible.onPressAction: header.activate()
    }
    Rectangle {
        anchors { fill: parent; margins: 3 }
        visible: header.entry.current && header.reachable
        color: "transparent"
        border { color: header.theme.accent; width: 2 }
        radius: header.theme.corner
    }
}
