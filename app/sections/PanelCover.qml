import QtQuick
import QtQuick.Templates as T
import Tarvolt

// Takes all input from the window while the folder panel, a window of its own, is open.
T.Popup {
    id: root

    parent: T.Overlay.overlay
    objectName: "panelCover"
    modal: true
    dim: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    // Assistive technology is told of the panel alone.
    Component.onCompleted: contentItem.parent.Accessible.ignored = true

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }
}
