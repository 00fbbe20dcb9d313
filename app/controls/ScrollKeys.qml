pragma ComponentBehavior: Bound

import QtQuick

// Scrolls an area that has no current item by the usual keys.
QtObject {
    id: root

    required property Flickable area
    readonly property int step: 40

    // Whether the key is one of them.
    function scroll(key: int): bool {
        const top = root.area.originY - root.area.topMargin;
        const bottom = Math.max(top, top + root.area.contentHeight - root.area.height);
        const goTo = new Map([
            [Qt.Key_Down, root.area.contentY + root.step],
            [Qt.Key_Up, root.area.contentY - root.step],
            [Qt.Key_PageDown, root.area.contentY + root.area.height],
            [Qt.Key_PageUp, root.area.contentY - root.area.height],
            [Qt.Key_Home, top],
            [Qt.Key_End, bottom]
        ]);
        if (!goTo.has(key))
            return false;
        root.area.contentY = Math.max(top, Math.min(bottom, goTo.get(key)));
        return true;
    }
}
