import QtQuick
import QtQuick.Templates as T
import Tarvolt

// The thumb of a scrolling area, shown only while something is out of sight, and the keys that scroll the area.
T.ScrollBar {
    id: root

    required property Flickable area
    property int inset: 0 // from the area's top and bottom
    // From the area's right edge; inside it, unless the area leaves a margin beside it for the thumb.
    property real gap: -width - Theme.thumbEdge
    readonly property int step: 40

    objectName: "scrollThumb"
    // In the area itself it would get the area's height.
    parent: area.parent
    x: area.x + area.width + gap
    y: area.y + inset
    height: area.height - 2 * inset
    implicitWidth: 6
    minimumSize: height > 0 ? Math.min(1, 24 / height) : 0
    visible: size > 0 && size < 1
    hoverEnabled: true
    Accessible.ignored: true

    // Whether the key is one of those that scroll.
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

    contentItem: BoxItem {
        implicitWidth: root.implicitWidth
        radius: width / 2
        color: root.pressed ? Theme.thumbPressed : root.hovered ? Theme.thumbHover : Theme.thumb
    }
}
