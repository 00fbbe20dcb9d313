pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The area under the header: the folder picker, the empty state, or the list beside the log.
FocusScope {
    id: root

    required property WindowBridge view
    readonly property int shown: view.area
    // None while another window is in front. The focus then returns to the same item, shown or not.
    readonly property Item focusItem: Window.activeFocusItem

    objectName: "contentArea"
    // The linter of Qt 6.4 does not know that callLater is a function and has no name for this warning.
    onShownChanged: {
        appear.restart();
        Qt.callLater(root.keepFocusInSight); // qmllint disable
    }
    onFocusItemChanged: Qt.callLater(root.keepFocusInSight) // qmllint disable

    // Tab leads nowhere from a hidden item, so keyboard users are moved to the new view.
    function keepFocusInSight(): void {
        const showsSplit = root.shown === WindowBridge.ProjectList;
        if (!root.focusItem || root.focusItem.visible || (showsSplit && split.activeFocus))
            return;
        if (!PressFilter.lastPressWasKey())
            root.focusItem.focus = false;
        else if (showsSplit)
            split.forceActiveFocus(Qt.TabFocusReason);
        else
            (emptyState.made as EmptyStateView).takeFocus();
    }

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
        visible: root.shown === WindowBridge.FolderPicker
        onFolderWanted: root.view.selectFolder()
    }

    OnDemand {
        id: emptyState
        anchors.fill: parent
        needed: visible
        visible: root.shown === WindowBridge.EmptyState

        EmptyStateView {
            anchors.fill: parent
            onFolderWanted: root.view.selectFolder()
        }
    }

    OnDemand {
        id: split
        anchors.fill: parent
        needed: visible
        visible: root.shown === WindowBridge.ProjectList
        focus: true

        SplitArea {
            anchors.fill: parent
            focus: true
            view: root.view
        }
    }
}
