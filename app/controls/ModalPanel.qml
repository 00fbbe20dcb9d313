import QtQuick
import QtQuick.Templates as T
import Tarvolt

// A panel over the window that takes all its input until the program's state closes the panel. Its title is its name
// for assistive technology. Its components are not bound, because the toolkit makes the scrim in a context of its own,
// which bound components refuse.
T.Dialog {
    id: root

    required property color scrim
    required property int timeIn
    required property int timeOut
    property real scaleFrom: 1
    property real riseFrom: 0
    property real rise: 0 // how far below its final position it is while it opens

    parent: T.Overlay.overlay
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2 + rise)
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    // The linter does not know the scope of an attached component.
    T.Overlay.modal: Rectangle {
        objectName: "scrim"
        color: root.scrim // qmllint disable unqualified

        Behavior on opacity {
            NumberAnimation {
                duration: root.visible ? root.timeIn : root.timeOut // qmllint disable unqualified
            }
        }
    }

    enter: Transition {
        // Not eased, because the renderer ignores a very short last step.
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: root.timeIn
        }
        NumberAnimation {
            property: "scale"
            from: root.scaleFrom
            to: 1
            duration: root.timeIn
        }
        NumberAnimation {
            property: "rise"
            from: root.riseFrom
            to: 0
            duration: root.timeIn
            easing.type: Easing.OutCubic
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: root.timeOut
        }
    }

    background: Item {
        PanelShadow {
            wide: true
        }

        PanelShadow {}

        BoxItem {
            objectName: "panelFace"
            anchors.fill: parent
            radius: 14
            color: Theme.sheet
            borderWidth: Theme.hairline
            borderColor: Theme.sheetBorder
        }
    }
}
