pragma Singleton

import QtQuick
import Tarvolt

// The window's colours by role and its text styles, from the platform's palette and fonts, and the sizes and times that
// more than one place needs; one that only one place needs is kept there. A role that is drawn at an opacity
// ("secondary at six tenths") is a colour of its own, strong enough to be read when it is dimmed; the item that draws
// it sets the opacity. Texts and icons are moved towards black or white until they can be read on the most difficult
// surface under them, so soft and mid-grey palettes work as well. At six tenths, on a window between #404040 and
// #BFBFBF, even black and white are too weak; they are used all the same.
PlatformStyle {
    id: root

    readonly property SystemPalette platform: SystemPalette {}
    readonly property color window: Qt.alpha(platform.window, 1)
    readonly property color base: Qt.alpha(platform.base, 1)
    readonly property color text: Qt.alpha(platform.windowText, 1)
    readonly property bool dark: Ink.luminance(window) < Ink.luminance(text)
    // Each for more than one of the roles below.
    readonly property color brightOrange: "#FF9F45"
    readonly property color brightGreen: "#62D284"
    readonly property color deepRed: "#C01C28"

    // Opacities of colours that are drawn dimmed.
    readonly property real badgeOpacity: 0.1
    readonly property real panelOpacity: 0.3
    readonly property real halfOpacity: 0.5
    readonly property real tintedOpacity: 0.6
    readonly property real oldNameOpacity: 0.7
    readonly property real noteOpacity: 0.8

    // Surfaces; the last three as they look on the surface below them.
    readonly property color card: dark ? Ink.mixed(window, text, 0.045) : base
    readonly property color sheet: dark ? Ink.mixed(window, text, 0.04) : Ink.mixed(window, base, 0.55)
    readonly property color quaternary: Qt.alpha(text, dark ? 0.14 : 0.11)
    readonly property color badge: dark ? brightOrange : "#FF7A00"
    readonly property color drawnSearchBar: Ink.drawn(quaternary, halfOpacity, window)
    readonly property color drawnPreview: Ink.drawn(quaternary, halfOpacity, sheet)
    readonly property color drawnLog: Ink.drawn(quaternary, panelOpacity, window)

    // The least contrast of each kind of ink on its most difficult surface, once dimmed.
    readonly property real captionContrast: dark ? 5 : 4.8
    readonly property real textContrast: 4.6
    readonly property real iconContrast: 3.02
    readonly property color strongest: dark ? "white" : "black"

    // Texts and icons.
    readonly property color primary: Ink.mixed(text, window, dark ? 0.06 : 0.09)
    readonly property color soft: Ink.mixed(text, window, dark ? 0.36 : 0.4)
    readonly property color secondary: Ink.legible(soft, strongest, 1, captionContrast,
        [window, card, sheet, drawnSearchBar, drawnPreview, drawnLog,
        Ink.drawn(badge, badgeOpacity, window)])
    readonly property color secondarySixTenths: Ink.legible(soft, strongest, tintedOpacity, captionContrast, [drawnLog])
    readonly property color secondaryEightTenths: Ink.legible(soft, strongest, noteOpacity, textContrast, [window])
    readonly property color secondaryHalf: Ink.legible(soft, strongest, halfOpacity, iconContrast, [window])
    readonly property color disabledInk: Qt.alpha(text, 0.36)
    readonly property color orange: Ink.legible(dark ? brightOrange : "#D75600", strongest, 1, iconContrast,
        [window, card, sheet, drawnSearchBar, drawnLog])
    readonly property color orangeSixTenths: Ink.legible(dark ? brightOrange : "#962C00", strongest, tintedOpacity,
        iconContrast, [window])
    readonly property color green: Ink.legible(dark ? brightGreen : "#1A7533", strongest, 1, textContrast,
        [card, drawnPreview])
    readonly property color greenSixTenths: Ink.legible(dark ? brightGreen : "#00521C", strongest, tintedOpacity,
        iconContrast, [drawnLog])
    readonly property color red: Ink.legible(dark ? "#FF857D" : deepRed, strongest, 1, textContrast, [drawnLog])
    readonly property color redSevenTenths: Ink.legible(dark ? "#FF9A93" : deepRed, strongest, oldNameOpacity,
        3.3, [drawnPreview])
    readonly property color yellow: Ink.legible(dark ? "#F3CB52" : "#875F00", strongest, 1, textContrast, [card])

    // Lines.
    readonly property color line: Qt.alpha(text, 0.13)
    readonly property color rowLine: Qt.alpha(text, 0.09)
    readonly property color cardBorder: Qt.alpha(text, dark ? 0.08 : 0.1)
    readonly property color sheetBorder: dark ? Qt.alpha("white", 0.12) : Qt.alpha("black", 0.1)
    readonly property color fieldBorder: Ink.legible(Ink.mixed(text, window, dark ? 0.658 : 0.615), strongest, 1,
        iconContrast, [base])
    readonly property color fieldBorderHover: Qt.alpha(text, 0.62)

    // Controls.
    readonly property color prominent: dark ? "#F5903A" : "#C94E00"
    readonly property color prominentHover: dark ? "#F6A056" : "#B94800"
    readonly property color prominentPressed: dark ? "#D37C32" : "#A54000"
    readonly property color prominentDisabled: Qt.alpha(text, 0.08)
    readonly property color prominentLabel: dark ? "#241202" : "white"
    readonly property color face: dark ? Ink.mixed(window, text, 0.11) : base
    readonly property color faceHover: Ink.mixed(window, text, dark ? 0.155 : 0.08)
    readonly property color facePressed: dark ? Ink.mixed(window, "black", 0.35) : Ink.mixed(window, text, 0.15)
    readonly property color faceDisabled: Qt.alpha(face, 0.45)
    readonly property color faceBorder: Qt.alpha(text, dark ? 0.09 : 0.15)
    readonly property color faceBorderDisabled: Qt.alpha(text, 0.08)
    readonly property color faceShade: dark ? Qt.alpha("black", 0.35) : Qt.alpha(text, 0.1)
    readonly property color selection: Qt.alpha(orange, dark ? 0.38 : 0.26)
    readonly property color thumb: Qt.alpha(text, 0.26)
    readonly property color thumbHover: Qt.alpha(text, 0.42)
    readonly property color thumbPressed: Qt.alpha(text, 0.55)
    readonly property color handleHover: Qt.alpha(text, 0.35)
    readonly property color spinnerTrack: Qt.alpha(text, 0.14)

    // Layers over the window.
    readonly property color scrim: Qt.alpha("black", dark ? 0.46 : 0.26)
    readonly property color alertScrim: Qt.alpha("black", dark ? 0.3 : 0.2)

    // Texts, by their ratios to the system font, and the sides of the symbols beside them.
    readonly property real captionRatio: 11 / 13
    readonly property font title2: styled(systemFont, 17 / 13, Font.Bold)
    readonly property font title3: styled(systemFont, 15 / 13, Font.Normal)
    readonly property font title3Semibold: styled(systemFont, 15 / 13, Font.DemiBold)
    readonly property font headline: styled(systemFont, 1, Font.Bold)
    readonly property font body: styled(systemFont, 1, Font.Normal)
    readonly property font bodySemibold: styled(systemFont, 1, Font.DemiBold)
    readonly property font caption: styled(systemFont, captionRatio, Font.Normal)
    readonly property font captionCapitals: styled(systemFont, captionRatio, Font.DemiBold, 0.3)
    readonly property font monoBody: styled(fixedFont, 1, Font.Normal)
    readonly property font monoBodyMedium: styled(fixedFont, 1, Font.Medium)
    readonly property font monoCaption: styled(fixedFont, captionRatio, Font.Normal)
    readonly property font monoCaption2: styled(fixedFont, 10 / 13, Font.Normal)
    readonly property real bodyPixels: body.pointSize * pixelsPerPoint
    readonly property real captionPixels: caption.pointSize * pixelsPerPoint
    readonly property int title2Symbol: symbolBox(title2.pointSize * pixelsPerPoint)
    readonly property int title3Symbol: symbolBox(title3.pointSize * pixelsPerPoint)
    readonly property int bodySymbol: symbolBox(bodyPixels)
    readonly property int captionSymbol: symbolBox(captionPixels)
    readonly property int caption2Symbol: symbolBox(monoCaption2.pointSize * pixelsPerPoint)

    // The usual distance from an edge, and sizes that several things share.
    readonly property int edge: 12
    readonly property int cardRadius: 10
    readonly property int rowLineSpacing: 3
    readonly property int sheetPadding: 24
    readonly property int focusWidth: 2
    readonly property int thumbEdge: 2
    readonly property real twoLineHeight: 1.15
    readonly property real proseHeight: 1.1

    // Buttons grow with their text. A line of text is this many times as high as the font size.
    readonly property real lineRatio: 1.2
    readonly property int buttonHeight: Math.round(Math.max(28, lineRatio * bodyPixels + 12))
    readonly property int buttonPadding: 12
    readonly property int buttonRadius: 7
    readonly property int smallButtonRadius: 6

    // Movement, in milliseconds.
    readonly property int viewFade: still(140)

    function still(duration: int): int {
        return root.reducedMotion ? 0 : duration;
    }
}
