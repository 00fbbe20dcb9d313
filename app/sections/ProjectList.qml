pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The rows. One of them is the current one, and the list's keyboard focus is on its button: Tab and the arrow keys go
// from row to row, Page Up and Page Down by as many rows as are in sight, Home and End to either end.
ListView {
    id: root

    required property ProjectListModel projects
    // The focus stays on the list itself, although there are rows.
    property bool resting: false
    // Whether a focus on the list itself is shown.
    property bool ringed: false
    // The row that the keys continue from while the list rests; -1 for none.
    property int restingRow: -1
    readonly property int from: resting ? restingRow : currentIndex
    // The project that keeps the focus when the rows are replaced.
    property string focusedName: ""
    readonly property int rowsInSight: currentItem ? Math.max(1, Math.floor(height / currentItem.height)) : 1

    objectName: "projectList"
    clip: true
    model: projects
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    // Keep it in the tab chain while focused.
    activeFocusOnTab: count > 0 || activeFocus
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    onActiveFocusChanged: handOnFocus()
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Projects")

    T.ScrollBar.vertical: ScrollThumb {
        area: root
        gap: Theme.hairline + Math.round((Theme.edge - width) / 2)
    }

    Connections {
        target: root.model

        // The new row in this place will show another project.
        function onModelAboutToBeReset(): void {
            root.currentIndex = -1;
        }

        // The linter of Qt 6.4 does not know that callLater is a function and has no name for this warning.
        function onModelReset(): void {
            Qt.callLater(root.handOnFocus); // qmllint disable
        }
    }

    delegate: ProjectRow {
        id: row

        required property int index

        width: ListView.view.width
        // A line at the list's end would thicken the border below it.
        last: index === root.count - 1 || Math.abs(y + height - root.contentY - root.height) < 1
        onRenamePressed: root.projects.beginRename(index)
        onActiveFocusChanged: {
            if (activeFocus) {
                root.currentIndex = index;
                root.focusedName = name;
            }
        }
    }

    // From the last row Tab leaves the list, as it does backwards from the first.
    Keys.onPressed: event => {
        const goTo = new Map([
            [Qt.Key_Down, root.from + 1],
            [Qt.Key_Tab, root.from + 1],
            [Qt.Key_Up, root.from - 1],
            [Qt.Key_Backtab, root.from - 1],
            [Qt.Key_PageDown, root.from + root.rowsInSight],
            [Qt.Key_PageUp, root.from - root.rowsInSight],
            [Qt.Key_Home, 0],
            [Qt.Key_End, root.count - 1]
        ]);
        event.accepted = goTo.has(event.key) && root.goTo(goTo.get(event.key));
    }

    // Whether there was another row to go to.
    function goTo(wanted: int): bool {
        const row = Math.max(0, Math.min(root.count - 1, wanted));
        const before = root.from < 0 && wanted < 0;
        if (root.count === 0 || row === root.from || before)
            return false;
        root.focusRow(row);
        return true;
    }

    // The list itself keeps the focus only while it rests or has no row to give it to.
    function handOnFocus(): void {
        const item = Window.activeFocusItem;
        if (item !== root)
            root.resting = root.resting && item === null;
        else if (!root.resting && root.count > 0)
            root.focusRow(Math.max(0, root.projects.rowShowing(root.focusedName)));
        else if (!root.resting)
            root.ringed = PressFilter.lastPressWasKey();
    }

    function focusRow(row: int): void {
        root.resting = false;
        root.currentIndex = row;
        root.positionViewAtIndex(row, ListView.Contain);
        (root.currentItem as ProjectRow).takeFocus();
    }

    // Puts the focus on no row.
    function rest(ring: bool): void {
        root.restingRow = root.currentIndex;
        root.resting = true;
        root.ringed = ring;
        if (root.currentItem)
            root.currentItem.focus = false;
        root.currentIndex = -1;
        root.forceActiveFocus(Qt.OtherFocusReason);
    }
}
