pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Something is going on, nobody knows for how long.
SpinnerItem {
    id: root

    objectName: "spinner"
    implicitWidth: Theme.spinnerSize
    implicitHeight: Theme.spinnerSize
    thickness: Theme.spinnerThickness
    trackColour: Theme.spinnerTrack
    colour: Theme.orange

    NumberAnimation on angle {
        running: root.visible && !Theme.reducedMotion
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: Theme.spinnerTurn
    }
}
