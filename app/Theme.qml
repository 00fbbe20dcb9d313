pragma Singleton
pragma ComponentBehavior: Bound

import QtQuick
import Tarvolt

// Every size, opacity and duration of the window. Colours by role and text styles come from the platform.
PlatformStyle {
    id: root

    // The window.
    readonly property int firstWidth: 800
    readonly property int firstHeight: 600
    readonly property int leastWidth: 700
    readonly property int leastHeight: 500

    // Opacities of colours that are drawn dimmed.
    readonly property real badgeOpacity: 0.1
    readonly property real tintedOpacity: 0.6
    readonly property real noteOpacity: 0.8
    readonly property real halfOpacity: 0.5
    readonly property real panelOpacity: 0.3
    readonly property real oldNameOpacity: 0.7

    // The edge that most things keep, and the header.
    readonly property int edge: 12
    readonly property int headerSidePadding: 16
    readonly property int headerSpacing: 12
    readonly property int headerTitleSpacing: 1
    readonly property int headerActionSpacing: 8
    readonly property int badgeSidePadding: 8
    readonly property int badgePadding: 4
    readonly property int badgeRadius: 6

    // The folder picker and the empty state.
    readonly property int pickerSpacing: 16
    readonly property int pickerSymbol: symbolBox(48)
    readonly property int pickerLabelSidePadding: 20
    readonly property int pickerLabelPadding: 10
    readonly property int noteSpacing: 4
    readonly property int noteBottom: 20
    readonly property int emptySpacing: 12
    readonly property int emptySymbol: symbolBox(36)
    readonly property int emptyButtonTop: 8

    // The list and its search bar.
    readonly property int searchBottom: 4
    readonly property int searchPadding: 8
    readonly property int searchSpacing: 8
    readonly property int searchRadius: 8
    readonly property int listTop: 8
    readonly property int cardRadius: 10
    readonly property int scanPadding: 16
    readonly property int scanSpacing: 8
    readonly property int spinnerSize: 22
    readonly property int rowInset: 6
    readonly property int rowPadding: 4
    readonly property int rowLeft: 4
    readonly property int rowRight: 10
    readonly property int rowSpacing: 12
    readonly property int rowSymbolFrame: 28
    readonly property int rowLineSpacing: 3
    readonly property int detailSpacing: 12
    readonly property int detailSymbolSpacing: 4
    readonly property int detailShift: -2

    // The log.
    readonly property int firstLogWidth: 240
    readonly property int logSidePadding: 12
    readonly property int logTitleTop: 12
    readonly property int logTitleBottom: 8
    readonly property int logSpacing: 2
    readonly property int logRowPadding: 4
    readonly property int logRowSpacing: 6
    readonly property int logTextSpacing: 1
    readonly property int logDot: 5
    readonly property int logDotTop: 5

    // The sheet and the alert.
    readonly property int sheetWidth: 480
    readonly property int sheetHeight: 380
    readonly property int sheetPadding: 24
    readonly property int sheetSpacing: 20
    readonly property int sheetTitleSpacing: 4
    readonly property int sheetFieldSpacing: 6
    readonly property int sheetButtonSpacing: 8
    readonly property int previewSpacing: 8
    readonly property int previewPadding: 12
    readonly property int previewLineSpacing: 6
    readonly property int previewRowSpacing: 8
    readonly property int previewRadius: 8
    readonly property int leastPreview: 2 * previewPadding + 2 * Math.ceil(lineRatio * captionPixels)
    readonly property int alertWidth: 320
    readonly property int alertPadding: 20
    readonly property int alertTextSpacing: 6
    readonly property int alertButtonTop: 18
    readonly property int panelRadius: 14

    // Controls. They grow with their text, whose line is so many times as high as its size.
    readonly property real lineRatio: 1.2
    readonly property int buttonHeight: Math.round(Math.max(28, lineRatio * bodyPixels + 12))
    readonly property int buttonPadding: 12
    readonly property int buttonRadius: 7
    readonly property int smallButtonHeight: Math.round(Math.max(24, lineRatio * captionPixels + 10))
    readonly property int smallButtonPadding: 10
    readonly property int smallButtonRadius: 6
    readonly property int iconButtonExtra: 4
    readonly property int largeButtonRadius: 9
    readonly property int largeButtonSpacing: 7
    readonly property int thinBorder: 1
    readonly property int fieldHeight: Math.round(Math.max(30, lineRatio * bodyPixels + 14))
    readonly property int fieldPadding: 9
    readonly property int fieldRadius: 7
    readonly property int caretWidth: 2
    readonly property int menuPadding: 4
    readonly property int menuWidth: Math.round(11 * bodyPixels)
    readonly property int focusWidth: 2
    readonly property int focusGap: 2
    readonly property int splitHitWidth: 9
    readonly property int splitStrongWidth: 3
    readonly property int splitStep: 10
    readonly property int thumbWidth: 6
    readonly property int thumbEdge: 2
    readonly property int leastThumb: 24
    readonly property int scrollStep: 40
    readonly property real twoLineHeight: 1.15
    readonly property real proseHeight: 1.1

    // Movement, in milliseconds.
    readonly property int sheetIn: still(180)
    readonly property int sheetOut: still(120)
    readonly property int sheetRise: 12
    readonly property int alertIn: still(140)
    readonly property int alertOut: still(100)
    readonly property real alertScale: 0.96
    readonly property int hoverFade: still(90)
    readonly property int highlightIn: still(160)
    readonly property int highlightOut: still(400)
    readonly property int viewFade: still(140)
    readonly property int spinnerTurn: 900

    // How long the folder panel may take to come up, a portal that has yet to be started included.
    readonly property int panelPatience: 2000

    function still(duration: int): int {
        return root.reducedMotion ? 0 : duration;
    }
}
