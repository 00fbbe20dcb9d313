pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// What stands under the header: the folder picker, the empty state, or the list beside the log.
FocusScope {
    id: root

    required property ViewBridge view
    readonly property int shown: view.area

    objectName: "contentArea"
    onShownChanged: appear.restart()

    NumberAnimation {
        id: appear
        target: root
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.viewFade
    }

    FolderPickerView {
        anchors.fill: parent
        visible: root.shown === ViewBridge.FolderPicker
        view: root.view
    }

    EmptyStateView {
        anchors.fill: parent
        visible: root.shown === ViewBridge.EmptyState
        view: root.view
    }

    SplitArea {
        anchors.fill: parent
        visible: root.shown === ViewBridge.ProjectList
        focus: true
        view: root.view
    }
}
