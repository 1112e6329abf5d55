// SPDX-License-Identifier: Apache-2.0
// The first start: what this is, and where the person prays.
import QtQuick
import Zorel.Views

Rectangle {
    id: start

    required property Host host
    required property Theme theme
    required property var page

    implicitHeight: inside.implicitHeight + 40
    radius: theme.cardCorner
    color: theme.row
    border { width: theme.cardEdge; color: theme.line }

    Column {
        id: inside
        anchors { verticalCenter: parent.verticalCenter; left: parent.left; right: parent.right; margins: 18 }
        spacing: 14
        Text {
            width: parent.width
            text: start.host.words.whatThisIs
            wrapMode: Text.Wrap
            color: start.theme.quiet
            font.pixelSize: start.theme.textSize
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Text {
            width: parent.width
            text: start.host.words.whereDoYouPray
            wrapMode: Text.Wrap
            color: start.theme.text
            font { pixelSize: 26; weight: Font.Bold }
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        TextButton {
            visible: start.page.suggestedCity !== ""
            width: parent.width
            filled: true
            host: start.host
            theme: start.theme
            text: [start.page.suggestedCity, start.page.suggestedCountry].filter(part => part !== "").join(", ")
            onActivated: start.page.useSuggestion()
        }
        TextButton {
            width: parent.width
            host: start.host
            theme: start.theme
            text: start.host.words.searchCity
            onActivated: start.page.openSearch()
        }
    }
}
