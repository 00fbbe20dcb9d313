import QtQuick
import QtQuick.Templates as T
import Tarvolt

// Keeps all input from the window while the folder panel, which is a separate window, is open.
T.Popup {
    parent: T.Overlay.overlay
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose
    // Assistive technology sees the panel only.
    Component.onCompleted: contentItem.parent.Accessible.ignored = true

    T.Overlay.modal: Rectangle {
        color: Theme.scrim
    }
}
