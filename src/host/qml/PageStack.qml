// SPDX-License-Identifier: Apache-2.0
// The screens of the navigation stack; a new one slides in from the right, a finished one leaves there.
import QtQuick
import Zorel.Views

Item {
    id: stack

    required property Host host
    required property Theme theme
    property var entries: []
    readonly property Page topPage: entries.length > 0 ? entries[entries.length - 1] : null
    readonly property int depth: entries.length
    readonly property real columnWidth: Math.min(width, 640)

    clip: true
    // A sheet that lay on top is gone: the keyboard is back where it was.
    onEnabledChanged: if (enabled && topPage) topPage.forceActiveFocus()
    function push(handle: PageHandle, animated: bool) {
        const item = pageComponent.createObject(stack, {page: handle, first: stack.entries.length === 0})
        const below = stack.topPage
        stack.entries = stack.entries.concat([item])
        if (below)
            below.enabled = false
        item.forceActiveFocus()
        if (animated) {
            item.slide = stack.width
            item.moveTo(0, function() { if (below) below.visible = false })
        } else if (below) {
            below.visible = false
        }
    }
    function pop(handle: PageHandle, animated: bool) {
        const item = stack.entries.find(entry => entry.page === handle)
        if (!item)
            return
        stack.entries = stack.entries.filter(entry => entry !== item)
        if (stack.topPage) {
            stack.topPage.visible = true
            stack.topPage.enabled = true
            stack.topPage.forceActiveFocus()
        }
        item.enabled = false
        if (animated)
            item.moveTo(stack.width, function() { item.destroy() })
        else
            item.destroy()
    }

    Component {
        id: pageComponent
        Page {
            width: stack.width
            height: stack.height
            columnWidth: stack.columnWidth
            host: stack.host
            theme: stack.theme
        }
    }
    Connections {
        target: stack.host
        function onPushed(page, animated) { stack.push(page, animated) }
        function onPopped(page, animated) { stack.pop(page, animated) }
    }
    Component.onCompleted: {
        for (const handle of host.pages())
            push(handle, false)
    }
}
