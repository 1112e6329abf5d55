// SPDX-License-Identifier: Apache-2.0
// What stands above the pane, or beside it in a wide window: first start, notices, today, Moon and qibla.
import QtQuick
import Zorel.Views

Item {
    id: first

    required property Host host
    required property Theme theme
    // Whether it stands beside the pane's table, not above it.
    property bool beside: false
    // What scrolls the column: what the keyboard reaches is moved into sight.
    property Flickable view: null
    readonly property var page: host.firstPage
    readonly property var today: page ? page.today : null
    readonly property bool twoTiles: inside.width >= 2 * 150 + 12

    readonly property Item reached: Window.activeFocusItem
    onReachedChanged: {
        let item = reached
        while (item && item !== first)
            item = item.parent
        if (!item || !view || !host.keyboardUsed)
            return
        const top = reached.mapToItem(view.contentItem, 0, 0).y
        if (top < view.contentY)
            view.contentY = top - 8
        else if (top + reached.height > view.contentY + view.height)
            view.contentY = top + reached.height + 8 - view.height
    }

    implicitHeight: inside.height === 0 ? 0 : inside.height + (beside ? 20 : 10)

    Column {
        id: inside
        anchors { top: parent.top; topMargin: first.beside ? 12 : 2; left: parent.left; right: parent.right; leftMargin: first.theme.margin; rightMargin: first.theme.margin }
        spacing: 12

        Loader {
            width: parent.width
            active: first.page !== null && first.page.beginning
            visible: active
            sourceComponent: FirstStart {
                host: first.host
                theme: first.theme
                page: first.page
            }
        }
        Loader {
            width: parent.width
            active: first.page !== null && first.page.unknownHome !== ""
            visible: active
            sourceComponent: Notice {
                host: first.host
                theme: first.theme
                text: first.page.unknownHome
            }
        }
        Loader {
            width: parent.width
            active: first.page !== null && first.page.listTrouble !== "" && first.host.problem === ""
            visible: active
            sourceComponent: Notice {
                host: first.host
                theme: first.theme
                text: first.page.listTrouble
                action: first.host.words.tryAgain
                onAccepted: first.page.readAgain()
            }
        }
        Loader {
            width: parent.width
            active: first.page !== null && first.page.alarms.complaint !== ""
            visible: active
            sourceComponent: Notice {
                host: first.host
                theme: first.theme
                text: first.page.alarms.complaint
                action: first.host.words.repair
                onAccepted: first.page.alarms.repair()
            }
        }
        Loader {
            width: parent.width
            active: first.page !== null && first.page.ringCheck !== null && first.page.ringCheck.missing && first.page.alarms.anyOn
            visible: active
            sourceComponent: Notice {
                host: first.host
                theme: first.theme
                text: first.host.words.nobodyRings
                action: first.host.words.start
                onAccepted: first.page.ringCheck.start()
            }
        }
        Loader {
            width: parent.width
            active: first.page !== null && first.page.elsewhere
            visible: active
            sourceComponent: Notice {
                host: first.host
                theme: first.theme
                question: true
                text: first.host.words.inCity.arg(first.page.suggestedCity)
                action: first.host.words.use
                other: first.host.words.notNow
                onAccepted: first.page.useSuggestion()
                onDeclined: first.page.declineSuggestion()
            }
        }
        Loader {
            width: parent.width
            active: first.today !== null && first.today.known
            visible: active
            sourceComponent: TodayCard {
                host: first.host
                theme: first.theme
                today: first.today
                ring: first.page.alarms.next
            }
        }
        Loader {
            width: parent.width
            active: first.today !== null && first.today.known
            visible: active
            sourceComponent: Grid {
                columns: first.twoTiles ? 2 : 1
                spacing: 12
                SkyTile {
                    width: first.twoTiles ? (inside.width - 12) / 2 : inside.width
                    height: first.twoTiles ? Math.max(implicitHeight, qiblaTile.implicitHeight) : implicitHeight
                    id: moonTile
                    theme: first.theme
                    title: first.today.moon.text
                    detail: first.today.moon.detail
                    MoonDisc {
                        anchors.fill: parent
                        illuminated: first.today.moon.illuminated
                        waxing: first.today.moon.waxing
                        south: first.today.moon.south
                        textureSize: first.theme.pixels(width, height)
                    }
                }
                SkyTile {
                    id: qiblaTile
                    width: moonTile.width
                    height: first.twoTiles ? moonTile.height : implicitHeight
                    theme: first.theme
                    title: first.today.qibla.text
                    detail: first.today.qibla.detail
                    QiblaRose {
                        anchors.fill: parent
                        bearing: first.today.qibla.bearing
                        known: first.today.qibla.known
                        color: first.theme.quiet
                        needle: first.theme.accent
                        textureSize: first.theme.pixels(width, height)
                    }
                }
            }
        }
    }
}
