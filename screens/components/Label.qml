import QtQuick 1.1
import "style.js" as Style

// Text of the screens. Never rich text: names may look like mark-up. Always at the side where the
// screen begins: a name in Hebrew would go to the other one by itself. Wraps only where it has a
// maximumLineCount: what is elided keeps to one line on Qt Quick 1 otherwise.
Text {
    color: Style.text
    elide: Text.ElideRight
    font.family: "OpenSans"
    font.pixelSize: Style.fontPixels
    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
