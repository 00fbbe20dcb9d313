pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Tells of something that has to be answered with its one button, or Escape, before the window goes on.
ModalPanel {
    id: root

    required property string message
    required property string button

    signal dismissed

    width: Theme.alertWidth
    height: Math.min(implicitHeight, parent.height - 2 * Theme.edge)
    padding: Theme.alertPadding
    scrim: Theme.alertScrim
    scrimFade: visible ? Theme.alertIn : Theme.alertOut

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.alertIn
        }
        NumberAnimation {
            property: "scale"
            from: Theme.alertScale
            to: 1
            duration: Theme.alertIn
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.alertOut
        }
    }

    contentItem: AlertForm {
        title: root.title
        message: root.message
        button: root.button
        onDismissed: root.dismissed()
    }
}
