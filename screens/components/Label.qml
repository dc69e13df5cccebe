import QtQuick 1.1
import "style.js" as Style

// Text of the screens. Never rich text: names may look like mark-up.
Text {
    color: Style.text
    elide: Text.ElideRight
    font.family: "OpenSans"
    font.pixelSize: Style.fontPixels
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
