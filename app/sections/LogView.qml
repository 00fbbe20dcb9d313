pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The right pane: what has happened, the newest on top.
FocusScope {
    id: root

    required property LogModel log

    objectName: "logView"

    BoxItem {
        objectName: "logFill"
        anchors.fill: parent
        color: Theme.quaternary
        opacity: Theme.panelOpacity
    }

    TextLabel {
        id: title
        objectName: "logTitle"
        x: Theme.edge
        y: Theme.edge
        text: qsTr("ACTIVITY LOG")
        font: Theme.captionCapitals
        color: Theme.secondary
    }

    HairLine {
        id: line
        objectName: "logLine"
        y: title.y + title.height + 8
        width: parent.width
    }

    TextLabel {
        objectName: "logEmptyText"
        anchors.horizontalCenter: parent.horizontalCenter
        y: list.y + Math.round((list.height - height) / 2)
        text: qsTr("No activity yet")
        font: Theme.caption
        color: Theme.secondarySixTenths
        opacity: Theme.tintedOpacity
        visible: list.count === 0
    }

    ListView {
        id: list
        objectName: "logList"
        y: line.y + line.height
        width: parent.width
        height: parent.height - y
        visible: count > 0
        clip: true
        model: root.log
        spacing: 2
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        focus: true
        activeFocusOnTab: true
        currentIndex: -1
        highlightFollowsCurrentItem: false
        Accessible.role: Accessible.List
        Accessible.name: title.text
        // A screen reader reads out the line that has the focus. The keys start from the first visible line.
        onActiveFocusChanged: {
            if (!activeFocus && currentItem)
                currentItem.focus = false;
            currentIndex = activeFocus ? firstInSight() : -1;
        }
        onCurrentIndexChanged: {
            if (activeFocus)
                positionViewAtIndex(currentIndex, ListView.Contain);
        }
        Keys.onPressed: event => {
            event.accepted = thumb.scroll(event.key);
            if (event.accepted)
                currentIndex = event.key === Qt.Key_End ? count - 1 : firstInSight();
        }
        Keys.onUpPressed: decrementCurrentIndex()
        Keys.onDownPressed: incrementCurrentIndex()

        // A line that is cut off at the top counts only if the next one is not wholly in sight.
        function firstInSight(): int {
            const first = indexAt(0, contentY + spacing);
            const next = itemAtIndex(first + 1);
            const cut = itemAtIndex(first)?.y < contentY && next && next.y + next.height <= contentY + height;
            return cut ? first + 1 : first;
        }

        T.ScrollBar.vertical: ScrollThumb {
            id: thumb
            area: list
            inset: 2 * Theme.thumbEdge // clear of the corners of the ring
        }

        delegate: LogRow {
            width: ListView.view.width
        }
    }
}
