import QtQuick
import Tarvolt

// One of the two shadows under a panel: a soft disc, whose quarters lie around the panel's corners and whose middle is
// stretched between them. It grows along a bell curve from two sigmas outside the panel to two inside. The picture is
// not an SVG, whose size the toolkit multiplies by the scale before it cuts it into parts.
BorderImage {
    property bool wide: false
    readonly property int reach: wide ? 44 : 8
    readonly property int drop: wide ? 16 : 2
    readonly property real quarter: (sourceSize.width - 1) / 2

    objectName: "panelShadow"
    anchors.fill: parent
    anchors.margins: -reach
    anchors.topMargin: drop - reach
    anchors.bottomMargin: -drop - reach
    source: wide ? "../shadows/wide.png" : "../shadows/tight.png"
    border.left: quarter
    border.top: quarter
    border.right: quarter
    border.bottom: quarter
    opacity: Theme.dark ? (wide ? 0.55 : 0.3) : (wide ? 0.34 : 0.16)
}
