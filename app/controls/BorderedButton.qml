pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// The platform's usual button: a raised face with a thin border. Small ones stand in rows; with a symbol it has no
// text.
PressButton {
    id: root

    property bool small: false
    property string symbol: ""
    readonly property int cornerRadius: small ? Theme.smallButtonRadius : Theme.buttonRadius
    readonly property color ink: enabled ? Theme.primary : Theme.disabledInk

    implicitHeight: small ? Theme.smallButtonHeight : Theme.buttonHeight
    implicitWidth: symbol !== "" ? implicitHeight + Theme.iconButtonExtra : implicitContentWidth + 2 * leftPadding
    leftPadding: symbol !== "" ? 0 : small ? Theme.smallButtonPadding : Theme.buttonPadding
    rightPadding: leftPadding
    font: small ? Theme.caption : Theme.body

    contentItem: ButtonLabel {
        symbol: root.symbol
        text: root.text
        font: root.font
        ink: root.ink
    }

    background: Item {
        BoxItem {
            objectName: "shade"
            y: Theme.hairline
            width: parent.width
            height: parent.height
            radius: root.cornerRadius
            borderWidth: Theme.thinBorder
            borderColor: Theme.faceShade
            visible: root.enabled && !root.down
        }

        BoxItem {
            objectName: "face"
            anchors.fill: parent
            radius: root.cornerRadius
            color: !root.enabled ? Theme.faceDisabled
                : root.down ? Theme.facePressed
                : root.hovered ? Theme.faceHover
                : Theme.face
            borderWidth: Theme.thinBorder
            borderColor: root.enabled ? Theme.faceBorder : Theme.faceBorderDisabled

            Behavior on color {
                // Known before the colour changes: a press shows at once.
                enabled: !root.pressed
                ColorAnimation {
                    duration: Theme.hoverFade
                }
            }
        }

        FocusRing {
            innerRadius: root.cornerRadius
            visible: root.visualFocus
        }
    }
}
