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
    riseFrom: 12
    onAboutToShow: root.form.selectName()

    contentItem: RenameForm {
        sheet: root.sheet
    }
}
