pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The one main action of a view: filled with the tint. Large ones carry a symbol beside their text.
PressButton {
    id: root

    property bool large: false
    property string symbol: ""
    readonly property int cornerRadius: large ? Theme.largeButtonRadius : Theme.buttonRadius
    readonly property color ink: enabled ? Theme.prominentLabel : Theme.disabledInk

    implicitHeight: large ? implicitContentHeight + 2 * Theme.pickerLabelPadding : Theme.buttonHeight
    leftPadding: large ? Theme.pickerLabelSidePadding : Theme.buttonPadding
    rightPadding: leftPadding
    font: Theme.bodySemibold

    contentItem: ButtonLabel {
        symbol: root.symbol
        text: root.text
        font: root.font
        ink: root.ink
    }

    background: BoxItem {
        objectName: "face"
        radius: root.cornerRadius
        color: !root.enabled ? Theme.prominentDisabled
            : root.down ? Theme.prominentPressed
            : root.hovered ? Theme.prominentHover
            : Theme.prominent

        Behavior on color {
            // Known before the colour changes: a press shows at once.
            enabled: !root.pressed
            ColorAnimation {
                duration: Theme.hoverFade
            }
        }

        FocusRing {
            innerRadius: root.cornerRadius
            visible: root.visualFocus
        }
    }
}
