// SPDX-License-Identifier: Apache-2.0
// The whole window: a notice if there is one, the navigation bar, the screens, the action sheet.
import QtQuick
import Zorel.Views

Rectangle {
    id: root

    required property Host host

    color: theme.ground
    Theme {
        id: theme
        dark: root.host.dark
        highContrast: root.host.highContrast
        still: root.host.reducedMotion
        scale: root.host.textScale
    }

    Item {
        id: paper
        width: root.width / root.host.textScale
        height: root.height / root.host.textScale
        scale: root.host.textScale
        transformOrigin: Item.TopLeft

        Rectangle {
            id: notice
            width: parent.width
            height: root.host.problem === "" ? 0 : noticeText.implicitHeight + 20
            visible: height > 0
            color: theme.danger
            Text {
                id: noticeText
                anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; margins: theme.margin }
                text: root.host.problem
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: theme.row
                font.pixelSize: theme.smallSize
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
        }
        NavigationBar {
            id: bar
            anchors { top: notice.bottom; left: parent.left; right: parent.right }
            host: root.host
            theme: theme
            page: stack.topPage ? stack.topPage.page : null
            root: stack.depth < 2
            inset: root && stack.topPage ? stack.topPage.inset : 0
            enabled: !sheet.shown && !why.shown
        }
        PageStack {
            id: stack
            anchors { top: bar.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
            host: root.host
            theme: theme
            enabled: !sheet.shown && !why.shown
        }
        MessageBar {
            anchors { bottom: parent.bottom; bottomMargin: 12; horizontalCenter: parent.horizontalCenter }
            host: root.host
            theme: theme
            enabled: !sheet.shown && !why.shown
        }
        WhySheet {
            id: why
            anchors.fill: parent
            host: root.host
            theme: theme
        }
        ActionSheet {
            id: sheet
            anchors.fill: parent
            host: root.host
            theme: theme
        }
        onWidthChanged: root.host.setScreenSize(stack.columnWidth, height)
        onHeightChanged: root.host.setScreenSize(stack.columnWidth, height)
    }

    Shortcut {
        sequences: ["Escape", "Back", StandardKey.Back]
        onActivated: root.host.back()
    }
    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        onActivated: root.Window.window.close()
    }
}
