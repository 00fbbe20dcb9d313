pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What stands under the header: the folder picker, the empty state, or the list beside the log.
FocusScope {
    id: root

    required property ViewBridge view
    readonly property int shown: view.area
    // None while another window is in front; it comes back to the same item, shown or not.
    readonly property Item focusItem: Window.activeFocusItem
    property bool goesByKeys: false

    objectName: "contentArea"
    // The linter of Qt 6.4 takes callLater for no function and has no name for this warning.
    onShownChanged: {
        appear.restart();
        Qt.callLater(root.keepFocusInSight); // qmllint disable
    }
    onFocusItemChanged: Qt.callLater(root.keepFocusInSight) // qmllint disable

    // Tab leads nowhere from what has been hidden. Who goes by keys is taken along to what is shown instead.
    function keepFocusInSight(): void {
        if (!root.focusItem)
            return;
        if (root.focusItem.visible) {
            const control = root.focusItem as T.Control;
            root.goesByKeys = control === null || control.visualFocus;
        } else if (root.goesByKeys) {
            if (root.shown === ViewBridge.EmptyState)
                emptyState.takeFocus();
            else
                split.forceActiveFocus(Qt.TabFocusReason);
        } else {
            root.focusItem.focus = false;
        }
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
        visible: root.shown === ViewBridge.FolderPicker
        view: root.view
    }

    EmptyStateView {
        id: emptyState
        anchors.fill: parent
        visible: root.shown === ViewBridge.EmptyState
        view: root.view
    }

    SplitArea {
        id: split
        anchors.fill: parent
        visible: root.shown === ViewBridge.ProjectList
        focus: true
        view: root.view
    }
}
