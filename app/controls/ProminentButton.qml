import QtQuick
import Tarvolt

// The main action of a view, filled with the tint. Large ones have a symbol beside their text.
PressButton {
    property bool large: false

    implicitHeight: large ? implicitContentHeight + 2 * 10 : Theme.buttonHeight
    leftPadding: large ? 20 : Theme.buttonPadding
    cornerRadius: large ? 9 : Theme.buttonRadius
    font: Theme.bodySemibold
    ink: enabled ? Theme.prominentLabel : Theme.disabledInk
    face: !enabled ? Theme.prominentDisabled
        : down ? Theme.prominentPressed
        : hovered ? Theme.prominentHover
        : Theme.prominent
}
