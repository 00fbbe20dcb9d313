pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Asks for the new name of one project and shows what the rename will make of it.
ModalPanel {
    id: root

    required property SheetBridge sheet
    property real rise: 0
    readonly property RenameForm form: contentItem as RenameForm

    objectName: "renameSheet"
    title: form.title
    width: Theme.sheetWidth
    height: Theme.sheetHeight
    padding: Theme.sheetPadding
    visible: sheet.open
    scrim: Theme.scrim
    scrimFade: visible ? Theme.sheetIn : Theme.sheetOut
    y: Math.round((parent.height - height) / 2 + rise)
    onAboutToShow: root.form.selectName()

    function focusField(): void {
        root.form.focusField();
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.sheetIn
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            property: "rise"
            from: Theme.sheetRise
            to: 0
            duration: Theme.sheetIn
            easing.type: Easing.OutCubic
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.sheetOut
        }
    }

    contentItem: RenameForm {
        sheet: root.sheet
    }
}
