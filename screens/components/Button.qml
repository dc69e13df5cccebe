import QtQuick 1.1
import "style.js" as Style

// A push button. "main" is the one action that a screen leads to, "danger" one that destroys.
Rectangle {
    id: button

    property string text
    property string kind: "plain"
    property color ink: kind === "main" ? "white" : kind === "danger" ? Style.warning : Style.blue

    signal clicked

    objectName: "button:" + text
    width: 94
    height: Style.buttonHeight
    radius: 4
    opacity: enabled ? 1 : 0.4
    color: {
        if (kind === "main")
            return area.pressed ? Style.text : Style.blue;
        return area.pressed ? Style.pressed : "white";
    }
    border.color: kind === "main" ? color : ink
    border.width: 1

    Label {
        anchors { fill: parent; leftMargin: 4; rightMargin: 4 }
        horizontalAlignment: Text.AlignHCenter
        text: button.text
        color: button.ink
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
