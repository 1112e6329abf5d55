// SPDX-License-Identifier: Apache-2.0
// What stands in a row: a switch, a wheel, a control that draws itself, or a view that draws itself whole.
import QtQuick
import Zorel.Views

Item {
    id: accessory

    property ViewHandle handle: null
    // Whether the row has no text of its own: then what stands in it fills the row.
    property bool alone: false
    required property Flickable list
    required property Theme theme
    required property Host host
    readonly property string kind: handle && handle.shown ? handle.kind : ""
    readonly property bool operable: kind === "switch" || kind === "picker" || (kind === "plain" && handle.operable)
    // A drawn view with nothing to operate, such as a note in place of rows: its text is all that counts.
    readonly property bool inert: kind === "plain" && !handle.operable
    // A drawn control with a caption beside it: the row writes the caption.
    readonly property bool captioned: alone && kind === "plain" && handle.operable && handle.caption !== ""
    readonly property string caption: captioned ? handle.caption : ""
    readonly property bool wide: alone && kind !== "switch" && kind !== "" && !captioned
    readonly property bool checkable: kind === "switch" || (kind === "plain" && handle.operable)
    readonly property bool checked: kind === "switch" ? handle.on : (kind === "plain" && handle.marked)
    readonly property string spoken: kind === "picker" ? handle.spoken + ", " + handle.selectedText
                                   : kind === "plain" ? handle.spoken : ""
    // What the row is for a screen reader. Of the drawn controls one in the table is marked.
    readonly property int role: kind === "switch" ? Accessible.CheckBox
                              : kind === "picker" ? Accessible.ComboBox
                              : kind === "plain" && handle.operable ? Accessible.RadioButton : Accessible.ListItem
    // A wheel passes a row; then it rests on one.
    signal passing(row: int)
    signal resting()

    implicitWidth: kind === "switch" ? 51 : captioned ? theme.target : (handle ? handle.viewWidth : 0)
    implicitHeight: kind === "switch" ? 31 : captioned ? theme.target : (handle ? handle.viewHeight : 0)
    function operate() {
        if (kind === "switch")
            handle.toggle()
        else if (kind === "plain" && handle.operable)
            handle.activate()
    }
    // Turns a wheel; false when this is none.
    function turn(step: int): bool {
        if (kind !== "picker")
            return false
        handle.turn(step)
        return true
    }
    // Turns a wheel to what is typed.
    function seek(text: string): bool { return kind === "picker" && handle.seek(text) }

    Loader {
        anchors.fill: parent
        active: accessory.kind !== ""
        sourceComponent: accessory.kind === "switch" ? toggleComponent
                       : accessory.kind === "picker" ? wheelComponent
                       : accessory.captioned ? buttonComponent : viewComponent
    }
    Component {
        id: toggleComponent
        Toggle {
            handle: accessory.handle
            theme: accessory.theme
        }
    }
    Component {
        id: wheelComponent
        Wheel {
            handle: accessory.handle
            theme: accessory.theme
            list: accessory.list
            onPassing: row => accessory.passing(row)
            onResting: accessory.resting()
        }
    }
    Component {
        id: buttonComponent
        DrawnButton {
            handle: accessory.handle ? accessory.handle.control : null
            filled: accessory.checked
            host: accessory.host
            theme: accessory.theme
            onActivated: accessory.operate()
        }
    }
    Component {
        id: viewComponent
        ViewItem {
            handle: accessory.handle
            dark: accessory.theme.dark
            textureSize: accessory.theme.pixels(width, height)
            onWidthChanged: fit()
            onHeightChanged: fit()
            function fit() {
                if (accessory.wide && accessory.handle && width > 0 && height > 0)
                    accessory.handle.resize(width, height)
            }
        }
    }
}
