pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The window: header, line, and below them one of three areas; over them the rename sheet, the failure alert and what
// stands before the window while the folder panel is open.
// An application window gives the focus back to where it was in here when one of these closes.
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
    // What the toolkit's folder panel selects in and draws its edges in.
    palette.highlight: Theme.prominent
    palette.highlightedText: Theme.prominentLabel
    palette.mid: Theme.fieldBorder
    visible: true
    // Whatever gives the focus: a sheet that closes, a button that is enabled again, another window left.
    onActiveFocusItemChanged: {
        const control = activeFocusItem as T.Control;
        if (control && root.presses.goesByKeys())
            control.focusReason = Qt.TabFocusReason; // The toolkit's word for a focus that shows.
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

    // Assistive technology reads a notification out when it appears. Each one is a new item, so that one which is
    // replaced before it was read disappears.
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

    // Shown only to someone who stays in this window: the panel has not opened, or is hidden behind other windows.
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
        interval: 2000 // a portal that has yet to be started included
        // A window counts as active also while the toolkit's panel, its transient child, has the focus.
        running: root.view.panelOpen && root.activeFocusItem !== null
        repeat: true
        onTriggered: late = true
        onRunningChanged: late = false
    }
}
