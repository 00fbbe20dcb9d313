import QtQuick
import Tarvolt

// The platform's usual button: a raised face with a thin border. Small ones are for rows. A button with a symbol has no
// text.
PressButton {
    property bool small: false

    implicitHeight: small ? Math.round(Math.max(24, Theme.lineRatio * Theme.captionPixels + 10)) : Theme.buttonHeight
    implicitWidth: symbol !== "" ? implicitHeight + 4 : implicitContentWidth + 2 * leftPadding
    leftPadding: symbol !== "" ? 0 : small ? 10 : Theme.buttonPadding
    cornerRadius: small ? Theme.smallButtonRadius : Theme.buttonRadius
    font: small ? Theme.caption : Theme.body
    ink: enabled ? Theme.primary : Theme.disabledInk
    face: !enabled ? Theme.faceDisabled
        : down ? Theme.facePressed
        : hovered ? Theme.faceHover
        : Theme.face
    raised: true
}
