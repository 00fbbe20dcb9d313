import QtQuick
import Tarvolt

// Asks for the new name of one project and shows what the rename will make of it.
ModalPanel {
    id: root

    required property SheetBridge sheet
    readonly property RenameForm form: contentItem as RenameForm

    title: form.title
    width: 480
    height: 380
    padding: Theme.sheetPadding
    scrim: Theme.scrim
    timeIn: Theme.still(180)
    timeOut: Theme.still(120)
    onAboutToShow: root.form.selectName()

    enter: Transition {
        // Not eased, because the renderer ignores a very short last step.
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: root.timeIn
        }
        NumberAnimation {
            property: "rise"
            from: 12
            to: 0
            duration: root.timeIn
            easing.type: Easing.OutCubic
        }
    }

    contentItem: RenameForm {
        sheet: root.sheet
    }
}
