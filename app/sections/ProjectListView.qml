import QtQuick
import Tarvolt

// The left pane: search bar, scanning indicator and the list in its card.
FocusScope {
    id: root

    required property WindowBridge view
    readonly property real cardTop: {
        const above = indicator.y + (indicator.visible ? indicator.height : 0);
        return above + (searchBar.visible ? 8 : Theme.edge);
    }

    objectName: "projectListView"

    // Gone for good, not just hidden during a scan.
    readonly property bool searchGone: !view.projects.showsSearchBar && !view.scanning
    // The focus returns to the search field when that is shown again.
    property bool searchAwaited: false

    onSearchGoneChanged: {
        if (searchGone && searchAwaited) {
            searchAwaited = false;
            list.resting = false;
            list.handOnFocus();
        }
    }

    Connections {
        target: root.view.sheet

        // The log tells of the rename two turns of the event loop later; a screen reader should announce that first.
        function onRenamed(): void {
            list.focus = false; // Until then, no row takes a key.
            Qt.callLater(() => Qt.callLater(list.rest, false)); // qmllint disable
        }
    }

    Connections {
        target: list.model

        // If the user has moved the focus meanwhile, it stays there.
        function onRenamedProjectListed(row: int, hiddenBySearch: bool): void {
            if (!list.resting)
                return;
            if (row >= 0)
                list.focusRow(row);
            else if (hiddenBySearch && searchBar.visible)
                searchBar.takeFocus();
            else
                list.rest(PressFilter.lastPressWasKey());
        }
    }

    SearchBar {
        id: searchBar
        x: Theme.edge
        y: Theme.edge
        width: parent.width - 2 * Theme.edge
        visible: root.view.projects.showsSearchBar
        projects: root.view.projects
        // Tab leads nowhere from a hidden field, and typing would go on unseen.
        onVisibleChanged: {
            if (!visible && focused) {
                root.searchAwaited = true;
                list.rest(false);
            } else if (visible && root.searchAwaited) {
                root.searchAwaited = false;
                if (list.resting)
                    takeFocus();
            }
        }
    }

    ScanIndicator {
        id: indicator
        y: searchBar.visible ? searchBar.y + searchBar.height + 4 : 0
        width: parent.width
        visible: root.view.scanning
    }

    BoxItem {
        id: card
        objectName: "listCard"
        anchors.fill: list
        anchors.margins: -borderWidth // The rows scroll inside the border.
        radius: Theme.cardRadius
        color: Theme.card
        borderWidth: Theme.hairline
        borderColor: Theme.cardBorder
        visible: list.count > 0
    }

    ProjectList {
        id: list
        x: Theme.edge + card.borderWidth
        y: root.cardTop + card.borderWidth
        width: parent.width - 2 * x
        height: Math.min(contentHeight, parent.height - y - x)
        focus: true
        projects: root.view.projects
    }

    // Shown while the focus is on the list itself, but not during a scan.
    Item {
        x: card.x
        y: card.y
        width: card.width
        height: list.count > 0 ? card.height : root.height - y - Theme.edge
        visible: list.activeFocus && list.currentItem === null && list.ringed && !root.view.scanning

        FocusRing {
            objectName: "listFocus"
            thickness: Theme.hairline
            gap: -thickness
            innerRadius: Theme.cardRadius
        }
    }
}
