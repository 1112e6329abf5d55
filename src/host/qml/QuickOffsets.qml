// SPDX-License-Identifier: Apache-2.0
// Usual offsets of an alarm, one tap each.
import QtQuick
import Zorel.Views

Row {
    id: row

    required property Host host
    required property Theme theme
    required property var editor
    readonly property var offsets: [-45, -30, -15, 0, 10]

    spacing: 8
    enabled: editor.on
    opacity: enabled ? 1 : 0.45
    Repeater {
        model: row.offsets
        delegate: Press {
            id: chip
            required property int modelData
            readonly property bool chosen: row.editor.offset === modelData
            width: Math.floor((row.width - row.spacing * (row.offsets.length - 1)) / row.offsets.length)
            host: row.host
            theme: row.theme
            name: row.editor.offsetText(modelData)
            role: Accessible.RadioButton
            Accessible.checkable: true
            Accessible.checked: chosen
            onActivated: row.editor.chooseOffset(modelData)
            Rectangle {
                anchors { fill: parent; topMargin: 3; bottomMargin: 3 }
                radius: height / 2
                color: chip.chosen ? row.theme.accent : chip.pressed ? row.theme.pressed : row.theme.row
                border { width: 1; color: chip.chosen ? row.theme.accent : row.theme.edge }
            }
            Text {
                anchors.centerIn: parent
                text: (chip.modelData < 0 ? "\u2212" : chip.modelData > 0 ? "+" : "") + Math.abs(chip.modelData)
                textFormat: Text.PlainText
                color: chip.chosen ? row.theme.overAccent : row.theme.text
                font { pixelSize: row.theme.noteSize; weight: chip.chosen ? Font.DemiBold : Font.Normal }
                Accessible.ignored: true
            }
        }
    }
}
