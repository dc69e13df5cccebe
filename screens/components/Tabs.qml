import QtQuick 1.1
import "style.js" as Style

// A row of tabs on the blue bar. "names" are for the program, "texts" for people.
Row {
    id: tabs

    property variant names: []
    property variant texts: []
    property int current: 0

    // The tab that was touched.
    property int choice: 0

    signal chosen

    Repeater {
        model: tabs.names

        Rectangle {
            property bool isCurrent: index === tabs.current

            objectName: "tab:" + modelData
            width: Math.max(88, label.paintedWidth + 28)
            height: tabs.height
            color: isCurrent ? "white" : area.pressed ? Style.darkBlue : Style.blue

            Rectangle {
                width: parent.width
                height: 4
                color: Style.lightBlue
                visible: parent.isCurrent
            }

            Label {
                id: label
                anchors.centerIn: parent
                text: tabs.texts[index]
                elide: Text.ElideNone
                color: parent.isCurrent ? Style.blue : "white"
            }

            MouseArea {
                id: area
                anchors.fill: parent
                onClicked: {
                    tabs.choice = index;
                    tabs.chosen();
                }
            }
        }
    }
}
