import QtQuick
import QtQuick.Layouts
import Tarvolt

// One project: its symbol, its name over its details, and its button, which has the row's keyboard focus.
FocusScope {
    id: root

    required property string name
    required property string fileCountText
    required property string sizeText
    required property bool hasDataFolder
    required property bool renamed
    required property string sentence
    required property string detailsSentence
    required property string buttonSentence
    required property bool last

    signal renamePressed

    objectName: "projectRow"
    implicitHeight: row.implicitHeight + 2 * row.anchors.topMargin
    Accessible.role: Accessible.ListItem
    Accessible.name: sentence

    function takeFocus(): void {
        button.forceActiveFocus(Qt.OtherFocusReason);
    }

    RowLayout {
        id: row
        objectName: "rowLayout"
        anchors.fill: parent
        anchors.topMargin: 6 + 4 // the inset of a list, and the padding of a row
        anchors.bottomMargin: anchors.topMargin
        anchors.leftMargin: 4
        anchors.rightMargin: 10
        spacing: 12

        Item {
            objectName: "rowSymbolFrame"
            implicitWidth: 28
            implicitHeight: symbol.implicitHeight

            Symbol {
                id: symbol
                objectName: "rowSymbol"
                anchors.centerIn: parent
                symbol: root.hasDataFolder ? "music.note.list" : "music.note"
                size: Math.min(Theme.title3Symbol, parent.implicitWidth)
                colour: root.renamed ? Theme.green : Theme.orange

                Behavior on colour {
                    id: highlight
                    ColorAnimation {
                        duration: Theme.still(highlight.targetValue === Theme.green ? 160 : 400)
                    }
                }
            }
        }

        ColumnLayout {
            id: texts
            objectName: "rowTexts"
            Layout.fillWidth: true
            spacing: Theme.rowLineSpacing

            TextLabel {
                objectName: "rowName"
                Layout.fillWidth: true
                text: root.name
                font: Theme.verbatim(Theme.monoBodyMedium, text)
                maximumLineCount: 1
                elide: Text.ElideRight
                Accessible.ignored: true
            }

            // Where a large font leaves no room beside one detail, the next goes below it.
            Flow {
                objectName: "rowDetails"
                Layout.leftMargin: -2 // Its symbol begins where the letters above it do.
                Layout.fillWidth: true
                spacing: texts.spacing

                DetailLabel {
                    symbol: "doc"
                    text: root.fileCountText
                }

                DetailLabel {
                    symbol: "internaldrive"
                    text: root.sizeText
                }

                DetailLabel {
                    visible: !root.hasDataFolder
                    symbol: "exclamationmark.triangle"
                    text: qsTr("No data folder")
                    colour: Theme.yellow
                }
            }
        }

        BorderedButton {
            id: button
            objectName: "rowButton"
            small: true
            focus: true
            activeFocusOnTab: false
            text: qsTr("Rename")
            spokenName: root.buttonSentence
            spokenDetails: root.detailsSentence
            onClicked: root.renamePressed()
        }
    }

    HairLine {
        objectName: "rowLine"
        x: row.x + texts.x
        anchors.bottom: parent.bottom
        width: row.x + row.width - x
        color: Theme.rowLine
        visible: !root.last
    }
}
