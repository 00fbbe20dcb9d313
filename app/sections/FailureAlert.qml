pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Says why a rename failed.
ModalPanel {
    id: root

    required property ViewBridge view

    objectName: "failureAlert"
    title: (contentItem as AlertForm).title
    width: Theme.alertWidth
    height: Math.min(implicitHeight, parent.height - 2 * Theme.edge)
    padding: Theme.alertPadding
    visible: view.alertOpen
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
        view: root.view
    }
}
