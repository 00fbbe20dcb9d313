pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The window: header, line, and one of three areas below them. The rename sheet, the failure alert and the cover for
// the time that the folder panel is open come on top. When one of these closes, an application window gives the focus
// back to the item that had it.
T.ApplicationWindow {
    id: root

    required property WindowBridge view
    // Made with the window, so that it misses no press.
    readonly property PressFilter presses: PressFilter

    width: 800
    height: 600
    minimumWidth: 700
    minimumHeight: 500
    title: Qt.application.name
    color: Theme.window
    // The toolkit's folder panel takes the colours of its selection and its edges from here.
    palette.highlight: Theme.prominent
    palette.highlightedText: Theme.prominentLabel
    palette.mid: Theme.fieldBorder
    visible: true
    // However the focus got there: a sheet closed, a button was enabled again, the user came back from another window.
    onActiveFocusItemChanged: {
        const control = activeFocusItem as T.Control;
        if (control && root.presses.lastPressWasKey())
            control.focusReason = Qt.TabFocusReason; // With this reason the toolkit shows the focus.
    }

    HeaderView {
        id: header
        objectName: "headerView"
        width: parent.width
        view: root.view
    }

    HairLine {
        id: headerLine
        objectName: "headerLine"
        y: header.height
        width: parent.width
    }

    ContentArea {
        y: headerLine.y + headerLine.height
        width: parent.width
        height: parent.height - y
        view: root.view
    }

    // Assistive technology reads a notification out when it appears. Each one is a new item, so that a notification
    // that is replaced before it has been read disappears.
    Repeater {
        id: news
        delegate: Item {
            required property string modelData

            objectName: "news"
            width: 1
            height: 1
            Accessible.role: Accessible.Notification
            Accessible.name: modelData
        }
    }

    Connections {
        target: root.view

        function onNewsTold(text: string): void {
            news.model = 0;
            news.model = [text];
        }
    }

    OnDemand {
        id: renaming
        needed: root.view.sheet.open
        RenameSheet {
            visible: renaming.ready
            sheet: root.view.sheet
        }
    }

    OnDemand {
        id: failure
        needed: root.view.sheet.alertOpen
        AlertPanel {
            visible: failure.ready
            title: qsTr("Rename Failed")
            message: root.view.sheet.alertMessage
            button: qsTr("OK")
            onDismissed: root.view.sheet.dismissAlert()
            onAboutToHide: (renaming.made as RenameSheet)?.form.focusField()
        }
    }

    OnDemand {
        id: cover
        needed: root.view.panelOpen
        PanelCover {
            visible: cover.ready
            // The toolkit gives the focus back only in an active window, and this one is active again a moment later.
            onClosed: root.contentItem.focus = true
        }
    }

    // Shown only if the user stays in this window: the panel has not opened, or is hidden behind other windows.
    OnDemand {
        id: wait
        needed: lostPanel.late
        AlertPanel {
            visible: wait.ready
            scrim: "transparent"
            title: qsTr("Waiting for a Folder")
            message: qsTr("Choose it in the folder panel. If you cannot see the panel, cancel and try again.")
            button: qsTr("Cancel")
            onDismissed: root.view.withdrawPanel()
        }
    }

    Timer {
        id: lostPanel
        property bool late: false
        interval: 2000 // enough for a portal that has yet to start
        // A window still counts as active while the toolkit's panel, its transient child, has the focus.
        running: root.view.panelOpen && root.activeFocusItem !== null
        repeat: true
        onTriggered: late = true
        onRunningChanged: late = false
    }
}
