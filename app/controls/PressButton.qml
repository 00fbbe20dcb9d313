import QtQuick
import QtQuick.Templates as T
import Tarvolt

// What all buttons share: a face with a symbol, a text or both, pressed by mouse, Space, Return, keypad Enter and
// assistive technology. A press counts once, however long it is held.
T.AbstractButton {
    id: root

    required property color ink
    required property color face
    property bool raised: false // with a border, and a shade below
    required property int cornerRadius
    property string symbol: ""
    property string spokenName: text
    property string spokenDetails: "" // spoken after the name

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    rightPadding: leftPadding
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.role: Accessible.Button
    Accessible.name: spokenName
    Accessible.description: Speech.description(enabled, spokenDetails)
    // The toolkit's button acts when Space is released, and on X11 a held key seems to be released again and again.
    Keys.onSpacePressed: root.press()
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()
    // If Tab leads back to the same button, as in a view with one control, the toolkit does not show the focus.
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab)
            root.focusReason = Qt.TabFocusReason;
    }

    // The press action of assistive technology. The toolkit finds it by this name.
    function accessiblePressAction(): void {
        root.press();
    }

    function press(): void {
        if (root.enabled)
            root.clicked();
    }

    // Its ids rule out deferred creation, which would gain nothing because no button replaces it.
    contentItem: Item { // qmllint disable deferred-property-id
        implicitWidth: row.implicitWidth
        implicitHeight: label.implicitHeight

        Row {
            id: row
            anchors.centerIn: parent
            spacing: 7

            Symbol {
                objectName: "buttonSymbol"
                anchors.verticalCenter: parent.verticalCenter
                visible: symbol !== ""
                symbol: root.symbol
                size: Theme.bodySymbol
                colour: Qt.alpha(root.ink, 1)
                opacity: root.ink.a
            }

            TextLabel {
                id: label
                objectName: "buttonText"
                anchors.verticalCenter: parent.verticalCenter
                width: Math.ceil(implicitWidth) // A fraction would put it a pixel too far to the right.
                visible: text !== ""
                text: root.text
                font: root.font
                color: root.ink
                Accessible.ignored: true
            }
        }
    }

    background: Item {
        BoxItem {
            objectName: "shade"
            y: Theme.hairline
            width: parent.width
            height: parent.height
            radius: root.cornerRadius
            borderWidth: Theme.hairline
            borderColor: Theme.faceShade
            visible: root.raised && root.enabled && !root.down
        }

        BoxItem {
            objectName: "face"
            anchors.fill: parent
            radius: root.cornerRadius
            color: root.face
            borderWidth: root.raised ? Theme.hairline : 0
            borderColor: root.enabled ? Theme.faceBorder : Theme.faceBorderDisabled

            Behavior on color {
                // `pressed` is set before the colour changes, so a press shows at once.
                enabled: !root.pressed
                ColorAnimation {
                    duration: Theme.still(90)
                }
            }
        }

        FocusRing {
            innerRadius: root.cornerRadius
            visible: root.visualFocus
        }
    }
}
