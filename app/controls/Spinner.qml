pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Something is going on for an unknown time: a ring, with a quarter of it going round.
Symbol {
    id: root

    objectName: "spinner"
    symbol: "ring"
    size: 22
    colour: Theme.spinnerTrack

    SymbolItem {
        objectName: "spinnerQuarter"
        anchors.fill: parent
        symbol: "ring.quarter"
        colour: Theme.orange

        NumberAnimation on angle {
            running: root.visible && !Theme.reducedMotion
            loops: Animation.Infinite
            from: 0
            to: 360
            duration: 900
        }
    }
}
