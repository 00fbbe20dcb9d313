pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// One of the two shadows under a panel.
ShadowItem {
    id: root

    required property int drop

    objectName: "panelShadow"
    anchors.fill: parent
    anchors.margins: -reach
    anchors.topMargin: drop - reach
    anchors.bottomMargin: -drop - reach
    radius: Theme.panelRadius
}
